// Lines, smooth lines and rings share their points: a map of much noise would
// hold each of its millions of points seven times otherwise.

#include "analysis/contour/contour_build.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using contour::LineList;
using contour::Ring;
using contour::RingList;
using geometry::PointList;

TEST(Rings, arePiecesOfLinesForwardsAndBackwardsAtOneValue)
{
    Ring ring;
    EXPECT_TRUE(ring.empty());
    ring.add(contour::shared({{0, 0, 7}, {1, 0, 8}}));
    ring.add(contour::shared({{3, 3, 5}, {2, 2, 6}, {1, 1, 9}}), true);
    ring.setValue(-1.5);
    EXPECT_EQ(ring.size(), 5U);
    EXPECT_EQ(ring.value(), -1.5);
    EXPECT_EQ(ring.points(), (PointList{{0, 0, -1.5}, {1, 0, -1.5}, {1, 1, -1.5}, {2, 2, -1.5}, {3, 3, -1.5}}));
}

TEST(Rings, listsGiveAndTakePlainPoints)
{
    const std::vector<PointList> plain{{{0, 0, 2}, {1, 0, 2}, {0, 0, 2}}, {{5, 5, 3}}, {}};
    RingList list(plain);
    EXPECT_EQ(list.size(), 3U);
    EXPECT_EQ(std::vector<PointList>(list), plain);
    EXPECT_EQ(list.ring(1).value(), 3.0);
    std::size_t points = 0;
    for (const PointList& ring : list)
        points += ring.size();
    EXPECT_EQ(points, 4U);
    RingList twice = list;
    twice.append(list);
    EXPECT_EQ(twice.size(), 6U);
    EXPECT_FALSE(twice == list);
    EXPECT_TRUE(RingList(plain) == list);
    EXPECT_EQ(std::vector<PointList>(LineList(plain)), plain);
}

TEST(LineLists, replacedLineLeavesTheOthersHolderAlone)
{
    LineList lines(std::vector<contour::Isoline>{{{0, 0, 1}, {1, 1, 1}}});
    const LineList before = lines;
    lines.replace(0, {{9, 9, 9}});
    EXPECT_EQ(lines[0].size(), 1U);
    EXPECT_EQ(before[0].size(), 2U);
}

// The pair, both lists and, of a closed line, two rings in two lists each.
TEST(LineLists, aBuildHoldsTheSmoothedPointsOnce)
{
    contour::BuildInput input;
    input.points.emplace();
    for (int i = 0; i < 30; ++i)
        for (int j = 0; j < 30; ++j)
            input.points->push_back({i * 1.0, j * 1.0, 5 * std::sin(i * 0.4) * std::cos(j * 0.4)});
    input.levels = {-3, -1, 1, 3};
    contour::BuildParameters parameters;
    parameters.calculateBoundary = true;
    const contour::BuildResult built = buildContours(input, parameters);
    const contour::IsoContourSet& set = built.contours;
    ASSERT_GT(set.lines.size(), 4U);
    bool anyClosed = false;
    for (std::size_t i = 0; i < set.lines.size(); ++i) {
        EXPECT_EQ(set.lines.share(i), set.smoothedLines.share(i));
        EXPECT_EQ(set.lines.share(i), set.linePairs[i].smoothed);
        // A place in every list that names it, and no more.
        const bool closed = contour::isClosedLine(set.lines[i]);
        const int band = set.bandOf(set.lines[i].front().z);
        const long rings = closed ? 2 * (band < 0 ? 0 : band > 0 ? 2 : 1) : 2;
        EXPECT_EQ(set.lines.share(i).use_count(), 3 + rings) << "line " << i << (closed ? ", closed" : "");
        anyClosed = anyClosed || closed;
    }
    EXPECT_TRUE(anyClosed);
}

} // namespace
