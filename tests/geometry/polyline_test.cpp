#include "geometry/cardinal_spline.h"
#include "geometry/polyline.h"

#include <gtest/gtest.h>

namespace {

using namespace geometry;

const PointList kCorner{{0, 0, 0}, {10, 0, 10}, {10, 5, 0}};

TEST(Polyline, parameterIsOneASegment)
{
    const Polyline line(kCorner, false);
    EXPECT_EQ(line.segmentCount(), 2U);
    EXPECT_EQ(line.endParameter(), 2.0);
    EXPECT_EQ(line.pointAt(0.25), (Point3{2.5, 0, 2.5}));
    EXPECT_EQ(line.pointAt(1.0), kCorner[1]);
    EXPECT_EQ(line.pointAt(1.5), (Point3{10, 2.5, 5}));
    EXPECT_EQ(line.pointAt(2.0), kCorner[2]);
    EXPECT_EQ(line.pointAt(-1), kCorner[0]);
    EXPECT_EQ(line.pointAt(99), kCorner[2]);
    EXPECT_EQ(line.pointAt(NAN), kCorner[0]);
}

TEST(Polyline, closedOneReturns)
{
    const Polyline line(kCorner, true);
    EXPECT_EQ(line.endParameter(), 3.0);
    EXPECT_EQ(line.pointAt(2.5), (Point3{5, 2.5, 0}));
    EXPECT_EQ(line.pointAt(3.0), kCorner[0]);
    EXPECT_EQ(line.segmentEnd(2), kCorner[0]);
}

TEST(Polyline, closestPlaceIsTheFirstOfEquals)
{
    const Polyline line({{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}}, true);
    EXPECT_EQ(line.closest({5, 5, 0}).parameter, 0.5);
    EXPECT_EQ(line.closest({12, 10, 0}).parameter, 2.0);
    EXPECT_EQ(line.closest({-1, -1, 0}).parameter, 0.0);
    EXPECT_EQ(line.closest({-1, 7, 3}).parameter, 3.3);
    EXPECT_EQ(line.closest({-1, 7, 3}).distance, 1.0);
}

TEST(Polyline, lengthIsInPlan)
{
    const Polyline line(kCorner, false);
    EXPECT_EQ(line.length(), 15.0);
    EXPECT_EQ(line.lengthAt(0.5), 5.0);
    EXPECT_EQ(line.lengthAt(1.2), 11.0);
    EXPECT_EQ(line.lengthAt(50), 15.0);
}

TEST(Polyline, withoutSegments)
{
    EXPECT_EQ(Polyline().pointAt(1), Point3());
    EXPECT_EQ(Polyline({{3, 4, 5}}, true).pointAt(1), (Point3{3, 4, 5}));
    EXPECT_EQ(Polyline({{3, 4, 5}}, true).segmentCount(), 0U);
    EXPECT_EQ(Polyline().closest({1, 1, 1}).distance, INFINITY);
    EXPECT_EQ(Polyline().length(), 0.0);
}

TEST(Spline, withoutTensionRunsOnItsChords)
{
    const PointList line{{0, 0, 7}, {10, 0, 0}, {20, 0, 0}, {20, 10, 0}};
    const PointList out = CardinalSpline(0.0, 4).throughOpen(line, 3.0);
    ASSERT_EQ(out.size(), 1U + 4U + 5U + 4U + 1U);
    for (const Point3& p : out) {
        EXPECT_EQ(p.z, 3.0);
        EXPECT_TRUE(p.y == 0.0 || p.x == 20.0);
    }
    EXPECT_EQ(out[3].x, 5.0); // t = 1/2
}

TEST(Spline, tangentsAreTensionTimesTheChord)
{
    // Even spacing keeps the tension; the middle of the inner segment lies at
    // (p1 + p2) / 2 + T * ((p2 - p0) - (p3 - p1)) / 8.
    const PointList line{{0, 0, 0}, {3, 4, 0}, {8, 4, 0}, {11, 0, 0}};
    const PointList out = CardinalSpline(0.5, 2).throughOpen(line, 0.0);
    ASSERT_EQ(out.size(), 9U);
    EXPECT_EQ(out[3], line[1]);
    EXPECT_EQ(out[4], line[1]);
    EXPECT_DOUBLE_EQ(out[5].x, 5.5);
    EXPECT_DOUBLE_EQ(out[5].y, 4.0 + 0.5 * (4.0 + 4.0) / 8.0);
}

TEST(Spline, longNeighbourLowersTheTension)
{
    const PointList line{{0, 0, 0}, {0, 40, 0}, {10, 40, 0}, {10, 0, 0}};
    const PointList out = CardinalSpline(0.8, 2).throughOpen(line, 0.0);
    // 10 / 40 of the tension, in this segment alone.
    EXPECT_DOUBLE_EQ(out[5].y, 40.0 + 0.8 * 0.25 * (40.0 + 40.0) / 8.0);
    EXPECT_DOUBLE_EQ(out[2].x, 0.8 * -10.0 / 8.0 * 1.0);
}

TEST(Spline, loopIsClosedByItsFirstPoint)
{
    const PointList loop{{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}};
    const PointList out = CardinalSpline(0.5, 3).throughClosed(loop, 2.0);
    ASSERT_EQ(out.size(), 13U);
    EXPECT_EQ(out.front(), out.back());
    EXPECT_EQ(out.front(), (Point3{10, 0, 2})); // samples start at the second point
}

} // namespace
