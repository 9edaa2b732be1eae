#include "plain_surface.h"

#include "geometry/polygon.h"
#include "geometry/polyline.h"
#include "geometry/segment.h"

#include <algorithm>

using geometry::GEOM_TOL;

namespace reference {

namespace {

constexpr double kSearchLimit = 1e7;
constexpr double kSampleStep = 0.001;

PointList flattened(const PointList& points)
{
    PointList flat = points;
    for (Point3& p : flat)
        p.z = 0.0;
    return flat;
}

} // namespace

int PlainSurface::nearest(double x, double y) const
{
    double limit = kSearchLimit;
    int found = -1;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const double d = geometry::planDistance(points[i], {x, y, 0.0});
        if (d < limit) {
            limit = d;
            found = static_cast<int>(i);
        }
    }
    return found;
}

void PlainSurface::densifyBoundaryValues()
{
    if (boundary.size() < 3 || points.empty())
        return;
    const geometry::Polyline line(flattened(boundary), true);
    const auto valueAt = [this](int found) { return found < 0 ? 0.0 : points[found].z; };
    const auto distanceTo = [this](const Point3& sample, int found) {
        return found < 0 ? kSearchLimit : geometry::distance(sample, points[found]);
    };
    PointList added;
    for (const Point3& corner : line.vertices())
        added.push_back({corner.x, corner.y, valueAt(nearest(corner.x, corner.y))});

    const Point3 start = line.pointAt(0.0);
    const int first = nearest(start.x, start.y);
    double d0 = distanceTo(start, first);
    double d1 = distanceTo(line.pointAt(kSampleStep), first);
    for (int k = 2; k * kSampleStep < line.endParameter(); ++k) {
        const Point3 sample = line.pointAt(k * kSampleStep);
        const int found = nearest(sample.x, sample.y);
        const double d2 = distanceTo(sample, found);
        if (d0 > d1 && d2 > d1)
            added.push_back({sample.x, sample.y, valueAt(found)});
        d0 = d1;
        d1 = d2;
    }
    points.insert(points.end(), added.begin(), added.end());
}

void PlainSurface::setBoundary(const PointList& bounds, bool exactEdges)
{
    boundary.clear();
    for (const Point3& p : bounds) {
        if (std::isfinite(p.x) && std::isfinite(p.y))
            boundary.push_back(p);
    }
    if (exactEdges)
        addExactBorder();
    else
        densifyBoundaryValues();
    triangulated = false;
}

void PlainSurface::addExactBorder()
{
    for (const Point3& corner : boundary) {
        const int found = nearest(corner.x, corner.y);
        if (found >= 0)
            points.push_back({corner.x, corner.y, points[found].z});
    }
    prepare();
    if (vertexCount < 3)
        return;
    triangulate();
    for (std::size_t i = 0; i + 1 < boundary.size(); ++i) {
        const Point3 &p = boundary[i], &q = boundary[i + 1];
        if (!(geometry::planDistance(p, q) > GEOM_TOL))
            continue;
        for (const Triangle& t : triangles) {
            const std::int32_t corners[4] = {t.a, t.b, t.c, t.a};
            for (int e = 0; e < 3; ++e) {
                const Point3 &a = vertices[corners[e]], &b = vertices[corners[e + 1]];
                Point3 meeting;
                if (!geometry::intersectSegments(p, q, a, b, &meeting))
                    continue;
                const double s = std::fabs(b.x - a.x) >= std::fabs(b.y - a.y) ? (meeting.x - a.x) / (b.x - a.x)
                                                                              : (meeting.y - a.y) / (b.y - a.y);
                if (s > 0.0 && s < 1.0)
                    points.push_back({meeting.x, meeting.y, a.z + (b.z - a.z) * s});
            }
        }
    }
}

PointList PlainSurface::idwGridPoints(double power, int neighbours)
{
    PointList grid;
    if (points.empty())
        return grid;
    if (boundary.size() < 3 && triangulated)
        boundaryFromHull();
    const geometry::Box3 box = geometry::boxOf(boundary.size() >= 3 ? boundary : points);
    const double width = box.width(), height = box.height();
    if (!(width > 0.0) || !(height > 0.0))
        return grid;
    const double smaller = std::min(width, height);
    const double step = std::min(smaller / 50.0, 0.2 * smaller / std::sqrt(static_cast<double>(points.size())));
    if (!((width / step + 1.0) * (height / step + 1.0) <= 16777216.0))
        return grid;
    for (int i = 0; box.minimum.x + i * step <= box.maximum.x; ++i) {
        for (int j = 0; box.minimum.y + j * step <= box.maximum.y; ++j) {
            const double x = box.minimum.x + i * step, y = box.minimum.y + j * step;
            if (boundary.size() >= 3 && !geometry::pointInPolygon({x, y, 0.0}, boundary))
                continue;
            grid.push_back({x, y, idwValue(x, y, power, neighbours)});
        }
    }
    return grid;
}

double PlainSurface::idwValue(double x, double y, double power, int neighbours) const
{
    if (points.empty())
        return 0.0;
    const auto manhattan = [x, y](const Point3& p) { return std::fabs(p.x - x) + std::fabs(p.y - y); };
    PointList ordered = points;
    std::stable_sort(ordered.begin(), ordered.end(),
                     [&](const Point3& a, const Point3& b) { return manhattan(a) < manhattan(b); });
    if (neighbours >= 1 && static_cast<std::size_t>(neighbours) < ordered.size())
        ordered.resize(static_cast<std::size_t>(neighbours));
    if (manhattan(ordered.front()) < GEOM_TOL)
        return ordered.front().z;
    double weighted = 0.0, weights = 0.0;
    for (const Point3& p : ordered) {
        const double d = geometry::planDistance(p, {x, y, 0.0});
        if (d < GEOM_TOL)
            return p.z;
        const double w = power == 2.0 ? 1.0 / (d * d) : 1.0 / std::pow(d, power);
        weighted += w * p.z;
        weights += w;
    }
    if (weights < GEOM_TOL)
        return ordered.front().z;
    return weighted / weights;
}

} // namespace reference
