// A surface has one value at a place, and its triangles never overlap.

#include "coverage.h"
#include "geometry/polygon.h"
#include "hard_points.h"

#include <gtest/gtest.h>

namespace {

using contour::SurfaceModel;
using geometry::Point3;
using geometry::PointList;

SurfaceModel surfaceOf(const PointList& points)
{
    SurfaceModel model;
    model.setPoints(points);
    model.triangulate();
    return model;
}

void expectSound(const PointList& points)
{
    const SurfaceModel model = surfaceOf(points);
    EXPECT_EQ(coverage::overlaps(model), 0);
    const PointList hull = coverage::hull(model);
    const double whole = geometry::polygonArea(hull);
    const double covered = coverage::area(model);
    EXPECT_LE(covered, whole * (1.0 + 1e-6));
    EXPECT_GE(covered, whole * (1.0 - 1e-6) - coverage::sliverArea(hull));
}

TEST(OneVertexAPlace, fivePointsWithOneDouble)
{
    const SurfaceModel model = surfaceOf({{5, 0, 3}, {2, 7, -4}, {8, 5, -1}, {0, 6, -4}, {0, 6, -3}});
    EXPECT_EQ(model.points.size(), 5U);
    EXPECT_EQ(model.rawPoints.size(), 5U);
    EXPECT_EQ(model.vertexCount, 5);
    EXPECT_EQ(model.triangleCount, 2);
    EXPECT_DOUBLE_EQ(coverage::area(model), 26.5);
    // The value entered first is the surface's.
    for (const contour::Triangle& t : model.triangles) {
        for (std::int32_t corner : {t.a, t.b, t.c})
            EXPECT_NE(model.vertices[static_cast<std::size_t>(corner)], (Point3{0, 6, -3}));
    }
}

TEST(OneVertexAPlace, orderGivenDecidesAndNotTheOrderByX)
{
    const SurfaceModel model = surfaceOf({{4e-7, 0, 1}, {0, 0, 2}, {10, 0, 3}, {5, 8, 4}});
    ASSERT_EQ(model.triangleCount, 1);
    const contour::Triangle t = model.triangles[0];
    EXPECT_EQ(model.vertices[0].z, 2.0); // first by x, and left out
    EXPECT_TRUE(t.a != 0 && t.b != 0 && t.c != 0);
}

TEST(OneVertexAPlace, distanceIsInPlanAndBelowTheTolerance)
{
    const PointList corners{{0, 0, 0}, {10, 0, 0}, {0, 10, 0}};
    PointList points = corners;
    points.push_back({geometry::GEOM_TOL, 0, 700});
    EXPECT_EQ(surfaceOf(points).triangleCount, 2);
    points.back().x = std::nextafter(geometry::GEOM_TOL, 0.0);
    EXPECT_EQ(surfaceOf(points).triangleCount, 1);
}

// Of a row of near neighbours the second takes no part and holds none off.
TEST(OneVertexAPlace, onlyAVertexHoldsOthersOff)
{
    const SurfaceModel model = surfaceOf({{0, 0, 0}, {7e-7, 0, 1}, {14e-7, 0, 2}, {5, 8, 3}});
    ASSERT_EQ(model.triangleCount, 1);
    EXPECT_DOUBLE_EQ(coverage::area(model), 14e-7 * 8 / 2);
}

TEST(OneVertexAPlace, threeHundredDoubledPlacesGiveTheMapOfOne)
{
    const PointList once = samples::smoothField(11, 300, 100.0);
    PointList twice = once;
    for (const Point3& p : once)
        twice.push_back({p.x, p.y, p.z + 1.0});
    EXPECT_GT(coverage::area(surfaceOf(once)), 8000.0);
    EXPECT_EQ(coverage::area(surfaceOf(twice)), coverage::area(surfaceOf(once)));
    EXPECT_EQ(surfaceOf(twice).triangleCount, surfaceOf(once).triangleCount);
}

TEST(CircleOfPoints, tenOfFullPrecisionAreCoveredOnce)
{
    samples::Random random(4);
    for (int i = 0; i < 200; ++i) {
        const PointList points = samples::onCircle(random, 10, 5.0);
        const SurfaceModel model = surfaceOf(points);
        const double whole = geometry::polygonArea(coverage::hull(model));
        ASSERT_EQ(coverage::overlaps(model), 0) << "set " << i;
        ASSERT_NEAR(coverage::area(model), whole, 1e-6 * whole) << "set " << i;
    }
}

TEST(CircleOfPoints, evenMarksGiveTwoTrianglesFewer)
{
    for (int count : {3, 12, 100, 1500}) {
        PointList points;
        for (int i = 0; i < count; ++i) {
            const double angle = 6.283185307179586 * i / count;
            points.push_back({330000.0 + 20 * std::cos(angle), 5080000.0 + 20 * std::sin(angle), 0});
        }
        const SurfaceModel model = surfaceOf(points);
        EXPECT_TRUE(model.triangulated);
        EXPECT_EQ(model.triangleCount, count - 2);
        EXPECT_NEAR(coverage::area(model), count * 200.0 * std::sin(6.283185307179586 / count), 1e-4);
    }
}

TEST(SoundSurface, hardSetsAreCoveredOnce)
{
    for (int kind = 0; kind < samples::kHardKinds; ++kind) {
        for (std::uint32_t seed = 0; seed < 60; ++seed) {
            samples::Random random(seed * 101 + static_cast<std::uint32_t>(kind));
            SCOPED_TRACE("hard kind " + std::to_string(kind) + ", seed " + std::to_string(seed));
            expectSound(samples::hardPoints(kind, random, 4 + random.below(60)));
            if (HasFailure())
                return;
        }
    }
}

TEST(SoundSurface, allOtherSetsAreCoveredOnce)
{
    for (int kind = 0; kind < samples::kPointKinds; ++kind) {
        for (std::uint32_t seed = 0; seed < 40; ++seed) {
            samples::Random random(seed * 103 + static_cast<std::uint32_t>(kind));
            SCOPED_TRACE("kind " + std::to_string(kind) + ", seed " + std::to_string(seed));
            expectSound(samples::pointsOfKind(kind, random, 4 + random.below(60)));
            if (HasFailure())
                return;
        }
    }
}

// How much the outer triangle's corners leave uncovered along the hull. The bound
// above is far from reached, so that alone would let this grow unseen.
TEST(SoundSurface, sliversAlongTheHullStayAsTheyAre)
{
    int missing = 0;
    double worst = 0.0;
    double sum = 0.0;
    for (std::uint32_t seed = 0; seed < 300; ++seed) {
        samples::Random random(seed + 70000);
        PointList points;
        for (int left = 4 + random.below(60); left > 0; --left)
            points.push_back({random.in(0, 100), random.in(0, 100), random.in(-5, 5)});
        const SurfaceModel model = surfaceOf(points);
        const double whole = geometry::polygonArea(coverage::hull(model));
        const double missed = 1.0 - coverage::area(model) / whole;
        missing += missed > 1e-6;
        worst = std::max(worst, missed);
        sum += missed;
    }
    EXPECT_LE(missing, 53);
    EXPECT_LE(worst, 0.0218);
    EXPECT_LE(sum / 300, 0.0003);
    EXPECT_GE(missing, 30); // or the sets say nothing
}

} // namespace
