#include "snapping.h"

#include <drawing/host_access.h>

#include <QLineF>

#include <algorithm>
#include <cmath>
#include <set>

namespace {

// A polar direction holds a point that is that near to it.
constexpr double kPolarDegrees = 4.0;
// Intersections are looked for among so many pieces at the most.
constexpr size_t kMostPieces = 200;

class Finder {
public:
    Finder(const QPointF& at, double tolerance) : at_(at), tolerance_(tolerance) { }

    std::optional<SnapPoint> find(const DisplayList& list)
    {
        const QRectF near(at_.x() - tolerance_, at_.y() - tolerance_, 2.0 * tolerance_, 2.0 * tolerance_);
        const std::vector<QRectF>& boxes = list.boxes();
        for (size_t i = 0; i < boxes.size(); ++i) {
            const QRectF& box = boxes[i];
            if (box.left() > near.right() || box.right() < near.left() || box.top() > near.bottom()
                || box.bottom() < near.top())
                continue;
            takeFigure(list.figures()[i]);
        }
        crossPieces();
        return best_;
    }

private:
    void offer(SnapPoint::Kind kind, double x, double y)
    {
        const double distance = std::hypot(x - at_.x(), y - at_.y());
        if (!(distance <= tolerance_))
            return;
        const bool nearer = !best_ || distance < least_ - 1e-9 * tolerance_
            || (distance <= least_ + 1e-9 * tolerance_ && kind < best_->kind);
        if (!nearer)
            return;
        least_ = distance;
        best_ = SnapPoint{kind, {x, y, 0.0}};
    }

    // The figure's own corners are those of its entity, but for what is curved
    // or stands in a block.
    void takeFigure(const Figure& figure)
    {
        if (seen_.insert(figure.source).second)
            takeEntity(figure.source);
        if (figure.kind != Figure::Line || figure.thin)
            return;
        const QPolygonF& line = figure.polygons.front();
        for (int i = 1; i < line.size() && pieces_.size() < kMostPieces; ++i) {
            const QLineF piece(line[i - 1], line[i]);
            if (passesNear(piece))
                pieces_.push_back(piece);
        }
    }

    bool passesNear(const QLineF& piece) const
    {
        const QPointF along = piece.p2() - piece.p1();
        const double squared = QPointF::dotProduct(along, along);
        const double t = squared > 0.0 ? qBound(0.0, QPointF::dotProduct(at_ - piece.p1(), along) / squared, 1.0) : 0.0;
        return QLineF(at_, piece.p1() + t * along).length() <= tolerance_;
    }

    void takeEntity(NcDbObjectId id)
    {
        const auto* entity = HostAccess::objectAs<NcDbEntity>(id);
        if (!entity)
            return;
        if (entity->isKindOf(NcDbLine::desc())) {
            const auto& line = static_cast<const NcDbLine&>(*entity);
            takePiece(line.startPoint(), line.endPoint(), 0.0);
        } else if (entity->isKindOf(NcDbPolyline::desc())) {
            takeVertices(static_cast<const NcDbPolyline&>(*entity));
        } else if (entity->isKindOf(NcDb2dPolyline::desc())) {
            takeVertices(static_cast<const NcDb2dPolyline&>(*entity));
        } else if (entity->isKindOf(NcDbPoint::desc())) {
            const NcGePoint3d p = static_cast<const NcDbPoint&>(*entity).position();
            offer(SnapPoint::Node, p.x, p.y);
        } else if (entity->isKindOf(NcDbBlockReference::desc())) {
            const NcGePoint3d p = static_cast<const NcDbBlockReference&>(*entity).position();
            offer(SnapPoint::Insertion, p.x, p.y);
        } else if (entity->isKindOf(NcDbText::desc())) {
            const NcGePoint3d p = static_cast<const NcDbText&>(*entity).position();
            offer(SnapPoint::Insertion, p.x, p.y);
        } else {
            takeRound(*entity);
        }
    }

    void takeRound(const NcDbEntity& entity)
    {
        if (entity.isKindOf(NcDbCircle::desc())) {
            const NcGePoint3d p = static_cast<const NcDbCircle&>(entity).center();
            offer(SnapPoint::Center, p.x, p.y);
        } else if (entity.isKindOf(NcDbArc::desc())) {
            const auto& arc = static_cast<const NcDbArc&>(entity);
            for (double angle : {arc.startAngle(), arc.endAngle()})
                offer(SnapPoint::End, arc.center().x + arc.radius() * std::cos(angle),
                      arc.center().y + arc.radius() * std::sin(angle));
            offer(SnapPoint::Center, arc.center().x, arc.center().y);
        }
    }

    template <class Line>
    void takeVertices(const Line& line)
    {
        const int count = line.numVerts();
        for (int i = 0; i + (line.isClosed() ? 0 : 1) < count; ++i) {
            NcGePoint3d from, to;
            double bulge = 0.0;
            line.getPointAt(i, from);
            line.getPointAt((i + 1) % count, to);
            line.getBulgeAt(i, bulge);
            takePiece(from, to, bulge);
        }
    }

    // The middle of a bulged piece stands off the chord by half of its length times the bulge.
    void takePiece(const NcGePoint3d& from, const NcGePoint3d& to, double bulge)
    {
        offer(SnapPoint::End, from.x, from.y);
        offer(SnapPoint::End, to.x, to.y);
        const double dx = to.x - from.x, dy = to.y - from.y;
        offer(SnapPoint::Middle, (from.x + to.x) / 2.0 + dy * bulge / 2.0, (from.y + to.y) / 2.0 - dx * bulge / 2.0);
    }

    // Neighbours on a curve meet at their ends: that is no crossing.
    static bool meetAtEnds(const QLineF& one, const QLineF& other)
    {
        return one.p1() == other.p1() || one.p1() == other.p2() || one.p2() == other.p1() || one.p2() == other.p2();
    }

    void crossPieces()
    {
        for (size_t i = 0; i < pieces_.size(); ++i)
            for (size_t k = i + 1; k < pieces_.size(); ++k) {
                QPointF p;
                if (!meetAtEnds(pieces_[i], pieces_[k])
                    && pieces_[i].intersects(pieces_[k], &p) == QLineF::BoundedIntersection)
                    offer(SnapPoint::Intersection, p.x(), p.y());
            }
    }

    QPointF at_;
    double tolerance_, least_ = 0.0;
    std::optional<SnapPoint> best_;
    std::set<NcDbObjectId> seen_;
    std::vector<QLineF> pieces_;
};

// Rounded to a whole multiple of a step, both in radians.
double rounded(double angle, double step) { return std::round(angle / step) * step; }

// The point's shadow on the direction from the base.
NcGePoint3d along(const NcGePoint3d& base, const NcGePoint3d& at, double angle)
{
    const NcGeVector3d direction(std::cos(angle), std::sin(angle), 0.0);
    return base + direction * (at - base).dotProduct(direction);
}

} // namespace

std::optional<SnapPoint> snapPoint(const DisplayList& list, const QPointF& at, double tolerance)
{
    return Finder(at, tolerance).find(list);
}

QString snapName(SnapPoint::Kind kind)
{
    switch (kind) {
    case SnapPoint::End: return QStringLiteral("Конечная точка");
    case SnapPoint::Middle: return QStringLiteral("Середина");
    case SnapPoint::Intersection: return QStringLiteral("Пересечение");
    case SnapPoint::Node: return QStringLiteral("Узел");
    case SnapPoint::Insertion: return QStringLiteral("Точка вставки");
    case SnapPoint::Center: return QStringLiteral("Центр");
    }
    return QString();
}

NcGePoint3d orthoPoint(const NcGePoint3d& base, const NcGePoint3d& at, double axisAngle)
{
    if (base == at)
        return at;
    const double angle = std::atan2(at.y - base.y, at.x - base.x);
    return along(base, at, axisAngle + rounded(angle - axisAngle, M_PI / 2.0));
}

NcGePoint3d polarPoint(const NcGePoint3d& base, const NcGePoint3d& at, double axisAngle, double step, bool& held)
{
    held = false;
    if (base == at || !(step > 0.0))
        return at;
    const double angle = std::atan2(at.y - base.y, at.x - base.x) - axisAngle;
    const double near = rounded(angle, step * M_PI / 180.0);
    held = std::fabs(angle - near) <= kPolarDegrees * M_PI / 180.0;
    return held ? along(base, at, axisAngle + near) : at;
}
