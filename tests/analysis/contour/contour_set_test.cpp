#include "analysis/contour/contour_build.h"
#include "geometry/polygon.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using contour::HatchBand;
using contour::IsoContourSet;
using contour::Isoline;
using geometry::Point3;
using geometry::PointList;

const PointList kSquare{{0, 0, 0}, {100, 0, 0}, {100, 100, 0}, {0, 100, 0}};

Isoline loopAround(double x, double y, double half, double level)
{
    return {{x - half, y - half, level},
            {x + half, y - half, level},
            {x + half, y + half, level},
            {x - half, y + half, level},
            {x - half, y - half, level}};
}

IsoContourSet setOf(const std::vector<Isoline>& lines, const std::vector<double>& levels, const PointList& points = {},
                    const PointList& boundary = kSquare)
{
    IsoContourSet set(lines, boundary);
    set.setLevels(levels);
    set.surfacePoints = points;
    return set;
}

TEST(ContourSet, takesLinesAndBoundary)
{
    const IsoContourSet set({loopAround(5, 5, 1, 2)}, kSquare);
    EXPECT_EQ(set.lines.size(), 1U);
    ASSERT_EQ(set.linePairs.size(), 1U);
    EXPECT_EQ(set.linePairs[0].traced, set.lines.share(0));
    EXPECT_FALSE(set.linePairs[0].smoothed);
    EXPECT_EQ(set.boundary, kSquare);
    EXPECT_FALSE(set.ringsBuilt || set.smoothed || set.levelsSet);
}

TEST(ContourSet, bandsAreHalfOpenAndTheLastLevelHasNone)
{
    IsoContourSet set;
    EXPECT_EQ(set.bandOf(1), -1);
    set.setLevels({3, 1, 2, NAN});
    EXPECT_TRUE(set.levelsSet);
    EXPECT_EQ(set.levels, (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(set.bandOf(0.9), -1);
    EXPECT_EQ(set.bandOf(1), 0);
    EXPECT_EQ(set.bandOf(1.999), 0);
    EXPECT_EQ(set.bandOf(2), 1);
    EXPECT_EQ(set.bandOf(3), -1);
    EXPECT_EQ(set.bandOf(NAN), -1);
    set.setLevels({1, 2, 2, 2, 3});
    EXPECT_EQ(set.bandOf(2), 3); // the first pair that holds it
}

TEST(ClosedRings, needLevels)
{
    IsoContourSet set({loopAround(50, 50, 10, 2)}, kSquare);
    set.surfacePoints = {{50, 50, 3}};
    EXPECT_FALSE(set.buildClosedRings());
    EXPECT_TRUE(set.closedRings.empty());
    EXPECT_EQ(set.surfacePoints.size(), 1U);
}

TEST(ClosedRings, loopStandsInTheBandsAboveAndBelow)
{
    for (double inner : {1.5, 2.5}) { // a pit or a top, it makes no difference
        IsoContourSet set = setOf({loopAround(50, 50, 10, 2)}, {1, 2, 3}, {{50, 50, inner}});
        EXPECT_TRUE(set.buildClosedRings());
        ASSERT_EQ(set.closedRings.size(), 2U);
        EXPECT_EQ(set.closedRings[0][0].z, 2.0);
        EXPECT_EQ(set.closedRings[1][0].z, 1.0);
        EXPECT_TRUE(set.surfacePoints.empty());
    }
}

TEST(ClosedRings, lowestLevelGivesOneCopyAndTheTopNone)
{
    IsoContourSet set =
        setOf({loopAround(20, 20, 5, 1), loopAround(60, 60, 6, 3)}, {1, 2, 3}, {{20, 20, 0}, {60, 60, 4}, {5, 5, 5}});
    EXPECT_TRUE(set.buildClosedRings());
    ASSERT_EQ(set.closedRings.size(), 1U);
    EXPECT_EQ(set.closedRings[0][0].z, 1.0);
    EXPECT_EQ(set.surfacePoints, (PointList{{5, 5, 5}})); // both loops took their point
}

// Smallest first: the inner loop takes the point inside both, the outer one the
// next; with none inside, the nearest in space.
TEST(ClosedRings, referencePointsLeaveTheSurface)
{
    const PointList points{{50, 50, 9}, {90, 90, 2}, {58, 58, 2}};
    IsoContourSet set = setOf({loopAround(50, 50, 20, 2), loopAround(50, 50, 5, 4)}, {1, 2, 4, 6}, points);
    set.buildClosedRings();
    EXPECT_EQ(set.surfacePoints, (PointList{{90, 90, 2}}));
    EXPECT_EQ(set.closedRings.size(), 4U);
    EXPECT_EQ(set.closedRings[0][0].z, 4.0);
    EXPECT_EQ(set.closedRings[2][0].z, 2.0);

    IsoContourSet none = setOf({loopAround(50, 50, 5, 2)}, {1, 2, 3}, {{57, 50, 90}, {70, 50, 2}, {50, 71, 2}});
    none.buildClosedRings();
    EXPECT_EQ(none.surfacePoints, (PointList{{57, 50, 90}, {50, 71, 2}}));
}

TEST(Rings, mapWithoutLinesIsItsBorderAtItsLowestValue)
{
    IsoContourSet set =
        setOf({}, {1, 2, 3}, {{0, 0, 2.5}, {100, 0, 1.5}, {100, 100, 2.6}, {0, 100, 2.7}, {50, 50, 0.5}});
    set.buildRings();
    ASSERT_TRUE(set.ringsBuilt);
    ASSERT_EQ(set.rings.size(), 1U);
    ASSERT_EQ(set.rings[0].size(), 5U);
    EXPECT_EQ(set.rings[0].front(), set.rings[0].back());
    EXPECT_EQ(set.rings[0][0].z, 1.5);
    EXPECT_EQ(set.hatchBands().size(), 1U);
    EXPECT_EQ(set.hatchBands()[0].band, 0);
}

TEST(Rings, mapWithoutLinesOfOneValueTakesIt)
{
    IsoContourSet set = setOf({}, {1, 2, 3}, {{0, 0, 2.5}, {50, 50, 9}});
    set.buildRings();
    ASSERT_EQ(set.rings.size(), 1U);
    EXPECT_EQ(set.rings[0][0].z, 2.5);
}

TEST(Rings, withoutPointsOnTheBorderItsValueIsZero)
{
    IsoContourSet set = setOf({}, {-1, 0, 1}, {{50, 50, 7}});
    set.buildRings();
    ASSERT_EQ(set.rings.size(), 1U);
    EXPECT_EQ(set.rings[0][0].z, 0.0);
}

TEST(Rings, nearestBorderPointIsInSpaceFromTheGround)
{
    // In plan the first point is nearer to every corner, in space the second.
    IsoContourSet set = setOf({}, {0, 100, 1000}, {{50, 0, 500}, {50, 100, 3}});
    set.buildRings();
    EXPECT_EQ(set.rings[0][0].z, 3.0);
}

TEST(Rings, twoLinesSplitTheMapIntoThree)
{
    const Isoline left{{30, 0, 1}, {30, 100, 1}};
    const Isoline right{{60, 100, 2}, {60, 0, 2}};
    IsoContourSet set = setOf({left, right}, {1, 2, 3}, {{0, 0, 0.5}, {100, 0, 2.5}, {45, 50, 1.5}});
    set.buildRings();
    ASSERT_EQ(set.rings.size(), 3U);
    std::vector<double> areas;
    for (const PointList& ring : set.rings) {
        areas.push_back(geometry::polygonArea(ring));
        EXPECT_EQ(ring.front(), ring.back());
    }
    std::sort(areas.begin(), areas.end());
    EXPECT_EQ(areas, (std::vector<double>{3000, 3000, 4000}));
    // In walking order: left of both (below all bands), between, right of both.
    EXPECT_EQ(set.bandOf(set.rings[0][0].z), -1);
    EXPECT_LT(set.rings[0][0].z, 1.0);
    const auto valueOf = [&](double x) {
        for (const PointList& ring : set.rings) {
            if (geometry::pointInPolygon({x, 50, 0}, ring))
                return ring[0].z;
        }
        return -99.0;
    };
    EXPECT_EQ(valueOf(45), 1.0);
    EXPECT_EQ(valueOf(80), 2.0); // at the last level but one: a band
}

TEST(Rings, besideTheLastLevel)
{
    const Isoline line{{50, 0, 3}, {50, 100, 3}};
    IsoContourSet set = setOf({line}, {1, 2, 3}, {{0, 0, 2.5}, {100, 0, 3.5}});
    set.buildRings();
    ASSERT_EQ(set.rings.size(), 2U);
    EXPECT_EQ(set.bandOf(set.rings[0][0].z), 1);  // below it
    EXPECT_EQ(set.bandOf(set.rings[1][0].z), -1); // above it
    EXPECT_EQ(set.hatchBands().size(), 1U);
}

// A point inside that is more than one band higher lifts the ring by one band
// above that of its own level, no further.
TEST(Rings, highInnerPointLiftsByOneBand)
{
    const Isoline line{{50, 0, 1}, {50, 100, 1}};
    IsoContourSet set = setOf({line}, {1, 2, 3, 4, 5}, {{0, 0, 0.5}, {100, 0, 4.5}});
    set.buildRings();
    ASSERT_EQ(set.rings.size(), 2U);
    EXPECT_EQ(set.rings[1][0].z, 2.0);
}

TEST(Rings, pointsOnTheBorderSpeakFirst)
{
    const Isoline line{{50, 0, 2}, {50, 100, 2}};
    IsoContourSet set = setOf({line}, {1, 2, 3}, {{25, 50, 2.5}, {0, 50, 1.5}, {75, 50, 2.5}});
    set.buildRings();
    EXPECT_EQ(set.rings[0][0].z, 1.0);
    EXPECT_EQ(set.rings[1][0].z, 2.0);
}

TEST(Rings, withoutAnyPointInsideTheLevelStays)
{
    IsoContourSet set = setOf({{{50, 0, 2}, {50, 100, 2}}}, {1, 2, 3});
    set.buildRings();
    ASSERT_EQ(set.rings.size(), 2U);
    EXPECT_EQ(set.rings[0][0].z, 2.0);
}

TEST(Rings, bothEndsOfALineAtOneCorner)
{
    const Isoline line{{0, 0, 2}, {30, 10, 2}, {10, 30, 2}, {0, 2e-6, 2}};
    IsoContourSet set = setOf({line}, {1, 2, 3}, {{20, 20, 3}, {100, 0, 1}});
    set.buildRings();
    EXPECT_EQ(set.rings.size(), 2U);
}

TEST(Rings, repeatedClosingPointOfTheBoundaryChangesNothing)
{
    PointList closed = kSquare;
    closed.push_back(closed.front());
    const PointList points{{0, 0, 0.5}, {100, 0, 2.5}};
    IsoContourSet open = setOf({{{30, 0, 1}, {30, 100, 1}}}, {1, 2, 3}, points);
    IsoContourSet repeated = setOf({{{30, 0, 1}, {30, 100, 1}}}, {1, 2, 3}, points, closed);
    open.buildRings();
    repeated.buildRings();
    ASSERT_EQ(open.rings.size(), repeated.rings.size());
    for (std::size_t i = 0; i < open.rings.size(); ++i) {
        EXPECT_EQ(open.rings[i][0].z, repeated.rings[i][0].z);
        EXPECT_EQ(geometry::polygonArea(open.rings[i]), geometry::polygonArea(repeated.rings[i]));
    }
}

TEST(Rings, closedOnesComeLast)
{
    IsoContourSet set = setOf({loopAround(50, 50, 10, 2)}, {1, 2, 3}, {{50, 50, 2.5}, {0, 0, 1.5}});
    set.buildRings();
    ASSERT_EQ(set.rings.size(), 3U);
    EXPECT_EQ(set.rings[0].size(), 5U);
    EXPECT_EQ(set.rings[1][0].z, 2.0);
    EXPECT_EQ(set.rings[2][0].z, 1.0);
}

TEST(Rings, withoutABoundaryOnlyClosedLinesGiveSome)
{
    IsoContourSet set = setOf({loopAround(50, 50, 10, 2), {{0, 0, 2}, {9, 9, 2}}}, {1, 2, 3}, {}, {});
    set.buildRings();
    EXPECT_TRUE(set.ringsBuilt);
    EXPECT_EQ(set.rings.size(), 2U);
    IsoContourSet empty;
    empty.buildRings();
    EXPECT_TRUE(empty.rings.empty());
    EXPECT_TRUE(empty.hatchBands().empty());
}

TEST(Bands, needRings)
{
    EXPECT_TRUE(setOf({}, {1, 2}).groupByBand().empty());
    EXPECT_TRUE(setOf({}, {1, 2}).hatchBands().empty());
}

TEST(Bands, nestedLoopsStandInTwoBandsEachLargestFirst)
{
    IsoContourSet set = setOf({loopAround(50, 50, 30, 1), loopAround(50, 50, 20, 2), loopAround(50, 50, 10, 3)},
                              {0, 1, 2, 3, 4}, {{50, 50, 3.5}, {50, 65, 2.5}, {50, 75, 1.5}, {0, 0, 0.5}});
    set.buildRings();
    const std::vector<std::vector<PointList>> groups = set.groupByBand();
    ASSERT_EQ(groups.size(), 5U);
    const std::size_t counts[] = {2, 2, 2, 1, 0}; // the border is in the first band
    for (std::size_t i = 0; i < 5; ++i) {
        ASSERT_EQ(groups[i].size(), counts[i]);
        for (std::size_t j = 1; j < groups[i].size(); ++j)
            EXPECT_GT(geometry::polygonArea(groups[i][j - 1]), geometry::polygonArea(groups[i][j]));
    }
    EXPECT_EQ(geometry::polygonArea(groups[1][0]), 3600.0);
    EXPECT_EQ(geometry::polygonArea(groups[1][1]), 1600.0);
    EXPECT_EQ(set.hatchBands().size(), 4U); // of five levels
}

TEST(Bands, hatchSkipsRepeatedVertices)
{
    IsoContourSet set;
    set.setLevels({1, 2});
    set.rings = std::vector<PointList>{{{0, 0, 1}, {5, 0, 1}, {5, 0, 1}, {5, 5, 1}, {0, 0, 1}}};
    set.ringsBuilt = true;
    const std::vector<HatchBand> bands = set.hatchBands();
    ASSERT_EQ(bands.size(), 1U);
    EXPECT_EQ(bands[0].level, 1.0);
    EXPECT_EQ(bands[0].rings[0], (PointList{{0, 0, 1}, {5, 0, 1}, {5, 5, 1}, {0, 0, 1}}));
    EXPECT_EQ(set.groupByBand()[0][0].size(), 5U);
}

TEST(InnerPoint, firstInsideOrOnTheRim)
{
    EXPECT_EQ(contour::findInnerPoint(kSquare, {{-1, 0, 0}, {100, 50, 3}, {50, 50, 2}}), 1);
    EXPECT_EQ(contour::findInnerPoint(kSquare, {{-1, 0, 0}}), -1);
    EXPECT_EQ(contour::findInnerPoint({}, {{0, 0, 0}}), -1);
    EXPECT_EQ(contour::findInnerPoint(kSquare, {}), -1);
}

TEST(Lines, filterKeepsTheEnds)
{
    IsoContourSet set({{{0, 0, 1}, {0.5, 0, 1}, {3, 0, 1}, {3.5, 0, 1}}}, {});
    set.filterLines(1.0);
    EXPECT_EQ(set.lines[0], (Isoline{{0, 0, 1}, {3, 0, 1}, {3.5, 0, 1}}));
}

// From the end down each point is compared with the one before as it stands.
TEST(Lines, filterOfAnEvenRowDropsAllInner)
{
    IsoContourSet set({{{0, 0, 1}, {1, 0, 1}, {2, 0, 1}, {3, 0, 1}}}, {});
    set.filterLines(1.5);
    EXPECT_EQ(set.lines[0], (Isoline{{0, 0, 1}, {3, 0, 1}}));
}

TEST(Lines, refineCutsLongSegmentsAndRepeatsTheirStart)
{
    IsoContourSet set({{{0, 0, 1}, {4, 0, 1}, {5, 0, 1}}}, {});
    set.refineLines(2.0, 4);
    EXPECT_EQ(set.lines[0], (Isoline{{0, 0, 1}, {0, 0, 1}, {1, 0, 1}, {2, 0, 1}, {3, 0, 1}, {4, 0, 1}, {5, 0, 1}}));
}

TEST(Lines, tenPartsAreTen)
{
    IsoContourSet set({{{0, 0, 1}, {1, 0, 1}}}, {});
    set.refineLines(0.5, 10);
    EXPECT_EQ(set.lines[0].size(), 12U);
    IsoContourSet one({{{0, 0, 1}, {1, 0, 1}}}, {});
    one.refineLines(0.5, -3);
    EXPECT_EQ(one.lines[0].size(), 3U);
}

TEST(Lines, smoothingOfThreePointsDoesNothing)
{
    IsoContourSet set({{{0, 0, 1}, {4, 1, 1}, {5, 0, 1}}}, {});
    set.smoothLines(0.5, 10);
    EXPECT_TRUE(set.smoothed);
    EXPECT_EQ(set.smoothedLines[0], set.lines[0]);
}

TEST(Lines, smoothingPassesEveryPoint)
{
    const Isoline line{{0, 0, 1}, {4, 1, 1}, {5, 3, 1}, {9, 3, 1}, {12, 0, 1}};
    IsoContourSet set({line}, {});
    set.smoothLines(0.5, 10);
    EXPECT_EQ(set.lines[0], line);
    EXPECT_EQ(set.linePairs[0].smoothed, set.smoothedLines.share(0));
    set.useSmoothedLines();
    const Isoline& smooth = set.lines[0];
    EXPECT_EQ(smooth.size(), 1U + 10U + 2U * 11U + 10U + 1U);
    EXPECT_EQ(smooth.front(), line.front());
    EXPECT_EQ(smooth.back(), line.back());
    for (const Point3& p : line)
        EXPECT_NE(std::find(smooth.begin(), smooth.end(), p), smooth.end());
    // The first two inner knots stand twice in a row.
    EXPECT_EQ(smooth[11], smooth[12]);
    EXPECT_EQ(smooth[11], line[1]);
}

TEST(Lines, samplesBelowOneCountAsOne)
{
    IsoContourSet set({{{0, 0, 1}, {4, 1, 1}, {5, 3, 1}, {9, 3, 1}}}, {});
    set.smoothLines(0.5, 0);
    EXPECT_EQ(set.smoothedLines[0].size(), 6U);
}

TEST(Lines, closedStaysClosedThroughAll)
{
    IsoContourSet set({loopAround(50, 50, 10, 2)}, kSquare);
    set.filterLines(5.0);
    EXPECT_TRUE(contour::isClosedLine(set.lines[0]));
    set.refineLines(3.0, 4);
    EXPECT_TRUE(contour::isClosedLine(set.lines[0]));
    set.smoothLines(0.5, 5);
    set.useSmoothedLines();
    EXPECT_TRUE(contour::isClosedLine(set.lines[0]));
    EXPECT_EQ(set.lines[0].front().z, 2.0);
}

TEST(Lines, emptyLinesDoNoHarm)
{
    IsoContourSet set({{}, {{1, 1, 1}}}, kSquare);
    set.setLevels({0, 1, 2});
    set.filterLines(1);
    set.refineLines(1, 3);
    set.smoothLines(0.5, 3);
    set.useSmoothedLines();
    set.buildRings();
    EXPECT_EQ(set.lines.size(), 2U);
    EXPECT_TRUE(set.ringsBuilt);
}

} // namespace
