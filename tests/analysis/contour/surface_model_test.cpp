#include "analysis/contour/surface_model.h"
#include "samples.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using contour::SurfaceModel;
using geometry::GEOM_TOL;
using geometry::Point3;
using geometry::PointList;

SurfaceModel modelOf(const PointList& points)
{
    SurfaceModel model;
    model.setPoints(points);
    return model;
}

SurfaceModel triangulatedModelOf(const PointList& points)
{
    SurfaceModel model = modelOf(points);
    model.triangulate();
    return model;
}

// The triangles by the places of their corners, in no order.
std::vector<std::vector<std::pair<double, double>>> placesOf(const SurfaceModel& model)
{
    std::vector<std::vector<std::pair<double, double>>> all;
    for (const contour::Triangle& t : model.triangles) {
        std::vector<std::pair<double, double>> corners;
        for (std::int32_t corner : {t.a, t.b, t.c}) {
            const Point3& p = model.vertices[static_cast<std::size_t>(corner)];
            corners.emplace_back(p.x, p.y);
        }
        std::sort(corners.begin(), corners.end());
        all.push_back(corners);
    }
    std::sort(all.begin(), all.end());
    return all;
}

// Value x over a grid of unit squares, points column by column.
PointList slope(int columns, int rows)
{
    PointList points;
    for (int i = 0; i < columns; ++i)
        for (int j = 0; j < rows; ++j)
            points.push_back({double(i), double(j), double(i)});
    return points;
}

TEST(Prepare, laterOfTwoDoublesGoes)
{
    SurfaceModel model = modelOf({{0, 0, 1}, {5, 5, 2}, {5e-7, 0, 1}, {3, 0, 0}, {5, 5, 2}});
    EXPECT_EQ(model.points, (PointList{{0, 0, 1}, {5, 5, 2}, {3, 0, 0}}));
    EXPECT_EQ(model.rawPoints.size(), 5U);
    EXPECT_EQ(model.vertexCount, 3);
    EXPECT_EQ(model.vertices.size(), 6U);
}

// Each of a row of points is near its neighbour; those near a point that went
// themselves stay.
TEST(Prepare, onlyPointsThatStayDropOthers)
{
    SurfaceModel model = modelOf({{0, 0, 0}, {7e-7, 0, 0}, {14e-7, 0, 0}, {21e-7, 0, 0}});
    EXPECT_EQ(model.points, (PointList{{0, 0, 0}, {14e-7, 0, 0}}));
}

TEST(Prepare, distanceIsBelowTheWidenedTolerance)
{
    EXPECT_EQ(GEOM_TOL, 9.999999974752427e-7);
    EXPECT_EQ(modelOf({{0, 0, 0}, {GEOM_TOL, 0, 0}}).points.size(), 2U);
    EXPECT_EQ(modelOf({{0, 0, 0}, {std::nextafter(GEOM_TOL, 0.0), 0, 0}}).points.size(), 1U);
}

TEST(Prepare, twoValuesAtOnePlaceStay) { EXPECT_EQ(modelOf({{1, 1, 3}, {1, 1, 4}, {0, 0, 0}}).points.size(), 3U); }

TEST(Prepare, verticesAreByXAndStable)
{
    SurfaceModel model = modelOf({{2, 9, 0}, {1, 8, 0}, {2, 1, 0}, {1, 3, 0}});
    model.vertices.resize(4);
    EXPECT_EQ(model.vertices, (PointList{{1, 8, 0}, {1, 3, 0}, {2, 9, 0}, {2, 1, 0}}));
}

TEST(Prepare, aLongColumnComesInHalves)
{
    PointList points;
    for (int i = 1; i <= 32; ++i)
        points.push_back({5, double(i * 7 % 37), 0});
    PointList vertices = modelOf(points).vertices;
    vertices.resize(points.size());
    EXPECT_EQ(vertices, points); // a short one as given

    points.insert(points.begin(), {5, 100, 0});
    std::vector<double> sorted;
    for (const Point3& p : points)
        sorted.push_back(p.y);
    std::sort(sorted.begin(), sorted.end());
    std::vector<double> ys;
    for (const Point3& p : modelOf(points).vertices)
        ys.push_back(p.y);
    EXPECT_EQ(std::vector<double>(ys.begin(), ys.begin() + 7),
              (std::vector<double>{sorted[31], sorted[15], sorted[7], sorted[23], sorted[3], sorted[11], sorted[19]}));
    EXPECT_EQ(ys[32], sorted[32]); // the last odd one
}

// Where no circles tie there is one triangulation, in whatever order it is made.
TEST(Triangulate, longColumnsHaveTheTrianglesOfTheOrderGiven)
{
    samples::Random random(31);
    for (int round = 0; round < 20; ++round) {
        PointList points;
        for (int well = 0; well < 8; ++well) {
            double y = 0.0;
            for (int reading = 0; reading < 60; ++reading, y -= random.in(0.2, 1.0))
                points.push_back({well * 10.0 + 0.1 * round, y, 0});
        }
        SurfaceModel given = modelOf(points);
        std::copy(points.begin(), points.end(), given.vertices.begin());
        given.triangulate();
        EXPECT_EQ(placesOf(triangulatedModelOf(points)), placesOf(given)) << "round " << round;
        EXPECT_GT(given.triangleCount, 800);
    }
}

TEST(Prepare, pointsThatAreNoNumbersAreLeftOut)
{
    EXPECT_EQ(modelOf({{NAN, 0, 0}, {0, INFINITY, 0}, {0, 0, NAN}, {1, 1, 1}}).points.size(), 1U);
}

TEST(Prepare, belowThreePointsTheFlagStays)
{
    SurfaceModel model = triangulatedModelOf({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
    ASSERT_TRUE(model.triangulated);
    model.points.resize(2);
    model.prepare();
    EXPECT_TRUE(model.triangulated);
    EXPECT_EQ(model.triangleCount, 0);
    EXPECT_FALSE(model.triangulate());
}

TEST(Prepare, acceptsItsOwnPoints)
{
    SurfaceModel model = modelOf({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
    model.setPoints(model.points);
    EXPECT_EQ(model.points.size(), 3U);
    model.setBoundary(model.points);
    model.setBoundary(model.boundary);
    EXPECT_EQ(model.boundary.size(), 3U);
}

TEST(Triangulate, threePointsGiveOneTriangle)
{
    SurfaceModel model = triangulatedModelOf({{0, 0, 0}, {10, 1, 0}, {4, 8, 0}});
    EXPECT_EQ(model.triangleCount, 1);
    EXPECT_EQ(model.triangles.size(), 1U);
    EXPECT_TRUE(model.triangulated);
    EXPECT_DOUBLE_EQ(model.longestEdge(), std::sqrt(101.0));
}

TEST(Triangulate, threePointsOnALineGiveNone)
{
    const PointList lines[] = {{{0, 0, 0}, {1, 0, 0}, {2, 0, 0}},
                               {{0, 0, 0}, {0, 1, 0}, {0, 2, 0}},
                               {{0, 0, 0}, {1, 1, 0}, {2, 2, 0}},
                               {{330000, 5080000, 0}, {330010, 5080000, 0}, {330020, 5080000, 0}}};
    for (const PointList& points : lines) {
        SurfaceModel model = triangulatedModelOf(points);
        EXPECT_EQ(model.triangleCount, 0);
        EXPECT_EQ(model.longestEdge(), -INFINITY);
        EXPECT_FALSE(model.boundaryFromHull());
        EXPECT_TRUE(model.boundary.empty());
    }
}

TEST(Triangulate, pointsAtOnePlaceGiveNothing)
{
    SurfaceModel model = triangulatedModelOf({{1, 1, 1}, {1, 1, 2}, {1, 1, 3}, {1, 1, 4}});
    EXPECT_EQ(model.vertexCount, 4);
    EXPECT_FALSE(model.triangulated);
    EXPECT_EQ(model.triangleCount, 0);
    EXPECT_FALSE(model.boundaryFromHull());
}

TEST(Triangulate, coversTheHullWithoutOverlap)
{
    SurfaceModel model = triangulatedModelOf(
        {{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}, {3, 4, 0}, {7, 2, 0}, {6, 8, 0}, {330, 5, 0}});
    double area = 0.0;
    for (const contour::Triangle& t : model.triangles) {
        const Point3 a = model.vertices[t.a], b = model.vertices[t.b], c = model.vertices[t.c];
        area += std::fabs((b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y)) / 2;
    }
    EXPECT_NEAR(area, 100.0 + 320.0 * 10.0 / 2, 1e-9);
}

TEST(Triangulate, stopsWhenAsked)
{
    SurfaceModel model = modelOf(slope(100, 100));
    int asked = 0;
    EXPECT_FALSE(model.triangulate([&](double) { return ++asked < 2; }));
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(model.triangleCount, 0);
    EXPECT_FALSE(model.triangulated);
}

TEST(Triangulate, extremeCoordinatesDoNoHarm)
{
    const double values[] = {0, 1, -1, 1e-300, 1e300, -1e300, 1e155, 5e-7, 1e9, 1e17};
    for (double x : values) {
        for (double y : values) {
            SurfaceModel model =
                triangulatedModelOf({{0, 0, 0}, {1, 0, 1}, {0, 1, 2}, {x, y, 3}, {y, x, 4}, {x, x, x}, {-x, y, y}});
            model.boundaryFromHull();
            model.densifyBoundaryValues();
            model.idwGridPoints(2.0, 3);
            model.trianglesInsideBoundary();
            std::vector<double> levels{0, 1.5, 1e300, NAN, INFINITY, -INFINITY};
            const std::vector<contour::Isoline> lines = model.isolines(levels);
            for (const contour::Isoline& line : lines)
                EXPECT_GE(line.size(), 2U);
        }
    }
}

TEST(Hull, rimOfASquareDoesNotRepeatItsFirstVertex)
{
    SurfaceModel model = triangulatedModelOf({{0, 0, 5}, {4, 0, 5}, {4, 4, 5}, {0, 4, 5}, {1, 2, 5}});
    ASSERT_TRUE(model.boundaryFromHull());
    ASSERT_EQ(model.boundary.size(), 4U);
    for (const Point3& corner : model.boundary) {
        EXPECT_EQ(corner.z, 0.0);
        EXPECT_EQ(std::count(model.boundary.begin(), model.boundary.end(), corner), 1);
    }
}

TEST(Hull, needsTrianglesAndNoBoundary)
{
    SurfaceModel model = modelOf({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
    EXPECT_FALSE(model.boundaryFromHull());
    model.triangulate();
    model.boundary = {{0, 0, 0}, {9, 0, 0}, {9, 9, 0}, {0, 9, 0}};
    EXPECT_FALSE(model.boundaryFromHull());
    EXPECT_EQ(model.boundary.size(), 4U);
    model.boundary.pop_back();
    EXPECT_TRUE(model.boundaryFromHull()); // three points are no boundary yet
    EXPECT_EQ(model.boundary.size(), 6U);
}

TEST(BorderValues, cornersTakeTheNearestValue)
{
    SurfaceModel model = modelOf({{1, 1, 7}, {9, 1, 8}});
    model.boundary = {{0, 0, 0}, {10, 0, 0}, {10, 2, 0}, {0, 2, 0}};
    model.densifyBoundaryValues();
    ASSERT_GE(model.points.size(), 6U);
    EXPECT_EQ(model.points[2], (Point3{0, 0, 7}));
    EXPECT_EQ(model.points[3], (Point3{10, 0, 8}));
    EXPECT_EQ(model.points[4], (Point3{10, 2, 8}));
    EXPECT_EQ(model.points[5], (Point3{0, 2, 7}));
    EXPECT_EQ(model.vertexCount, 2); // not rebuilt here
}

TEST(BorderValues, samplePastEachNearestPlaceIsAdded)
{
    SurfaceModel model = modelOf({{5, 1, 0}});
    model.boundary = {{0, 0, 0}, {10, 0, 0}, {10, 20, 0}, {0, 20, 0}};
    model.densifyBoundaryValues();
    // The sample after the one nearest to (5, 1): 501 thousandths of the side.
    ASSERT_GE(model.points.size(), 6U);
    EXPECT_NEAR(model.points[5].x, 5.01, 1e-9);
    EXPECT_EQ(model.points[5].y, 0.0);
}

// The place nearest in plan to both wells is passed at (11.75, 0), where their
// values change the distance by a leap: a nearest place only by the values.
TEST(BorderValues, valueCountsInTheDistance)
{
    const PointList bounds{{0, 0, 0}, {20, 0, 0}, {20, 50, 0}, {0, 50, 0}};
    const auto addedAtTheLeap = [&bounds](double value) {
        SurfaceModel model = modelOf({{2, 1, value}, {4, 6, 0}});
        model.boundary = bounds;
        model.densifyBoundaryValues();
        return std::count_if(model.points.begin() + 6, model.points.end(),
                             [](const Point3& p) { return p.y == 0.0 && std::fabs(p.x - 11.77) < 0.03; });
    };
    EXPECT_EQ(addedAtTheLeap(0.0), 0);
    EXPECT_EQ(addedAtTheLeap(100.0), 1);
}

TEST(BorderValues, nothingWithoutPointsOrBoundary)
{
    SurfaceModel model;
    model.setBoundary({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}});
    EXPECT_TRUE(model.points.empty());
    model.setPoints({{0, 0, 1}});
    model.setBoundary({{0, 0, 0}, {1, 0, 0}});
    EXPECT_EQ(model.points.size(), 1U);
    model.setBoundary({});
    EXPECT_EQ(model.points.size(), 1U);
}

TEST(BorderValues, tooFarFromEverythingIsZero)
{
    SurfaceModel model = modelOf({{0, 0, 5}, {1, 0, 5}, {0, 1, 5}});
    model.boundary = {{3e7, 0, 0}, {3e7 + 1, 0, 0}, {3e7, 1, 0}};
    model.densifyBoundaryValues();
    ASSERT_EQ(model.points.size(), 6U);
    EXPECT_EQ(model.points[3], (Point3{3e7, 0, 0}));
}

TEST(Boundary, plainOneIsDensifiedAndClearsTheFlag)
{
    SurfaceModel model = triangulatedModelOf(slope(4, 4));
    ASSERT_TRUE(model.triangulated);
    model.setBoundary({{-1, -1, 0}, {4, -1, 0}, {4, 4, 0}, {-1, 4, 0}});
    EXPECT_FALSE(model.triangulated);
    EXPECT_GT(model.points.size(), 16U);
}

TEST(Boundary, exactOneAddsCrossingsWithTheSides)
{
    SurfaceModel model = modelOf(slope(6, 6));
    model.setBoundary({{0.5, 0.3, 0}, {4.4, 4.8, 0}, {0.7, 4.6, 0}}, true);
    EXPECT_FALSE(model.triangulated);
    // 36 measured points, three corners with the value of their nearest one.
    ASSERT_GT(model.points.size(), 45U);
    EXPECT_EQ(model.points[36].z, 0.0);
    EXPECT_EQ(model.points[37], (Point3{4.4, 4.8, 4.0}));
    EXPECT_EQ(model.points[38], (Point3{0.7, 4.6, 1.0}));
    // The edge that would close the outline is not followed.
    for (std::size_t i = 39; i < model.points.size(); ++i) {
        const Point3 p = model.points[i];
        const double first = (p.x - 0.5) * 4.5 - (p.y - 0.3) * 3.9;
        const double second = (p.x - 4.4) * -0.2 - (p.y - 4.8) * -3.7;
        EXPECT_TRUE(std::fabs(first) < 1e-9 || std::fabs(second) < 1e-9) << p.x << ' ' << p.y;
    }
}

TEST(Boundary, exactOneSharesTheSideAlongItsLargerExtent)
{
    // The side from (0, 0) to (1e-9, 10) runs almost along y.
    SurfaceModel model = modelOf({{0, 0, 0}, {1e-9, 10, 10}});
    model.setBoundary({{-30, 5, 0}, {30, 5, 0}}, true);
    ASSERT_GE(model.points.size(), 5U);
    EXPECT_NEAR(model.points[4].x, 0.0, 1e-8);
    EXPECT_NEAR(model.points[4].z, 5.0, 1e-12);
}

TEST(Boundary, exactOneWithFewPointsEndsQuietly)
{
    SurfaceModel model;
    model.setBoundary({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}}, true);
    EXPECT_TRUE(model.points.empty());
    EXPECT_FALSE(model.triangulated);
}

TEST(TrianglesInside, judgedByTheirCentre)
{
    SurfaceModel model = triangulatedModelOf(slope(3, 3));
    const auto all = model.triangleCount;
    EXPECT_EQ(all, 8);
    model.boundary = {{-1, -1, 0}, {1, -1, 0}, {1, 3, 0}, {-1, 3, 0}};
    model.trianglesInsideBoundary();
    EXPECT_EQ(model.triangleCount, 4);
    EXPECT_EQ(model.triangles.size(), 4U);
}

TEST(TrianglesInside, emptyBoundaryKeepsNone)
{
    SurfaceModel model = triangulatedModelOf(slope(3, 3));
    model.trianglesInsideBoundary();
    EXPECT_EQ(model.triangleCount, 0);
    std::vector<double> levels{0.5};
    EXPECT_TRUE(model.isolines(levels).empty());
}

TEST(TrianglesInside, boundaryBesideAllCentresGivesNoLines)
{
    SurfaceModel model = triangulatedModelOf(slope(3, 3));
    model.boundary = {{5, 5, 0}, {6, 5, 0}, {6, 6, 0}};
    model.trianglesInsideBoundary();
    std::vector<double> levels{0.5, 1.5};
    EXPECT_TRUE(model.isolines(levels).empty());
}

TEST(Model, boxIsOfThePoints)
{
    EXPECT_EQ(modelOf({{1, 5, 3}, {-2, 7, 9}}).box().minimum, (Point3{-2, 5, 3}));
    EXPECT_EQ(modelOf({{1, 5, 3}, {-2, 7, 9}}).box().maximum, (Point3{1, 7, 9}));
    EXPECT_EQ(SurfaceModel().box().minimum.x, INFINITY);
    EXPECT_EQ(SurfaceModel().box().maximum.z, -INFINITY);
}

} // namespace
