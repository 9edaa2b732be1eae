#include "analysis/contour/surface_model.h"

#include "analysis/contour/sweep.h"
#include "geometry/segment_index.h"
#include "geometry/tolerance_grid.h"

#include <algorithm>

namespace contour {

using geometry::GEOM_TOL;

namespace {

void dropNonNumbers(PointList* points)
{
    points->erase(
        std::remove_if(points->begin(), points->end(), [](const Point3& p) { return !geometry::isFinite(p); }),
        points->end());
}

// A point goes when an earlier one that stays lies nearer than the tolerance.
void dropDoubles(PointList* points)
{
    geometry::ToleranceGrid grid(points->size());
    std::size_t kept = 0;
    for (const Point3& p : *points) {
        bool repeated = false;
        grid.chainsNear(p, [&](std::int32_t head) {
            for (std::int32_t i = head; i >= 0 && !repeated; i = grid.next(i))
                repeated = geometry::distance((*points)[static_cast<std::size_t>(i)], p) < GEOM_TOL;
        });
        if (repeated)
            continue;
        const Point3 point = p;
        (*points)[kept] = point;
        grid.add(point, static_cast<std::int32_t>(kept));
        ++kept;
    }
    points->resize(kept);
}

} // namespace

bool isClosedLine(const Isoline& line)
{
    return !line.empty() && geometry::distance(line.front(), line.back()) < GEOM_TOL;
}

void SurfaceModel::setPoints(const PointList& given)
{
    // `given` may be one of our own lists.
    PointList copy = given;
    points = copy;
    rawPoints = std::move(copy);
    prepare();
    triangulated = false;
}

void SurfaceModel::prepare()
{
    dropNonNumbers(&points);
    dropDoubles(&points);
    vertices.clear();
    vertices.reserve(points.size() + 3);
    vertices = points;
    std::stable_sort(vertices.begin(), vertices.end(), [](const Point3& a, const Point3& b) { return a.x < b.x; });
    vertexCount = static_cast<std::int32_t>(vertices.size());
    vertices.resize(vertices.size() + 3);
    triangles.clear();
    triangleCount = 0;
}

bool SurfaceModel::triangulate(const Tick& tick)
{
    triangles.clear();
    triangleCount = 0;
    if (vertexCount < 3)
        return false;
    triangulated = sweepTriangulation(&vertices, vertexCount, &triangles, tick);
    triangleCount = static_cast<std::int32_t>(triangles.size());
    return triangulated;
}

void SurfaceModel::trianglesInsideBoundary()
{
    const geometry::SegmentIndex border(boundary, true);
    const auto outside = [&](const Triangle& t) {
        const Point3& a = vertices[static_cast<std::size_t>(t.a)];
        const Point3& b = vertices[static_cast<std::size_t>(t.b)];
        const Point3& c = vertices[static_cast<std::size_t>(t.c)];
        return !border.insideEvenOdd((a.x + b.x + c.x) / 3.0, (a.y + b.y + c.y) / 3.0);
    };
    triangles.erase(std::remove_if(triangles.begin(), triangles.end(), outside), triangles.end());
    triangleCount = static_cast<std::int32_t>(triangles.size());
}

double SurfaceModel::longestEdge() const
{
    double longest = -INFINITY;
    for (const Triangle& t : triangles) {
        const Point3& a = vertices[static_cast<std::size_t>(t.a)];
        const Point3& b = vertices[static_cast<std::size_t>(t.b)];
        const Point3& c = vertices[static_cast<std::size_t>(t.c)];
        longest = std::max(
            {longest, geometry::planDistance(a, b), geometry::planDistance(b, c), geometry::planDistance(c, a)});
    }
    return longest;
}

geometry::Box3 SurfaceModel::box() const { return geometry::boxOf(points); }

} // namespace contour
