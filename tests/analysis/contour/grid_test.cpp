#include "analysis/contour/surface_model.h"
#include "plain_surface.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using contour::SurfaceModel;
using geometry::Point3;
using geometry::PointList;

SurfaceModel modelOf(const PointList& points, const PointList& boundary = {})
{
    SurfaceModel model;
    model.setPoints(points);
    model.boundary = boundary;
    return model;
}

double valueAt(const PointList& grid, double x, double y)
{
    for (const Point3& p : grid) {
        if (std::fabs(p.x - x) < 1e-9 && std::fabs(p.y - y) < 1e-9)
            return p.z;
    }
    ADD_FAILURE() << "no grid point at " << x << ' ' << y;
    return NAN;
}

const PointList kFour{{0, 0, 1}, {10, 0, 2}, {10, 10, 3}, {0, 10, 8}};

TEST(Grid, coversTheBoxInColumns)
{
    const PointList grid = modelOf(kFour).idwGridPoints(2.0, 4);
    ASSERT_EQ(grid.size(), 51U * 51U); // 50 steps of 0.2, ends included
    EXPECT_EQ(grid[0].x, grid[1].x);
    EXPECT_LT(grid[0].y, grid[1].y);
    EXPECT_DOUBLE_EQ(grid.back().x, 10.0);
}

TEST(Grid, stepShrinksWithTheNumberOfPoints)
{
    PointList points;
    for (int i = 0; i < 400; ++i)
        points.push_back({i % 20 / 1.9, i / 20 / 1.9, 0});
    // 0.2 * 10 / sqrt(400) is 0.1, half of a fiftieth of the side.
    EXPECT_NEAR(static_cast<double>(modelOf(points).idwGridPoints(2.0, 1).size()), 101.0 * 101.0, 203.0);
}

TEST(Grid, atAPointItsValueStands)
{
    const PointList grid = modelOf(kFour).idwGridPoints(2.0, 4);
    EXPECT_EQ(valueAt(grid, 0, 0), 1.0);
    EXPECT_EQ(valueAt(grid, 10, 10), 3.0);
}

TEST(Grid, powerTwoIsTheSquareAndOthersAreTheirPower)
{
    const PointList square = modelOf(kFour).idwGridPoints(2.0, 0);
    const PointList third = modelOf(kFour).idwGridPoints(3.0, 0);
    const double d1 = std::hypot(2, 2), d2 = std::hypot(8, 2), d3 = std::hypot(8, 8), d4 = d2;
    const auto expected = [&](double power) {
        const double w1 = std::pow(d1, -power), w2 = std::pow(d2, -power), w3 = std::pow(d3, -power),
                     w4 = std::pow(d4, -power);
        return (w1 * 1 + w2 * 2 + w3 * 3 + w4 * 8) / (w1 + w2 + w3 + w4);
    };
    EXPECT_NEAR(valueAt(square, 2, 2), expected(2.0), 1e-12);
    EXPECT_NEAR(valueAt(third, 2, 2), expected(3.0), 1e-12);
}

TEST(Grid, powerOfZeroIsTheMean) { EXPECT_DOUBLE_EQ(valueAt(modelOf(kFour).idwGridPoints(0.0, 0), 2, 2), 3.5); }

TEST(Grid, onlyTheNearestCount)
{
    EXPECT_DOUBLE_EQ(valueAt(modelOf(kFour).idwGridPoints(2.0, 1), 2, 2), 1.0);
    EXPECT_DOUBLE_EQ(valueAt(modelOf(kFour).idwGridPoints(2.0, 1), 8, 8), 3.0);
}

TEST(Grid, ofEquallyNearPointsTheEarlierCounts)
{
    EXPECT_DOUBLE_EQ(valueAt(modelOf(kFour).idwGridPoints(2.0, 1), 5, 5), 1.0);
}

// By |dx| + |dy| (3, 3) is farther than (5, 0), in plan it is nearer.
TEST(Grid, nearestIsByManhattanDistance)
{
    const PointList bounds{{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}};
    const PointList grid = modelOf({{3, 3, 1}, {5, 0, 2}, {9, 9, 3}}, bounds).idwGridPoints(2.0, 1);
    EXPECT_DOUBLE_EQ(valueAt(grid, 0, 0), 2.0);
}

// A sum of weights below the tolerance gives the nearest value.
TEST(Grid, tinyWeightsGiveTheNearestValue)
{
    const PointList far{{0, 0, 1}, {1000, 0, 2}, {1000, 1000, 3}, {0, 1000, 4}};
    EXPECT_EQ(valueAt(modelOf(far).idwGridPoints(6.0, 0), 200, 200), 1.0);
}

TEST(Grid, placesOutsideTheBoundaryAreLeftOutAndTheRimIsInside)
{
    const PointList triangle{{0, 0, 0}, {10, 0, 0}, {0, 10, 0}};
    const PointList grid = modelOf(kFour, triangle).idwGridPoints(2.0, 4);
    EXPECT_EQ(grid.size(), 51U * 52U / 2U);
}

TEST(Grid, emptyWhereThereIsNothingToCover)
{
    EXPECT_TRUE(modelOf({}).idwGridPoints(2.0, 4).empty());
    EXPECT_TRUE(modelOf({{1, 1, 1}}).idwGridPoints(2.0, 4).empty());
    EXPECT_TRUE(modelOf({{1, 1, 1}, {1, 5, 2}, {1, 9, 3}}).idwGridPoints(2.0, 4).empty());
}

TEST(Grid, beyondAllMeasureIsEmpty)
{
    EXPECT_TRUE(modelOf({{0, 0, 1}, {1e9, 1, 1}, {5, 1, 1}}).idwGridPoints(2.0, 4).empty());
}

TEST(Grid, hullLimitsItWhenTriangulated)
{
    SurfaceModel model = modelOf({{0, 0, 1}, {10, 0, 2}, {0, 10, 3}});
    model.triangulate();
    EXPECT_EQ(model.idwGridPoints(2.0, 4).size(), 51U * 52U / 2U);
    EXPECT_EQ(model.boundary.size(), 3U);
}

TEST(Grid, stopsWhenAsked)
{
    int asked = 0;
    EXPECT_TRUE(modelOf(kFour).idwGridPoints(2.0, 4, [&](double) { return ++asked < 3; }).empty());
    EXPECT_EQ(asked, 3);
}

TEST(PlainGrid, valueWithoutPointsIsZero) { EXPECT_EQ(reference::PlainSurface().idwValue(1, 2, 2.0, 3), 0.0); }

} // namespace
