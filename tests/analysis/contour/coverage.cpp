#include "coverage.h"

#include "geometry/exact_signs.h"

#include <algorithm>

namespace coverage {

using contour::Triangle;
using geometry::Point3;
using geometry::turnOf;

namespace {

struct Corners {
    Point3 at[3];
};

std::vector<Corners> cornersOf(const SurfaceModel& model)
{
    std::vector<Corners> all;
    for (const Triangle& t : model.triangles) {
        const auto at = [&](std::int32_t i) { return model.vertices[static_cast<std::size_t>(i)]; };
        all.push_back({{at(t.a), at(t.b), at(t.c)}});
    }
    return all;
}

// Whether a side of the first, which turns to the right, has all of the other
// on its far side.
bool separates(const Corners& first, const Corners& other)
{
    for (int i = 0; i < 3; ++i) {
        const Point3& a = first.at[i];
        const Point3& b = first.at[(i + 1) % 3];
        if (std::all_of(other.at, other.at + 3, [&](const Point3& p) { return turnOf(a, b, p) >= 0; }))
            return true;
    }
    return false;
}

} // namespace

double area(const SurfaceModel& model)
{
    double sum = 0.0;
    for (const Corners& t : cornersOf(model))
        sum += std::fabs((t.at[1].x - t.at[0].x) * (t.at[2].y - t.at[0].y)
                         - (t.at[2].x - t.at[0].x) * (t.at[1].y - t.at[0].y))
            / 2;
    return sum;
}

int overlaps(const SurfaceModel& model)
{
    int found = 0;
    const std::vector<Corners> all = cornersOf(model);
    for (std::size_t i = 0; i < all.size(); ++i) {
        found += turnOf(all[i].at[0], all[i].at[1], all[i].at[2]) != -1;
        for (std::size_t j = 0; j < i; ++j)
            found += !separates(all[i], all[j]) && !separates(all[j], all[i]);
    }
    return found;
}

PointList hull(const SurfaceModel& model)
{
    PointList points(model.vertices.begin(), model.vertices.begin() + model.vertexCount);
    std::sort(points.begin(), points.end(),
              [](const Point3& a, const Point3& b) { return a.x != b.x ? a.x < b.x : a.y < b.y; });
    PointList rim;
    if (points.empty())
        return rim;
    for (int pass = 0; pass < 2; ++pass) {
        const std::size_t start = rim.size();
        for (const Point3& p : points) {
            while (rim.size() >= start + 2 && turnOf(rim[rim.size() - 2], rim.back(), p) <= 0)
                rim.pop_back();
            rim.push_back(p);
        }
        rim.pop_back();
        std::reverse(points.begin(), points.end());
    }
    return rim;
}

double sliverArea(const PointList& hull)
{
    const geometry::Box3 box = geometry::boxOf(hull);
    const double size = std::max(box.width(), box.height());
    double sum = 0.0;
    for (std::size_t i = 0; i < hull.size(); ++i) {
        const double side = geometry::planDistance(hull[i], hull[(i + 1) % hull.size()]);
        // A circle that touches the hull here and reaches a corner has a radius
        // of 9.75 sizes or more; slivers of slivers add a third.
        sum += side * side * side / (80.0 * size);
    }
    return sum;
}

} // namespace coverage
