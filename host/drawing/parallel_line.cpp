// Parallels of lines, arcs, circles and polylines.
#include "edit_operations.h"

#include "host_access.h"

#include <algorithm>
#include <cmath>

namespace {

struct Plane {
    double x, y;
    Plane operator+(const Plane& o) const { return {x + o.x, y + o.y}; }
    Plane operator-(const Plane& o) const { return {x - o.x, y - o.y}; }
    Plane operator*(double k) const { return {x * k, y * k}; }
};

double cross(const Plane& a, const Plane& b) { return a.x * b.y - a.y * b.x; }
double dot(const Plane& a, const Plane& b) { return a.x * b.x + a.y * b.y; }
double length(const Plane& a) { return std::hypot(a.x, a.y); }
Plane leftOf(const Plane& a) { return {-a.y, a.x}; }

// One piece of a polyline; directions are those of travel at its ends.
struct Piece {
    Plane from, to;
    double bulge;
    Plane startDirection, endDirection;
};

Plane turned(const Plane& v, double angle)
{
    return {v.x * std::cos(angle) - v.y * std::sin(angle), v.x * std::sin(angle) + v.y * std::cos(angle)};
}

Piece pieceOf(const Plane& from, const Plane& to, double bulge)
{
    const Plane chord = to - from;
    const Plane along = chord * (1.0 / length(chord));
    // The tangent leaves the chord by half of the arc's angle.
    const double half = 2.0 * std::atan(bulge);
    return {from, to, bulge, turned(along, -half), turned(along, half)};
}

double distanceTo(const Piece& piece, const Plane& p)
{
    const Plane along = piece.to - piece.from;
    const double t = std::clamp(dot(p - piece.from, along) / dot(along, along), 0.0, 1.0);
    return length(p - (piece.from + along * t));
}

// Where two straight lines meet; `fallback` for parallels.
Plane meeting(const Plane& a, const Plane& alongA, const Plane& b, const Plane& alongB, const Plane& fallback)
{
    const double turn = cross(alongA, alongB);
    return std::fabs(turn) < 1e-9 ? fallback : a + alongA * (cross(b - a, alongB) / turn);
}

// A corner of the parallel, `left` of both pieces that meet in it.
Plane corner(const Piece& before, const Piece& after, double left)
{
    const Plane end = before.to + leftOf(before.endDirection) * left;
    const Plane start = after.from + leftOf(after.startDirection) * left;
    return meeting(end, before.endDirection, start, after.startDirection, end);
}

std::vector<Piece> piecesOf(const NcDbPolyline& line)
{
    std::vector<Piece> pieces;
    const auto& vertices = HostAccess::vertices(line);
    for (size_t i = 0; i + (line.isClosed() ? 0 : 1) < vertices.size(); ++i) {
        const NcGePoint2d a = vertices[i].point, b = vertices[(i + 1) % vertices.size()].point;
        if (!(a == b))
            pieces.push_back(pieceOf({a.x, a.y}, {b.x, b.y}, vertices[i].bulge));
    }
    return pieces;
}

// A piece that would turn about has vanished.
bool keepsDirection(const Piece& piece, const Plane& from, const Plane& to)
{
    return dot(to - from, piece.to - piece.from) > 0.0;
}

// Positive for the left of the piece that is nearest.
double sideOf(const std::vector<Piece>& pieces, const Plane& p)
{
    const Piece& nearest = *std::min_element(pieces.begin(), pieces.end(), [&](const Piece& a, const Piece& b) {
        return distanceTo(a, p) < distanceTo(b, p);
    });
    return cross(nearest.to - nearest.from, p - nearest.from) >= 0.0 ? 1.0 : -1.0;
}

std::unique_ptr<NcDbEntity> parallelPolyline(const NcDbPolyline& line, double distance, const Plane& side)
{
    const std::vector<Piece> pieces = piecesOf(line);
    if (pieces.empty())
        return nullptr;
    const double left = distance * sideOf(pieces, side);
    std::vector<Plane> corners;
    const size_t count = pieces.size();
    for (size_t i = 0; i < count; ++i) {
        const bool first = i == 0 && !line.isClosed();
        corners.push_back(first ? pieces[0].from + leftOf(pieces[0].startDirection) * left
                                : corner(pieces[(i + count - 1) % count], pieces[i], left));
    }
    if (!line.isClosed())
        corners.push_back(pieces.back().to + leftOf(pieces.back().endDirection) * left);
    auto made = std::make_unique<NcDbPolyline>();
    made->setPropertiesFrom(&line);
    made->setElevation(line.elevation());
    for (size_t i = 0; i < corners.size(); ++i) {
        if (i < count && !keepsDirection(pieces[i], corners[i], corners[(i + 1) % corners.size()]))
            return nullptr;
        made->addVertexAt(int(i), {corners[i].x, corners[i].y}, i < count ? pieces[i].bulge : 0.0);
    }
    made->setClosed(line.isClosed());
    return made;
}

std::unique_ptr<NcDbEntity> parallelLine(const NcDbLine& line, double distance, const Plane& side)
{
    const Plane from{line.startPoint().x, line.startPoint().y}, to{line.endPoint().x, line.endPoint().y};
    const Plane along = to - from;
    if (length(along) == 0.0)
        return nullptr;
    const double left = cross(along, side - from) >= 0.0 ? distance : -distance;
    const Plane shift = leftOf(along) * (left / length(along));
    const NcGeVector3d by(shift.x, shift.y, 0.0);
    auto made = std::make_unique<NcDbLine>(line.startPoint() + by, line.endPoint() + by);
    made->setPropertiesFrom(&line);
    return made;
}

double radiusAt(const NcGePoint3d& center, double radius, double distance, const Plane& side)
{
    const bool outside = std::hypot(side.x - center.x, side.y - center.y) > radius;
    return radius + (outside ? distance : -distance);
}

} // namespace

std::unique_ptr<NcDbEntity> offsetOf(const NcDbEntity& entity, double distance, const NcGePoint3d& sidePoint)
{
    const Plane side{sidePoint.x, sidePoint.y};
    if (!(distance > 0.0) || !std::isfinite(distance))
        return nullptr;
    if (entity.isKindOf(NcDbLine::desc()))
        return parallelLine(static_cast<const NcDbLine&>(entity), distance, side);
    if (entity.isKindOf(NcDbPolyline::desc()))
        return parallelPolyline(static_cast<const NcDbPolyline&>(entity), distance, side);
    std::unique_ptr<NcDbEntity> made;
    if (entity.isKindOf(NcDbCircle::desc())) {
        const auto& circle = static_cast<const NcDbCircle&>(entity);
        const double radius = radiusAt(circle.center(), circle.radius(), distance, side);
        if (radius > 0.0)
            made = std::make_unique<NcDbCircle>(circle.center(), circle.normal(), radius);
    } else if (entity.isKindOf(NcDbArc::desc())) {
        const auto& arc = static_cast<const NcDbArc&>(entity);
        const double radius = radiusAt(arc.center(), arc.radius(), distance, side);
        if (radius > 0.0)
            made = std::make_unique<NcDbArc>(arc.center(), radius, arc.startAngle(), arc.endAngle());
    }
    if (made)
        made->setPropertiesFrom(&entity);
    return made;
}
