#include "analysis/contour/chaining.h"
#include "analysis/contour/surface_model.h"

#include <gtest/gtest.h>

namespace {

using contour::ContourSegment;
using contour::isClosedLine;
using contour::Isoline;
using contour::SurfaceModel;
using geometry::Point3;
using geometry::PointList;

double movedLevel(double level, const std::vector<double>& values)
{
    SurfaceModel model;
    for (std::size_t i = 0; i < values.size(); ++i)
        model.points.push_back({double(i), 0, values[i]});
    std::vector<double> levels{level};
    model.isolines(levels);
    return levels[0];
}

TEST(Levels, offAPointTowardsZero)
{
    EXPECT_EQ(movedLevel(2.0, {2.0}), 2.0 - 0.001);
    EXPECT_EQ(movedLevel(-2.0, {5.0, -2.0}), -2.0 + 0.001);
    EXPECT_EQ(movedLevel(2.0, {2.5, 1.0}), 2.0);
    EXPECT_EQ(movedLevel(2.0, {2.0 + 0.9e-6}), 2.0 - 0.001);
    EXPECT_EQ(movedLevel(2.0, {2.0 + 1.1e-6}), 2.0);
}

TEST(Levels, zeroGoesUp)
{
    EXPECT_EQ(movedLevel(0.0, {0.0}), 0.003 - 0.001);
    EXPECT_EQ(movedLevel(-0.0, {0.0}), 0.003 - 0.001);
}

TEST(Levels, movesAgainFromTheNextPoint) { EXPECT_EQ(movedLevel(2.0, {1.999, 2.0}), 2.0 - 0.001 - 0.001); }

TEST(Levels, atMostAThousandMoves)
{
    // Between the two values the level goes to and fro for ever.
    const double level = movedLevel(0.0005, {0.0005, -0.0005});
    EXPECT_NEAR(level, 0.0005, 1e-9);
}

TEST(Cut, slopeIsCutAlongAStraightLine)
{
    SurfaceModel model;
    model.setPoints({{0, 0, 0}, {10, 0, 10}, {0, 10, 0}, {10, 10, 10}});
    model.triangulate();
    std::vector<double> levels{4.0};
    const std::vector<Isoline> lines = model.isolines(levels);
    ASSERT_EQ(lines.size(), 1U);
    ASSERT_EQ(lines[0].size(), 3U);
    for (const Point3& p : lines[0]) {
        EXPECT_DOUBLE_EQ(p.x, 4.0);
        EXPECT_EQ(p.z, 4.0);
    }
}

TEST(Cut, levelsComeAsListed)
{
    SurfaceModel model;
    model.setPoints({{0, 0, 0}, {10, 0, 10}, {0, 10, 0}});
    model.triangulate();
    std::vector<double> levels{7.0, 3.0, 5.0};
    const std::vector<Isoline> lines = model.isolines(levels);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0][0].z, 7.0);
    EXPECT_EQ(lines[1][0].z, 3.0);
    EXPECT_EQ(lines[2][0].z, 5.0);
}

TEST(Cut, ofOneTriangleBySidesInOrder)
{
    SurfaceModel model;
    model.vertices = {{0, 0, 0}, {10, 0, 10}, {0, 10, 0}};
    std::vector<double> levels{5.0};
    model.triangles = {{0, 1, 2}}; // AB and BC
    EXPECT_EQ(model.isolines(levels)[0], (Isoline{{5, 0, 5}, {5, 5, 5}}));
    model.triangles = {{2, 0, 1}}; // BC and CA
    EXPECT_EQ(model.isolines(levels)[0], (Isoline{{5, 0, 5}, {5, 5, 5}}));
    model.triangles = {{1, 2, 0}}; // AB and CA
    EXPECT_EQ(model.isolines(levels)[0], (Isoline{{5, 0, 5}, {5, 5, 5}}));
}

TEST(Cut, levelSurfaceAndLevelsOutsideGiveNothing)
{
    SurfaceModel model;
    model.setPoints({{0, 0, 1}, {10, 0, 1}, {0, 10, 1 + 5e-7}});
    model.triangulate();
    std::vector<double> levels{1.0 + 2e-7, 5, -5, NAN, INFINITY};
    EXPECT_TRUE(model.isolines(levels).empty());
}

// In memory they stand the other way round than in the list.
std::vector<Isoline> chainSegments(const std::vector<ContourSegment>& segments)
{
    contour::SegmentList list;
    list.segments.assign(segments.rbegin(), segments.rend());
    for (std::size_t i = segments.size(); i > 0; --i)
        list.listed.push_back(static_cast<std::int32_t>(i) - 1);
    return contour::chainSegments(list);
}

ContourSegment segment(double x0, double y0, double x1, double y1, double z = 1.0)
{
    return {{x0, y0, z}, {x1, y1, z}};
}

TEST(Chain, growsAtBothEndsFromTheFirst)
{
    const std::vector<Isoline> lines =
        chainSegments({segment(1, 0, 2, 0), segment(3, 0, 2, 0), segment(0, 0, 1, 0), segment(3, 0, 4, 0)});
    ASSERT_EQ(lines.size(), 1U);
    ASSERT_EQ(lines[0].size(), 5U);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(lines[0][i].x, i);
}

TEST(Chain, ofTwoThatFitTheLaterIsTaken)
{
    const std::vector<Isoline> lines = chainSegments({segment(0, 0, 1, 0), segment(1, 0, 2, 5), segment(1, 0, 2, -5)});
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].back().y, -5.0);
    EXPECT_EQ(lines[1].back().y, 5.0);
}

TEST(Chain, closedLineEnds)
{
    const std::vector<Isoline> lines =
        chainSegments({segment(0, 0, 1, 0), segment(1, 0, 1, 1), segment(1, 1, 0, 0), segment(5, 5, 6, 6)});
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].size(), 4U);
    EXPECT_TRUE(isClosedLine(lines[0]));
    EXPECT_FALSE(isClosedLine(lines[1]));
}

// Only the very last segment is still tried on a closed line.
TEST(Chain, closedLineTakesTheVeryLastSegment)
{
    const ContourSegment tail = segment(1, 1, -3, 0);
    const ContourSegment other = segment(5, 5, 6, 6);
    const std::vector<ContourSegment> loop{segment(0, 0, 1, 0), segment(1, 1, 0, 0), segment(1, 0, 1, 1)};
    std::vector<ContourSegment> tailInTheMiddle{loop[0], tail, loop[1], loop[2], other};
    // The tail fits the line's start only after the loop's last two segments.
    const std::vector<Isoline> middle = chainSegments(tailInTheMiddle);
    ASSERT_EQ(middle.size(), 3U);
    EXPECT_EQ(middle[0].size(), 4U);
    std::vector<ContourSegment> tailIsLeft{loop[0], tail, loop[1], loop[2]};
    const std::vector<Isoline> left = chainSegments(tailIsLeft);
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left[0].size(), 5U);
    EXPECT_EQ(left[0].front().x, -3.0);
}

// A surface of loose triangles, each cut at 0.5 along the given segment.
SurfaceModel surfaceCutAlong(const std::vector<ContourSegment>& segments)
{
    SurfaceModel model;
    for (const ContourSegment& s : segments) {
        const auto first = static_cast<std::int32_t>(model.vertices.size());
        const Point3 low{20, 30, 0};
        model.vertices.push_back(low);
        model.vertices.push_back({2 * s.end.x - low.x, 2 * s.end.y - low.y, 1});
        model.vertices.push_back({2 * s.start.x - low.x, 2 * s.start.y - low.y, 1});
        model.triangles.push_back({first, first + 1, first + 2});
    }
    return model;
}

// The very last segment is that of all levels.
TEST(Chain, veryLastSegmentIsOfTheLastLevel)
{
    const SurfaceModel model =
        surfaceCutAlong({segment(0, 0, 1, 0), segment(1, 1, -3, 0), segment(1, 1, 0, 0), segment(1, 0, 1, 1)});
    std::vector<double> alone{0.5};
    const std::vector<Isoline> lines = model.isolines(alone);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].size(), 5U);
    std::vector<double> followed{0.5, 0.75};
    const std::vector<Isoline> two = model.isolines(followed);
    ASSERT_GE(two.size(), 3U);
    EXPECT_EQ(two[0].size(), 4U);
    EXPECT_TRUE(isClosedLine(two[0]));
    EXPECT_EQ(two[1].size(), 2U);
    EXPECT_EQ(two[1].front().z, 0.5);
}

TEST(Chain, levelsNeverJoin)
{
    EXPECT_EQ(chainSegments({segment(0, 0, 1, 0, 1), segment(1, 0, 2, 0, 1.001)}).size(), 2U);
}

TEST(Chain, endsWithinTheToleranceJoin)
{
    EXPECT_EQ(chainSegments({segment(0, 0, 1, 0), segment(1 + 9e-7, 0, 2, 0)}).size(), 1U);
    EXPECT_EQ(chainSegments({segment(0, 0, 1, 0), segment(1 + 11e-7, 0, 2, 0)}).size(), 2U);
}

TEST(Chain, nothingGivesNothing) { EXPECT_TRUE(chainSegments({}).empty()); }

} // namespace
