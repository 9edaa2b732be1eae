#include "analysis/profiles/profile_line.h"

#include "base/text.h"
#include "geometry/arc.h"
#include "hostkit/console.h"
#include "hostkit/opened.h"

#include <nrx/editor.h>

#include <QStringList>
#include <algorithm>

using geometry::Point3;
using geometry::PointList;

namespace {

constexpr int kDecimals = 6; // of stored coordinates

// Chord and angle of an arc give its length; the bulge is the tangent of a quarter of the angle.
double segmentLength(const Point3& from, const Point3& to, double bulge)
{
    const double chord = geometry::planDistance(from, to);
    const double half = 2.0 * std::atan(std::fabs(bulge));
    const double sine = std::sin(half);
    return std::isfinite(bulge) && sine > 1e-12 ? chord * half / sine : chord;
}

} // namespace

ProfileLine::ProfileLine(const std::vector<LineVertex>& vertices, bool closed) : vertexCount_(int(vertices.size()))
{
    if (vertices.empty())
        return;
    chords_.push_back({vertices[0].x, vertices[0].y, 0.0});
    const size_t segments = closed && vertices.size() > 1 ? vertices.size() : vertices.size() - 1;
    for (size_t i = 0; i < segments; ++i) {
        const Point3 from = chords_.back();
        const LineVertex& next = vertices[i + 1 < vertices.size() ? i + 1 : 0];
        const Point3 to{next.x, next.y, 0.0};
        addSegment(double(i), double(i + 1), segmentLength(from, to, vertices[i].bulge),
                   geometry::arcPoints(from, to, vertices[i].bulge));
    }
    index_ = std::make_shared<const geometry::SegmentIndex>(chords_, false);
}

ProfileLine ProfileLine::ofText(const QString& text)
{
    std::vector<LineVertex> vertices;
    for (const QString& pair : text.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        const QStringList numbers = pair.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        bool isX = false, isY = false;
        const LineVertex vertex{numbers.value(0).toDouble(&isX), numbers.value(1).toDouble(&isY), 0.0};
        if (isX && isY)
            vertices.push_back(vertex);
    }
    return ProfileLine(vertices, false);
}

void ProfileLine::addSegment(double from, double to, double length, const PointList& points)
{
    double whole = 0.0;
    Point3 before = chords_.back();
    for (const Point3& point : points) {
        whole += geometry::planDistance(before, point);
        before = point;
    }
    const double stretch = whole > 0.0 ? length / whole : 1.0;
    const double step = (to - from) / double(points.size());
    for (size_t i = 0; i < points.size(); ++i) {
        const double chord = geometry::planDistance(chords_.back(), points[i]) * stretch;
        measures_.push_back({from + step * double(i), step, length_, chord});
        length_ += chord;
        chords_.push_back(points[i]);
    }
}

ProfileLine::Place ProfileLine::onChord(size_t chord, double share) const
{
    const Point3& from = chords_[chord];
    const Point3& to = chords_[chord + 1];
    const Chord& measure = measures_[chord];
    return {measure.param + measure.paramStep * share, measure.dist + measure.length * share, 0.0,
            geometry::between(from, to, share), std::atan2(to.y - from.y, to.x - from.x)};
}

ProfileLine::Place ProfileLine::closest(double x, double y) const
{
    if (!(length_ > 0.0))
        return {};
    const geometry::Polyline::Place nearest = index_->closest({x, y, 0.0});
    // A vertex belongs to the chord that ends there.
    const double chord = std::max(std::ceil(nearest.parameter) - 1.0, 0.0);
    Place found = onChord(size_t(chord), nearest.parameter - chord);
    found.offset = nearest.distance;
    return found;
}

ProfileLine::Place ProfileLine::at(double dist) const
{
    if (!(length_ > 0.0))
        return {};
    const auto ends = [](const Chord& chord, double sought) { return chord.dist + chord.length < sought; };
    const auto found = std::lower_bound(measures_.begin(), std::prev(measures_.end()), dist, ends);
    const auto chord = size_t(found - measures_.begin());
    const Chord& measure = measures_[chord];
    const double share = measure.length > 0.0 ? (dist - measure.dist) / measure.length : 0.0;
    return onChord(chord, std::min(std::max(share, 0.0), 1.0));
}

QString ProfileLine::text() const
{
    QStringList pairs;
    for (const Point3& point : chords_)
        pairs << fixed(point.x, kDecimals) + QLatin1Char(' ') + fixed(point.y, kDecimals);
    return pairs.join(QLatin1Char(','));
}

std::optional<ProfileLine> profileLineOf(NcDbObjectId entity)
{
    const Opened<NcDbPolyline> line(entity, kForRead);
    if (!line)
        return std::nullopt;
    std::vector<LineVertex> vertices;
    for (int i = 0; i < line->numVerts(); ++i) {
        NcGePoint3d place;
        double bulge = 0.0;
        if (!isOk(line->getPointAt(i, place)))
            continue;
        line->getBulgeAt(i, bulge);
        vertices.push_back({place.x, place.y, bulge});
    }
    return ProfileLine(vertices, line->isClosed());
}

LinePick askForLine(const QString& prompt, ProfileLine& line)
{
    NcSelectionName name;
    NcGePoint3d picked;
    NcDbObjectId id;
    if (ncedEntSel(prompt, name, picked) != kPromptNormal || !isOk(ncdbGetObjectId(id, name)))
        return LinePick::Left;
    const std::optional<ProfileLine> found = profileLineOf(id);
    if (!found) {
        say(QStringLiteral("Необходимо выбрать полилинию"));
        return LinePick::NotALine;
    }
    line = *found;
    return LinePick::Picked;
}
