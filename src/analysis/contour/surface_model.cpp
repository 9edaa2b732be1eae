#include "analysis/contour/surface_model.h"

#include "analysis/contour/border_rows.h"
#include "analysis/contour/order_by_x.h"
#include "analysis/contour/sweep.h"
#include "geometry/tolerance_grid.h"

#include <algorithm>
#include <optional>

namespace contour {

using geometry::GEOM_TOL;

namespace {

void dropNonNumbers(PointList* points)
{
    points->erase(
        std::remove_if(points->begin(), points->end(), [](const Point3& p) { return !geometry::isFinite(p); }),
        points->end());
}

// Drops points that repeat an earlier one and tells which of the rest stand at
// the place of an earlier one with another value.
class Doubles {
public:
    explicit Doubles(PointList* points) : points_(*points), places_(points->size()) { }

    std::vector<char> drop()
    {
        std::vector<char> repeats;
        repeats.reserve(points_.size());
        std::size_t kept = 0;
        for (const Point3& candidate : points_) {
            const Point3 p = candidate;
            bool sharesPlace = false;
            if (isDouble(p, &sharesPlace))
                continue;
            points_[kept] = p;
            if (sharesPlace)
                stacked().add(p, static_cast<std::int32_t>(kept));
            else
                places_.add(onTheGround(p), static_cast<std::int32_t>(kept));
            repeats.push_back(sharesPlace ? 1 : 0);
            ++kept;
        }
        points_.resize(kept);
        return repeats;
    }

private:
    static Point3 onTheGround(const Point3& p) { return {p.x, p.y, 0.0}; }

    const Point3& at(std::int32_t i) const { return points_[static_cast<std::size_t>(i)]; }

    geometry::ToleranceGrid& stacked()
    {
        if (!stacked_)
            stacked_.emplace(points_.size());
        return *stacked_;
    }

    bool isDouble(const Point3& p, bool* sharesPlace)
    {
        bool repeated = false;
        places_.chainsNear(onTheGround(p), [&](std::int32_t head) {
            for (std::int32_t i = head; i >= 0 && !repeated; i = places_.next(i)) {
                if (geometry::planDistance(at(i), p) < GEOM_TOL) {
                    *sharesPlace = true;
                    repeated = geometry::distance(at(i), p) < GEOM_TOL;
                }
            }
        });
        if (repeated || !stacked_)
            return repeated;
        stacked_->chainsNear(p, [&](std::int32_t head) {
            for (std::int32_t i = head; i >= 0 && !repeated; i = stacked_->next(i))
                repeated = geometry::distance(at(i), p) < GEOM_TOL;
        });
        return repeated;
    }

    PointList& points_;
    geometry::ToleranceGrid places_;                 // of those that have a place to themselves
    std::optional<geometry::ToleranceGrid> stacked_; // the others, by value too
};

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

namespace {

// Along a column that is inserted from its one end to the other every vertex takes
// away most triangles of the one before it, as many as the column beside it has
// points: the square of its length in all. In halves (the middle, those in the
// middle of what is left, and so on) these are few more than the triangles that stay.
std::vector<Ranked> orderByX(const PointList& points)
{
    std::vector<Ranked> order = sortedByX(points.size(), [&points](std::size_t i) { return points[i].x; });
    std::vector<Ranked> column;
    for (std::size_t begin = 0, end = 0; begin < order.size(); begin = end) {
        while (end < order.size() && order[end].x == order[begin].x)
            ++end;
        const std::size_t count = end - begin;
        if (count <= SurfaceModel::kShortColumn)
            continue;
        column.assign(order.begin() + static_cast<std::ptrdiff_t>(begin),
                      order.begin() + static_cast<std::ptrdiff_t>(end));
        std::stable_sort(column.begin(), column.end(),
                         [&](const Ranked& a, const Ranked& b) { return points[a.point].y < points[b.point].y; });
        std::size_t step = 1;
        while (step <= count / 2)
            step *= 2;
        for (auto next = order.begin() + static_cast<std::ptrdiff_t>(begin); step > 0; step /= 2) {
            for (std::size_t rank = step; rank <= count; rank += 2 * step)
                *next++ = column[rank - 1];
        }
    }
    return order;
}

// Whether two points are near each other in plan; also true where so many have
// about the same x that this is not told in short time.
bool mayHaveNeighbours(const PointList& points, const std::vector<Ranked>& order)
{
    std::size_t looks = 8 * order.size();
    for (std::size_t i = 0; i < order.size(); ++i) {
        for (std::size_t j = i + 1; j < order.size() && order[j].x - order[i].x < 2.0 * GEOM_TOL; ++j) {
            if (looks-- == 0 || std::fabs(points[order[i].point].y - points[order[j].point].y) < 2.0 * GEOM_TOL)
                return true;
        }
    }
    return false;
}

} // namespace

void SurfaceModel::prepare()
{
    dropNonNumbers(&points);
    std::vector<Ranked> order = orderByX(points);
    repeats_.assign(points.size(), 0);
    if (mayHaveNeighbours(points, order)) {
        const std::vector<char> repeats = Doubles(&points).drop();
        if (order.size() != points.size())
            order = orderByX(points);
        repeats_.resize(points.size());
        for (std::size_t i = 0; i < order.size(); ++i)
            repeats_[i] = repeats[order[i].point];
    }
    vertices.assign(points.size() + 3, Point3());
    for (std::size_t i = 0; i < order.size(); ++i)
        vertices[i] = points[order[i].point];
    vertexCount = static_cast<std::int32_t>(points.size());
    triangles.clear();
    triangleCount = 0;
}

bool SurfaceModel::hasSharedPlaces() const { return std::find(repeats_.begin(), repeats_.end(), 1) != repeats_.end(); }

bool SurfaceModel::triangulate(const Tick& tick)
{
    triangles.clear();
    triangleCount = 0;
    if (vertexCount < 3)
        return false;
    repeats_.resize(static_cast<std::size_t>(vertexCount), 0);
    triangulated = sweepTriangulation(&vertices, vertexCount, repeats_, &triangles, tick);
    triangleCount = static_cast<std::int32_t>(triangles.size());
    return triangulated;
}

void SurfaceModel::trianglesInsideBoundary()
{
    const BorderRows border(boundary);
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
