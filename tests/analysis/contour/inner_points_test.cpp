// The point that speaks for a ring, against a plain look at all of them.

#include "analysis/contour/inner_points.h"
#include "geometry/polygon.h"
#include "samples.h"

#include <gtest/gtest.h>

namespace {

using contour::InnerPoints;
using geometry::Point3;
using geometry::PointList;

int plainFirst(const PointList& points, const std::vector<char>& removed, const PointList& ring)
{
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (!removed[i] && geometry::pointInPolygon(points[i], ring))
            return static_cast<int>(i);
    }
    return -1;
}

// Arches over a slanting row, loops that cross themselves, far ones that hold
// nothing. The arches' boxes hold most of the row.
PointList ringOf(samples::Random& random)
{
    const int corners = 30 + random.below(150);
    PointList ring;
    const int kind = random.below(3);
    const double from = random.in(0, 800);
    const double height = random.in(5, 300);
    for (int i = 0; i < corners; ++i) {
        const double t = 6.283185307179586 * i / corners;
        if (kind == 0) { // out and back, off the row
            const double along = from + 100.0 * (1.0 - std::cos(t));
            ring.push_back({along - 0.3 * height, 0.3 * along + 4 + height * std::fabs(std::sin(t)), 0});
        } else if (kind == 1) {
            const double radius = random.in(0.3, 1.0) * height;
            ring.push_back({from + radius * std::cos(2 * t), 0.3 * from + radius * std::sin(3 * t), 0});
        } else {
            ring.push_back({from + height * std::cos(t), from + 2 + 0.3 * height * std::sin(t), 0});
        }
    }
    return ring;
}

PointList rowAndHeap(samples::Random& random)
{
    PointList points;
    for (int i = 0; i < 1500; ++i)
        points.push_back({i * 0.67, i * 0.201, random.in(-5, 5)});
    for (int i = 0; i < 500; ++i)
        points.push_back({random.in(0, 1000), random.in(0, 600), random.in(-5, 5)});
    return points;
}

TEST(InnerPoints, firstInsideIsThatOfAPlainLook)
{
    int found = 0;
    for (std::uint32_t seed = 0; seed < 6; ++seed) {
        samples::Random random(seed + 600);
        const PointList points = rowAndHeap(random);
        InnerPoints inner(points);
        std::vector<char> removed(points.size(), 0);
        for (int i = 0; i < 120; ++i) {
            const PointList ring = ringOf(random);
            const int first = inner.firstInside(ring);
            ASSERT_EQ(first, plainFirst(points, removed, ring)) << "seed " << seed << ", ring " << i;
            if (first < 0)
                continue;
            ++found;
            inner.remove(first);
            removed[static_cast<std::size_t>(first)] = 1;
        }
    }
    EXPECT_GT(found, 200);
    EXPECT_LT(found, 600);
}

// Some points of a box lie nearer to a side than the tolerance, though no side
// meets the box.
TEST(InnerPoints, pointsOnTheRimAreFoundThroughTheTree)
{
    PointList points;
    for (int i = 0; i < 600; ++i)
        points.push_back({0.01 * i, -50.0, 0});
    for (int i = 0; i < 40; ++i)
        points.push_back({1e-8 * i, i % 2 ? 30.0 - 5e-7 : 28.0, 0});
    PointList ring; // its inside lies above y = 30, and its box holds all points
    for (int i = 0; i <= 40; ++i)
        ring.push_back({-20.0 + i, 30.0, 0});
    for (int x = 20; x >= -40; x -= 5)
        ring.push_back({double(x), 90, 0});
    for (int y = 80; y >= -90; y -= 10)
        ring.push_back({-40, double(y), 0});
    for (const Point3& corner : PointList{{-39, -90, 0}, {-39, 80, 0}, {-30, 80, 0}, {-20, 80, 0}})
        ring.push_back(corner);
    InnerPoints inner(points);
    for (int i = 0; i < 60; ++i)
        ASSERT_EQ(inner.firstInside(ring), 601);
    EXPECT_EQ(plainFirst(points, std::vector<char>(points.size(), 0), ring), 601);
}

TEST(InnerPoints, ringsBeyondAllMeasure)
{
    samples::Random random(5);
    const PointList points = rowAndHeap(random);
    const std::vector<char> removed(points.size(), 0);
    for (double size : {1e101, 1e160, 1e308}) {
        PointList ring;
        for (int i = 0; i < 40; ++i)
            ring.push_back({size * std::cos(i * 0.157 + 0.1), size * std::sin(i * 0.157 + 0.1), 0});
        InnerPoints inner(points);
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(inner.firstInside(ring), plainFirst(points, removed, ring));
    }
}

} // namespace
