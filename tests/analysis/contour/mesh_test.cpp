// What is said of a circle's error is never less than the error.

#include "analysis/contour/mesh.h"
#include "samples.h"

#include <gtest/gtest.h>

#ifdef __SIZEOF_FLOAT128__

namespace {

using contour::Mesh;
using contour::MeshTriangle;
using geometry::Point3;
using geometry::PointList;
__extension__ using Exact = __float128;

// Of p in respect of the circle through a, b and c, by 113 binary digits.
Exact truePower(const Point3& a, const Point3& b, const Point3& c, const Point3& p)
{
    const Exact ax = Exact(a.x) - p.x, ay = Exact(a.y) - p.y;
    const Exact bx = Exact(b.x) - p.x, by = Exact(b.y) - p.y;
    const Exact cx = Exact(c.x) - p.x, cy = Exact(c.y) - p.y;
    const Exact aa = ax * ax + ay * ay, bb = bx * bx + by * by, cc = cx * cx + cy * cy;
    const Exact area = (bx - ax) * (cy - ay) - (by - ay) * (cx - ax);
    return -(aa * (bx * cy - by * cx) + bb * (cx * ay - cy * ax) + cc * (ax * by - ay * bx)) / area;
}

Exact computedPower(const MeshTriangle& t, const Point3& p)
{
    const double dx = p.x - t.circle.x;
    const double dy = p.y - t.circle.y;
    return Exact(dx * dx + dy * dy) - t.circle.squaredRadius;
}

// Rows, columns, slopes, far from the origin or near it, with the corners of the
// triangle around all.
PointList flatSet(samples::Random& random)
{
    const double far = random.chance(0.3) ? 330000.0 : 0.0;
    const double width = std::pow(10.0, random.in(-4, 3));
    const double height = std::pow(10.0, random.in(-4, 3));
    const double slope = random.chance(0.5) ? random.in(-1, 1) : 0.0;
    PointList points;
    for (int i = 0; i < 40; ++i) {
        const double x = random.in(0, width);
        points.push_back({far + x, far + slope * x + random.in(0, height), 0});
    }
    std::sort(points.begin(), points.end(), [](const Point3& a, const Point3& b) { return a.x < b.x; });
    const geometry::Box3 box = geometry::boxOf(points);
    const double size = std::max(box.width(), box.height());
    const double x = (box.minimum.x + box.maximum.x) / 2.0;
    const double y = (box.minimum.y + box.maximum.y) / 2.0;
    points.push_back({x - 20.0 * size, y - size, 0});
    points.push_back({x, y + 20.0 * size, 0});
    points.push_back({x + 20.0 * size, y - size, 0});
    return points;
}

TEST(CircleDoubt, isNeverLessThanTheError)
{
    samples::Random random(77);
    int trusted = 0;
    int judged = 0;
    for (int set = 0; set < 300; ++set) {
        const PointList points = flatSet(random);
        Mesh mesh(points, 40);
        for (int i = 0; i < 60; ++i) {
            const contour::Triangle corners{random.below(43), random.below(43), random.below(40)};
            if (corners.a == corners.b || corners.b == corners.c || corners.c == corners.a)
                continue;
            MeshTriangle& t = mesh[mesh.add(corners)];
            if (std::isnan(t.circle.squaredRadius))
                continue;
            const double doubt = static_cast<double>(mesh.judge(t)) * mesh.scale();
            trusted += t.doubt <= 1e-9F;
            ++judged;
            for (int j = 0; j < 40; ++j) {
                const Point3& p = points[static_cast<std::size_t>(j)];
                const Exact power = computedPower(t, p);
                // What is far outside by either figure is no matter.
                if (power > Exact(0.5) * t.circle.squaredRadius)
                    continue;
                const Exact error = power - truePower(points[corners.a], points[corners.b], points[corners.c], p);
                ASSERT_LE(static_cast<double>(error < 0 ? -error : error), doubt * (1.0 + 1e-6))
                    << "set " << set << ", triangle " << i << ", vertex " << j;
            }
        }
    }
    EXPECT_GT(judged, 15000);
    EXPECT_GT(trusted, judged / 2);
}

// The circle over two near points of a row and a corner far outside the map.
TEST(CircleDoubt, isSmallForLargeCirclesOverShortSides)
{
    PointList points{{0, 0, 0}, {500, 150, 0}, {500.0125, 150.00375, 0}, {1000, 300, 0}};
    points.push_back({-19500, -850, 0});
    points.push_back({500, 20150, 0});
    points.push_back({20500, -850, 0});
    Mesh mesh(points, 4);
    EXPECT_LT(mesh.judge(mesh[mesh.add({1, 5, 2})]), 1e-8F);
    EXPECT_LT(mesh.judge(mesh[mesh.add({6, 1, 2})]), 1e-10F);
}

// Of a column a thousandth wide only its width counts across.
TEST(CircleDoubt, isSmallInNarrowMaps)
{
    PointList points{{0, 0, 0}, {0.0004, 500, 0}, {0.0006, 500.4, 0}, {0.0009, 499.5, 0}, {0.001, 1000, 0}};
    points.resize(8);
    Mesh mesh(points, 5);
    EXPECT_LT(mesh.judge(mesh[mesh.add({1, 2, 3})]), 1e-11F);
}

} // namespace

#endif
