#include "analysis/contour/surface_model.h"

#include "geometry/point_tree.h"
#include "geometry/segment.h"
#include "geometry/segment_index.h"

#include <algorithm>

namespace contour {

using geometry::GEOM_TOL;
using geometry::PointTree;
using geometry::Polyline;

namespace {

// A point farther than this gives no value.
constexpr double kSearchLimit = 1e7;
// Of a segment; every segment is sampled alike, whatever its length.
constexpr double kSampleStep = 0.001;

PointList onTheGround(PointList points)
{
    for (Point3& p : points)
        p.z = 0.0;
    return points;
}

// Nearest measured point for samples that follow each other closely. As long as
// a sample lies nearer to the last searched place than half the lead that the
// nearest point has over the second there, no other point can be nearest.
class NearestAlong {
public:
    explicit NearestAlong(const PointList& points) : tree_(points)
    {
        for (const Point3& p : points)
            largest_ = std::max({largest_, std::fabs(p.x), std::fabs(p.y)});
    }

    int at(const Point3& sample)
    {
        if (planDistance(sample, searched_) < sure_)
            return found_;
        const PointTree::Nearest nearest = tree_.nearest(sample.x, sample.y, kSearchLimit);
        const double rounding = 1e-14 * (largest_ + std::fabs(sample.x) + std::fabs(sample.y));
        searched_ = sample;
        found_ = nearest.index;
        sure_ = std::min(0.5 * (nearest.nextDistance - nearest.distance), kSearchLimit - nearest.distance) * 0.999
            - rounding;
        return found_;
    }

private:
    PointTree tree_;
    Point3 searched_;
    int found_ = -1;
    double sure_ = -1.0;
    double largest_ = 0.0;
};

// Where a boundary segment meets the side of a triangle.
struct Crossing {
    std::size_t segment;
    Point3 point;
};

// The value is that of the side, at the meeting's share of the greater of its
// two extents. False at the side's ends, which are points already.
bool valueOnSide(const Point3& a, const Point3& b, Point3* meeting)
{
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double t = std::fabs(dx) >= std::fabs(dy) ? (meeting->x - a.x) / dx : (meeting->y - a.y) / dy;
    if (!(t > 0.0 && t < 1.0))
        return false;
    meeting->z = a.z + (b.z - a.z) * t;
    return true;
}

} // namespace

void SurfaceModel::densifyBoundaryValues()
{
    if (boundary.size() < 3 || points.empty())
        return;
    const Polyline line(onTheGround(boundary), true);
    NearestAlong nearest(points);
    const auto pointAt = [this](int i) -> const Point3& { return points[static_cast<std::size_t>(i)]; };
    const auto valued = [&](const Point3& place, int found) {
        return Point3{place.x, place.y, found < 0 ? 0.0 : pointAt(found).z};
    };
    // The value counts as a coordinate here: maps made so far depend on it.
    const auto distanceTo = [&](const Point3& sample, int found) {
        return found < 0 ? kSearchLimit : geometry::distance(sample, pointAt(found));
    };
    PointList added;
    for (const Point3& corner : line.vertices())
        added.push_back(valued(corner, nearest.at(corner)));

    const Point3 start = line.pointAt(0.0);
    const int first = nearest.at(start);
    double before = distanceTo(start, first);
    double last = distanceTo(line.pointAt(kSampleStep), first);
    const double end = line.endParameter();
    for (std::int64_t k = 2; static_cast<double>(k) * kSampleStep < end; ++k) {
        const Point3 sample = line.pointAt(static_cast<double>(k) * kSampleStep);
        const int found = nearest.at(sample);
        const double here = distanceTo(sample, found);
        if (before > last && here > last)
            added.push_back(valued(sample, found));
        before = last;
        last = here;
    }
    points.insert(points.end(), added.begin(), added.end());
}

void SurfaceModel::setBoundary(const PointList& bounds, bool exactEdges)
{
    PointList copy;
    for (const Point3& p : bounds) {
        if (std::isfinite(p.x) && std::isfinite(p.y))
            copy.push_back(p);
    }
    boundary = std::move(copy);
    if (exactEdges)
        addExactBorder();
    else
        densifyBoundaryValues();
    triangulated = false;
}

namespace {

// Every corner becomes a point with the value of the nearest one, corners
// before it included.
void appendCorners(const PointList& boundary, PointList* points)
{
    PointList all = *points;
    all.insert(all.end(), boundary.begin(), boundary.end());
    PointTree tree(all);
    const std::size_t measured = points->size();
    for (std::size_t i = 0; i < boundary.size(); ++i) {
        Point3& corner = all[measured + i];
        const auto limit = static_cast<int>(measured + i);
        const int found = tree.nearest(corner.x, corner.y, kSearchLimit, limit).index;
        if (found < 0) {
            tree.remove(limit);
            continue;
        }
        corner.z = all[static_cast<std::size_t>(found)].z;
        points->push_back(corner);
    }
}

// By boundary segment, then as the triangles and their sides stand.
std::vector<Crossing> crossings(const PointList& boundary, const PointList& vertices,
                                const std::vector<Triangle>& triangles)
{
    const geometry::SegmentIndex border(boundary, false);
    std::vector<Crossing> found;
    for (const Triangle& t : triangles) {
        const std::int32_t corners[4] = {t.a, t.b, t.c, t.a};
        for (int side = 0; side < 3; ++side) {
            const Point3& a = vertices[static_cast<std::size_t>(corners[side])];
            const Point3& b = vertices[static_cast<std::size_t>(corners[side + 1])];
            border.meetingBox(a, b, [&](std::size_t i) {
                const Point3& p = border.line().segmentStart(i);
                const Point3& q = border.line().segmentEnd(i);
                Point3 meeting;
                if (planDistance(p, q) > GEOM_TOL && geometry::intersectSegments(p, q, a, b, &meeting)
                    && valueOnSide(a, b, &meeting))
                    found.push_back({i, meeting});
            });
        }
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const Crossing& a, const Crossing& b) { return a.segment < b.segment; });
    return found;
}

} // namespace

void SurfaceModel::addExactBorder()
{
    appendCorners(boundary, &points);
    prepare();
    if (vertexCount < 3)
        return;
    triangulate();
    for (const Crossing& crossing : crossings(boundary, vertices, triangles))
        points.push_back(crossing.point);
}

} // namespace contour
