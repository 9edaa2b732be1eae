#include "analysis/contour/contour_build.h"
#include "samples.h"

#include <gtest/gtest.h>

namespace {

using namespace contour;

BuildInput fieldInput(bool bounds)
{
    BuildInput input;
    input.points = samples::smoothField(3, 200, 100.0);
    if (bounds)
        input.bounds = PointList{{5, 5, 0}, {95, 5, 0}, {95, 95, 0}, {5, 95, 0}};
    input.levels = {-6, -3, 0, 3, 6};
    return input;
}

TEST(Build, defaultsAreTheDialogs)
{
    const BuildParameters p;
    EXPECT_EQ(p.method, Method::Triangulation);
    EXPECT_EQ(p.power, 2.0);
    EXPECT_EQ(p.neighbours, 15);
    EXPECT_FALSE(p.calculateBoundary || p.filterLines || p.refineLines);
    EXPECT_TRUE(p.smoothLines);
    EXPECT_EQ(p.tension, 0.5);
    EXPECT_EQ(p.splineSamples, 10);
    EXPECT_EQ(p.filterDistance, 0.1);
    EXPECT_EQ(p.refineDistance, 50.0);
    EXPECT_EQ(p.refineParts, 5);
}

TEST(Build, pointsAndBoundsMustBeGiven)
{
    BuildParameters p;
    BuildInput input;
    EXPECT_EQ(buildContours(input, p).status, BuildStatus::NoPoints);
    input.points = PointList();
    EXPECT_EQ(buildContours(input, p).status, BuildStatus::NoBounds);
    p.calculateBoundary = true;
    const BuildResult empty = buildContours(input, p);
    EXPECT_EQ(empty.status, BuildStatus::FewPoints);
    EXPECT_TRUE(empty.contours.rings.empty());
    EXPECT_EQ(empty.statistics.longestEdge, -INFINITY);
}

TEST(Build, hullOnlyWithoutBounds)
{
    BuildParameters p;
    p.calculateBoundary = true;
    EXPECT_EQ(buildContours(fieldInput(true), p).boundary.size(), 4U);
    EXPECT_GT(buildContours(fieldInput(false), p).boundary.size(), 4U);
}

TEST(Build, twiceGivesTheSame)
{
    for (Method method : {Method::Triangulation, Method::InverseDistance}) {
        BuildParameters p;
        p.method = method;
        const BuildResult first = buildContours(fieldInput(true), p);
        const BuildResult second = buildContours(fieldInput(true), p);
        EXPECT_GT(first.contours.rings.size(), 2U);
        EXPECT_EQ(first.contours.rings, second.contours.rings);
        EXPECT_EQ(first.contours.lines, second.contours.lines);
    }
}

TEST(Build, gridAddsPoints)
{
    BuildParameters p;
    const int plain = buildContours(fieldInput(true), p).statistics.pointCount;
    p.method = Method::InverseDistance;
    EXPECT_GT(buildContours(fieldInput(true), p).statistics.pointCount, plain + 2000);
}

TEST(Build, pointsAtOnePlaceOrOnALineMakeNoRings)
{
    BuildParameters p;
    p.calculateBoundary = true;
    BuildInput input = fieldInput(false);
    input.points = PointList{{1, 1, 1}, {1, 1, 2}, {1, 1, 3}};
    EXPECT_TRUE(buildContours(input, p).contours.rings.empty());
    input.points = PointList{{1, 1, 1}, {2, 1, 2}, {3, 1, 3}};
    EXPECT_TRUE(buildContours(input, p).contours.rings.empty());
    EXPECT_TRUE(buildContours(input, p).boundary.empty());
}

TEST(Build, whatMakesNoMapIsTold)
{
    BuildParameters p;
    p.calculateBoundary = true;
    BuildInput input;
    input.points = PointList{{1, 1, 1}, {NAN, 1, 1}, {2, 1, 2}};
    BuildResult result = buildContours(input, p);
    EXPECT_EQ(result.status, BuildStatus::FewPoints);
    EXPECT_EQ(result.without, (std::vector<int>{0, 2}));
    input.points->push_back({3, 1, 3});
    result = buildContours(input, p);
    EXPECT_EQ(result.status, BuildStatus::NoTriangle);
    EXPECT_EQ(result.without, (std::vector<int>{0, 2, 3}));
    input.points->push_back({3, 5, 3});
    result = buildContours(input, p);
    EXPECT_EQ(result.status, BuildStatus::Done);
    EXPECT_TRUE(result.without.empty() && result.leftOut.empty());
}

// Two wells and a border have values along all of it.
TEST(Build, aBorderMakesAMapOfOneWell)
{
    BuildInput input = fieldInput(true);
    input.points->resize(1);
    EXPECT_EQ(buildContours(input, {}).status, BuildStatus::Done);
    input.points->clear();
    EXPECT_EQ(buildContours(input, {}).status, BuildStatus::FewPoints);
}

TEST(Build, wellsLeftOutAreTold)
{
    BuildInput input = fieldInput(true);
    const Point3 first = input.points->at(4);
    input.points->push_back(first);                             // the same again: nothing is lost
    input.points->push_back({first.x, first.y, first.z + 0.5}); // 201
    input.points->push_back({first.x + 5e-7, first.y, first.z - 0.5});
    EXPECT_EQ(buildContours(input, {}).leftOut, (std::vector<int>{201, 202}));
    input.points->resize(200);
    EXPECT_TRUE(buildContours(input, {}).leftOut.empty());
}

TEST(Build, refusedGridIsTold)
{
    BuildParameters p;
    p.method = Method::InverseDistance;
    EXPECT_FALSE(buildContours(fieldInput(true), p).gridRefused);
    BuildInput narrow = fieldInput(true);
    narrow.bounds = PointList{{0, 0, 0}, {1e6, 0, 0}, {1e6, 1, 0}, {0, 1, 0}};
    const BuildResult result = buildContours(narrow, p);
    EXPECT_TRUE(result.gridRefused);
    EXPECT_EQ(result.status, BuildStatus::Done);
    p.method = Method::Triangulation;
    EXPECT_FALSE(buildContours(narrow, p).gridRefused);
}

TEST(Build, boundaryBesideAllPointsIsOneRing)
{
    BuildInput input = fieldInput(false);
    input.bounds = PointList{{200, 200, 0}, {210, 200, 0}, {210, 210, 0}};
    const BuildResult result = buildContours(input, {});
    EXPECT_GE(result.contours.rings.size(), 1U);
}

TEST(Build, movedLevelsAreTheResults)
{
    BuildInput input = fieldInput(true);
    (*input.points)[7].z = 3.0;
    const BuildResult result = buildContours(input, {});
    EXPECT_EQ(result.levels[3], 3.0 - 0.001);
    EXPECT_EQ(result.contours.levels[3], 3.0 - 0.001);
}

TEST(Build, linesAreSmoothByDefault)
{
    BuildParameters p;
    const BuildResult smooth = buildContours(fieldInput(true), p);
    p.smoothLines = false;
    const BuildResult straight = buildContours(fieldInput(true), p);
    EXPECT_TRUE(smooth.contours.smoothed);
    EXPECT_FALSE(straight.contours.smoothed);
    EXPECT_EQ(smooth.contours.lines.size(), straight.contours.lines.size());
    EXPECT_GT(smooth.contours.lines[0].size(), 5 * straight.contours.lines[0].size());
    EXPECT_EQ(*smooth.contours.linePairs[0].traced, straight.contours.lines[0]);
}

TEST(Build, progressIsToldAndCancels)
{
    BuildParameters p;
    p.method = Method::InverseDistance;
    int calls = 0;
    BuildStep last = BuildStep::Prepare;
    const BuildResult whole = buildContours(fieldInput(true), p, [&](BuildStep step, double done) {
        ++calls;
        EXPECT_GE(done, 0.0);
        EXPECT_LE(done, 1.0);
        last = step;
        return true;
    });
    EXPECT_EQ(whole.status, BuildStatus::Done);
    EXPECT_EQ(last, BuildStep::Rings);
    ASSERT_GT(calls, 20);
    for (int stopAt = 1; stopAt <= calls; stopAt += 7) {
        int asked = 0;
        const BuildResult stopped =
            buildContours(fieldInput(true), p, [&](BuildStep, double) { return ++asked < stopAt; });
        EXPECT_EQ(stopped.status, BuildStatus::Cancelled);
        EXPECT_EQ(asked, stopAt); // never asked again
        EXPECT_TRUE(stopped.contours.lines.empty() && stopped.contours.rings.empty());
    }
}

TEST(Build, boundsThatAreNoNumbersDoNoHarm)
{
    BuildInput input = fieldInput(true);
    input.bounds->push_back({NAN, 3, 0});
    input.bounds->push_back({3, INFINITY, 0});
    EXPECT_EQ(buildContours(input, {}).boundary.size(), 4U);
}

} // namespace
