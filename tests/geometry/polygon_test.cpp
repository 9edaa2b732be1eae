#include "geometry/polygon.h"
#include "geometry/segment.h"
#include "geometry/segment_index.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using namespace geometry;

const PointList kDiamond{{0, -5, 0}, {5, 0, 0}, {0, 5, 0}, {-5, 0, 0}};

TEST(Area, doesNotDependOnDirectionOrRepeatedClosing)
{
    PointList square{{0, 0, 9}, {4, 0, 8}, {4, 3, 7}, {0, 3, 6}};
    EXPECT_EQ(polygonArea(square), 12.0);
    square.push_back(square.front());
    EXPECT_EQ(polygonArea(square), 12.0);
    EXPECT_EQ(polygonArea(PointList(square.rbegin(), square.rend())), 12.0);
    EXPECT_EQ(polygonArea({{0, 0, 0}, {1, 1, 0}}), 0.0);
    EXPECT_EQ(polygonArea({}), 0.0);
}

TEST(Area, keepsItsDigitsFarFromTheOrigin)
{
    EXPECT_EQ(polygonArea({{330000, 5080000, 0}, {330001, 5080000, 0}, {330001, 5080001, 0}}), 0.5);
}

TEST(Inside, rayThroughACornerCountsOnce)
{
    // From each of these the ray in direction (1, 1) meets a corner.
    const PointList square{{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}};
    EXPECT_TRUE(pointInPolygon({5, 5, 0}, square));
    EXPECT_TRUE(pointInPolygon({1, 1, 0}, square));
    EXPECT_FALSE(pointInPolygon({-1, -1, 0}, square));
    EXPECT_FALSE(pointInPolygon({-5, 5, 0}, square));
    EXPECT_FALSE(pointInPolygon({5, -5, 0}, square));
    EXPECT_TRUE(pointInPolygon({-2, 0, 0}, kDiamond));
    EXPECT_FALSE(pointInPolygon({-5, -5, 0}, kDiamond));
}

TEST(Inside, raysAlongAnEdgeAreJudgedRightly)
{
    const PointList ribbon{{0, 0, 0}, {4, 4, 0}, {4, 6, 0}, {0, 2, 0}};
    EXPECT_FALSE(pointInPolygon({-1, -1, 0}, ribbon)); // the ray runs along the first edge
    EXPECT_TRUE(pointInPolygon({2, 3, 0}, ribbon));
}

TEST(Inside, rimIsInside)
{
    EXPECT_TRUE(pointInPolygon({5, 0, 0}, kDiamond));
    EXPECT_TRUE(pointInPolygon({2.5, 2.5, 0}, kDiamond));
    EXPECT_TRUE(pointInPolygon({5 + 9e-7, 0, 0}, kDiamond));
    EXPECT_FALSE(pointInPolygon({5 + 11e-7, 0, 0}, kDiamond));
    EXPECT_TRUE(pointInPolygon({2.5 + 6e-7, 2.5 + 6e-7, 0}, kDiamond));
    EXPECT_FALSE(pointInPolygon({2.5 + 8e-7, 2.5 + 8e-7, 0}, kDiamond));
}

TEST(Inside, repeatedPointsAndTooFewChangeNothing)
{
    PointList repeated = kDiamond;
    repeated.insert(repeated.begin() + 1, repeated[1]);
    repeated.push_back(repeated.front());
    EXPECT_TRUE(pointInPolygon({1, 1, 0}, repeated));
    EXPECT_FALSE(pointInPolygon({4, 4, 0}, repeated));
    EXPECT_FALSE(pointInPolygon({0, 0, 0}, {}));
    EXPECT_FALSE(pointInPolygon({0, 0, 0}, {{0, 0, 0}})); // no edge, no rim
    EXPECT_TRUE(pointInPolygon({1, 0, 0}, {{0, 0, 0}, {2, 0, 0}}));
    EXPECT_FALSE(pointInPolygon({1, 1, 0}, {{0, 0, 0}, {2, 0, 0}}));
    EXPECT_FALSE(pointInPolygon({NAN, 1, 0}, kDiamond));
}

TEST(EvenOdd, starWithCrossedSides)
{
    const PointList star{{0, 10, 0}, {6, -8, 0}, {-9.5, 3, 0}, {9.5, 3, 0}, {-6, -8, 0}};
    EXPECT_FALSE(insideEvenOdd(0, 0, star)); // wound twice
    EXPECT_TRUE(insideEvenOdd(0, 7, star));
    EXPECT_FALSE(insideEvenOdd(0, 0, {}));
}

TEST(Segment, nearestPlace)
{
    const ClosestPlace middle = closestOnSegment({0, 0, 0}, {10, 0, 20}, {4, 3, 99});
    EXPECT_EQ(middle.t, 0.4);
    EXPECT_EQ(middle.point, (Point3{4, 0, 8}));
    EXPECT_EQ(middle.distance, 3.0);
    EXPECT_EQ(closestOnSegment({0, 0, 0}, {10, 0, 0}, {-3, 4, 0}).distance, 5.0);
    EXPECT_EQ(closestOnSegment({0, 0, 0}, {10, 0, 0}, {13, 4, 0}).t, 1.0);
    EXPECT_EQ(closestOnSegment({1, 1, 0}, {1, 1, 0}, {1, 3, 0}).distance, 2.0);
}

TEST(Segment, meeting)
{
    Point3 at;
    ASSERT_TRUE(intersectSegments({0, 0, 0}, {10, 10, 10}, {0, 10, 0}, {10, 0, 0}, &at));
    EXPECT_EQ(at, (Point3{5, 5, 5}));
    EXPECT_TRUE(intersectSegments({0, 0, 0}, {10, 0, 0}, {10, 0, 0}, {10, 5, 0}, &at));
    EXPECT_FALSE(intersectSegments({0, 0, 0}, {10, 0, 0}, {11, -1, 0}, {11, 5, 0}, &at));
    EXPECT_FALSE(intersectSegments({0, 0, 0}, {10, 0, 0}, {0, 1, 0}, {10, 1, 0}, &at));
    EXPECT_FALSE(intersectSegments({0, 0, 0}, {10, 0, 0}, {5, 0, 0}, {15, 0, 0}, &at));
    EXPECT_FALSE(intersectSegments({0, 0, 0}, {0, 0, 0}, {0, 0, 0}, {1, 1, 0}, &at));
}

// Whole coordinates put many points on rims, corners and rays through corners.
TEST(SegmentIndex, judgesLikeThePlainLoops)
{
    std::mt19937 random(5);
    for (int round = 0; round < 200; ++round) {
        const double origin = round % 3 ? 0.0 : 5080000.0;
        const bool whole = round % 2;
        const auto coordinate = [&] {
            const double v = static_cast<double>(random()) / 4294967296.0 * 12.0;
            return origin + (whole ? std::floor(v) : v);
        };
        PointList corners(1 + random() % 40);
        for (Point3& p : corners)
            p = {coordinate(), coordinate(), 0};
        const SegmentIndex index(corners, true);
        for (int i = 0; i < 100; ++i) {
            const Point3 p{coordinate(), coordinate(), 0};
            ASSERT_EQ(index.pointInPolygon(p), pointInPolygon(p, corners));
            ASSERT_EQ(index.insideEvenOdd(p.x, p.y), insideEvenOdd(p.x, p.y, corners));
            const Polyline::Place plain = Polyline(corners, true).closest(p);
            const Polyline::Place found = index.closest(p);
            ASSERT_EQ(found.parameter, plain.parameter);
            ASSERT_EQ(found.distance, plain.distance);
            ASSERT_EQ(found.point, plain.point);
            ASSERT_EQ(index.isWithin(p, 0.5), plain.distance < 0.5);
        }
    }
}

} // namespace
