// The engine against its plain statement: equal output, to the last digit.

#include "hard_points.h"
#include "plain_contour_set.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

using contour::Isoline;
using geometry::Point3;
using geometry::PointList;

bool sameBits(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

bool sameBits(const Point3& a, const Point3& b)
{
    return sameBits(a.x, b.x) && sameBits(a.y, b.y) && sameBits(a.z, b.z);
}

void expectSame(const PointList& ours, const PointList& plain, const std::string& what)
{
    ASSERT_EQ(ours.size(), plain.size()) << what;
    for (std::size_t i = 0; i < ours.size(); ++i) {
        ASSERT_TRUE(sameBits(ours[i], plain[i]))
            << what << ", point " << i << ": " << ours[i].x << ' ' << ours[i].y << ' ' << ours[i].z << " against "
            << plain[i].x << ' ' << plain[i].y << ' ' << plain[i].z;
    }
}

void expectSame(const std::vector<PointList>& ours, const std::vector<PointList>& plain, const std::string& what)
{
    ASSERT_EQ(ours.size(), plain.size()) << what;
    for (std::size_t i = 0; i < ours.size(); ++i)
        ASSERT_NO_FATAL_FAILURE(expectSame(ours[i], plain[i], what + " " + std::to_string(i)));
}

void expectSame(const contour::SurfaceModel& ours, const reference::PlainSurface& plain, const std::string& step)
{
    ASSERT_NO_FATAL_FAILURE(expectSame(ours.points, plain.points, step + ": points"));
    ASSERT_NO_FATAL_FAILURE(expectSame(ours.rawPoints, plain.rawPoints, step + ": raw points"));
    ASSERT_NO_FATAL_FAILURE(expectSame(ours.boundary, plain.boundary, step + ": boundary"));
    ASSERT_NO_FATAL_FAILURE(expectSame(ours.vertices, plain.vertices, step + ": vertices"));
    ASSERT_EQ(ours.vertexCount, plain.vertexCount) << step;
    ASSERT_EQ(ours.triangleCount, plain.triangleCount) << step;
    ASSERT_TRUE(ours.triangles == plain.triangles) << step;
    ASSERT_EQ(ours.triangulated, plain.triangulated) << step;
}

// Step by step, so that a difference shows where it starts.
void compareSurfaces(const samples::Sample& sample)
{
    contour::SurfaceModel ours;
    reference::PlainSurface plain;
    ours.setPoints(*sample.input.points);
    plain.setPoints(*sample.input.points);
    ASSERT_NO_FATAL_FAILURE(expectSame(ours, plain, "set points"));
    if (sample.input.bounds) {
        ours.setBoundary(*sample.input.bounds, sample.input.exactEdges);
        plain.setBoundary(*sample.input.bounds, sample.input.exactEdges);
        ASSERT_NO_FATAL_FAILURE(expectSame(ours, plain, "set boundary"));
    }
    ours.prepare();
    plain.prepare();
    ASSERT_NO_FATAL_FAILURE(expectSame(ours, plain, "prepare"));
    ASSERT_EQ(ours.triangulate(), plain.triangulate());
    ASSERT_NO_FATAL_FAILURE(expectSame(ours, plain, "triangulate"));
    ASSERT_EQ(ours.boundaryFromHull(), plain.boundaryFromHull());
    ASSERT_NO_FATAL_FAILURE(expectSame(ours, plain, "hull"));
    ASSERT_TRUE(sameBits(ours.longestEdge(), plain.longestEdge()));
}

void compareBuilds(const samples::Sample& sample)
{
    const contour::BuildResult ours = buildContours(sample.input, sample.parameters);
    const reference::PlainBuild plain = reference::plainBuild(sample.input, sample.parameters);
    ASSERT_EQ(ours.status, plain.status);
    ASSERT_EQ(ours.statistics.triangleCount, plain.surface.triangleCount);
    ASSERT_EQ(ours.statistics.pointCount, static_cast<int>(plain.surface.points.size()));
    ASSERT_EQ(ours.levels.size(), plain.levels.size());
    for (std::size_t i = 0; i < ours.levels.size(); ++i)
        ASSERT_TRUE(sameBits(ours.levels[i], plain.levels[i])) << "level " << i;
    const contour::IsoContourSet& set = ours.contours;
    ASSERT_NO_FATAL_FAILURE(expectSame(ours.boundary, plain.surface.boundary, "boundary"));
    ASSERT_NO_FATAL_FAILURE(expectSame(set.lines, plain.contours.lines, "line"));
    ASSERT_NO_FATAL_FAILURE(expectSame(set.smoothedLines, plain.contours.smoothedLines, "smoothed line"));
    ASSERT_NO_FATAL_FAILURE(expectSame(set.surfacePoints, plain.contours.surfacePoints, "surface points"));
    ASSERT_NO_FATAL_FAILURE(expectSame(set.closedRings, plain.contours.closedRings, "closed ring"));
    ASSERT_NO_FATAL_FAILURE(expectSame(set.rings, plain.contours.rings, "ring"));
    ASSERT_EQ(set.ringsBuilt, plain.contours.ringsBuilt);
    const auto bands = set.groupByBand();
    const auto plainBands = plain.contours.groupByBand();
    ASSERT_EQ(bands.size(), plainBands.size());
    for (std::size_t i = 0; i < bands.size(); ++i)
        ASSERT_NO_FATAL_FAILURE(expectSame(bands[i], plainBands[i], "band " + std::to_string(i)));
}

class Agreement : public testing::TestWithParam<int> { };

// Twenty seeds a case: 420 sets in all.
TEST_P(Agreement, surfaceOfEverySeed)
{
    for (int i = 0; i < 20; ++i) {
        const samples::Sample sample = samples::sampleOf(static_cast<std::uint32_t>(GetParam() * 20 + i));
        SCOPED_TRACE(sample.name);
        ASSERT_NO_FATAL_FAILURE(compareSurfaces(sample));
    }
}

TEST_P(Agreement, wholeBuildOfEverySeed)
{
    for (int i = 0; i < 20; ++i) {
        const samples::Sample sample = samples::sampleOf(static_cast<std::uint32_t>(GetParam() * 20 + i));
        SCOPED_TRACE(sample.name);
        ASSERT_NO_FATAL_FAILURE(compareBuilds(sample));
    }
}

// Large enough for the index to be filled anew many times, for holes of many
// edges, and for lines and rings that have an index of their own.
TEST(AgreementOfLargeSets, everyKind)
{
    for (int kind = 0; kind < samples::kPointKinds; ++kind) {
        samples::Random random(static_cast<std::uint32_t>(900 + kind));
        samples::Sample sample;
        sample.name = "large, kind " + std::to_string(kind);
        sample.input.points = samples::pointsOfKind(kind, random, 900);
        sample.input.levels = {-4, -2, 0, 1, 2, 3.5};
        sample.parameters.calculateBoundary = true;
        sample.parameters.smoothLines = kind % 2 == 0;
        SCOPED_TRACE(sample.name);
        ASSERT_NO_FATAL_FAILURE(compareSurfaces(sample));
        ASSERT_NO_FATAL_FAILURE(compareBuilds(sample));
    }
}

TEST(AgreementOfLargeSets, smoothFieldWithBorderAndExactEdges)
{
    for (bool exact : {false, true}) {
        samples::Sample sample;
        sample.input.points = samples::smoothField(5, 1500, 1000.0);
        PointList bounds;
        for (int i = 0; i < 40; ++i)
            bounds.push_back(
                {500 + (i % 2 ? 430 : 380) * std::cos(i * 0.157), 500 + (i % 2 ? 430 : 380) * std::sin(i * 0.157), 0});
        sample.input.bounds = bounds;
        sample.input.exactEdges = exact;
        sample.input.levels = {-9, -6, -3, 0, 3, 6, 9};
        ASSERT_NO_FATAL_FAILURE(compareSurfaces(sample));
        ASSERT_NO_FATAL_FAILURE(compareBuilds(sample));
    }
}

// Sets whose holes are mended by exact figures, and doubled places.
TEST(AgreementOfHardSets, everyKind)
{
    for (int i = 0; i < 16 * samples::kHardKinds; ++i) {
        samples::Random random(static_cast<std::uint32_t>(4000 + i));
        samples::Sample sample = samples::sampleOf(static_cast<std::uint32_t>(i));
        const int kind = i % samples::kHardKinds;
        sample.input.points =
            samples::hardPoints(kind, random, 4 + random.below(i < 2 * samples::kHardKinds ? 400 : 70));
        sample.parameters.method = contour::Method::Triangulation;
        SCOPED_TRACE("hard kind " + std::to_string(kind) + ", number " + std::to_string(i));
        ASSERT_NO_FATAL_FAILURE(compareSurfaces(sample));
        ASSERT_NO_FATAL_FAILURE(compareBuilds(sample));
    }
}

// Rows, whose triangles are flat: enough of them for the tree to be asked again
// about triangles that have outlived the first look. And one set that stands on
// its side, so that its rows are columns.
TEST(AgreementOfHardSets, longRowsAndColumns)
{
    for (int kind : {3, 4, 7, 9}) {
        samples::Random random(static_cast<std::uint32_t>(7100 + kind));
        samples::Sample sample;
        sample.input.points = samples::hardPoints(kind, random, 1300);
        SCOPED_TRACE("hard kind " + std::to_string(kind));
        ASSERT_NO_FATAL_FAILURE(compareSurfaces(sample));
        for (Point3& p : *sample.input.points)
            std::swap(p.x, p.y);
        ASSERT_NO_FATAL_FAILURE(compareSurfaces(sample));
    }
}

// Triangles between the row and the outer corners wait for the heap beyond it,
// longer than the tree was asked about at first.
TEST(AgreementOfHardSets, heapBeyondALongRow)
{
    samples::Random random(7300);
    samples::Sample sample;
    PointList points;
    for (int i = 0; i < 800; ++i)
        points.push_back({0.00005 * i, 0.00003 * i, random.in(-5, 5)});
    for (int i = 0; i < 40; ++i)
        points.push_back({random.in(90, 200), random.in(-300, 400), random.in(-5, 5)});
    sample.input.points = points;
    compareSurfaces(sample);
}

// Their columns are long enough to be inserted in halves, some places are doubled.
TEST(AgreementOfLargeSets, longColumns)
{
    for (bool grid : {false, true}) {
        samples::Random random(7400);
        samples::Sample sample;
        PointList points;
        const int rows = grid ? 36 : 100;
        for (int i = 0; i < 1200; ++i)
            points.push_back({7.5 * (i / rows), 0.5 * (i % rows) + (grid ? 0.0 : random.in(0, 0.4)), random.in(-5, 5)});
        for (int i = 0; i < 40; ++i) {
            Point3 p = points[static_cast<std::size_t>(random.below(1200))];
            p.z += i % 2 ? 1.0 : 0.0;
            points.push_back(p);
        }
        sample.input.points = points;
        sample.input.levels = {-4, -2, 0, 2, 4};
        sample.parameters.calculateBoundary = true;
        ASSERT_NO_FATAL_FAILURE(compareSurfaces(sample));
        ASSERT_NO_FATAL_FAILURE(compareBuilds(sample));
    }
}

// Lines of one level are chained for themselves where no other level is near.
TEST(AgreementOfLevels, apartNearEqualAndInAnyOrder)
{
    const std::vector<std::vector<double>> lists{{-2, 0, 2, 4},      {4, -2, 2, 0}, {1, 2, 1},   {1, 1 + 5e-7, 3},
                                                 {3, 1 + 1.5e-6, 1}, {2, 2, 2},     {NAN, 1, 2}, {}};
    for (std::size_t i = 0; i < lists.size(); ++i) {
        SCOPED_TRACE("list " + std::to_string(i));
        samples::Sample sample;
        sample.input.points = samples::smoothField(21, 250, 100.0);
        sample.input.levels = lists[i];
        sample.parameters.calculateBoundary = true;
        ASSERT_NO_FATAL_FAILURE(compareBuilds(sample));
    }
}

// The kinds of sets and options above are no good if some never come up.
TEST(AgreementSamples, coverEveryOption)
{
    int grids = 0, hulls = 0, exact = 0, filters = 0, refines = 0, smooth = 0, closed = 0, open = 0;
    for (std::uint32_t seed = 0; seed < 420; ++seed) {
        const samples::Sample sample = samples::sampleOf(seed);
        grids += sample.parameters.method == contour::Method::InverseDistance;
        hulls += !sample.input.bounds;
        exact += sample.input.bounds && sample.input.exactEdges;
        filters += sample.parameters.filterLines;
        refines += sample.parameters.refineLines;
        smooth += sample.parameters.smoothLines;
        const contour::BuildResult result = buildContours(sample.input, sample.parameters);
        closed += !result.contours.closedRings.empty();
        open += result.contours.rings.size() > result.contours.closedRings.size() + 1;
    }
    EXPECT_GE(grids, 40);
    EXPECT_GE(hulls, 60);
    EXPECT_GE(exact, 60);
    EXPECT_GE(filters, 100);
    EXPECT_GE(refines, 100);
    EXPECT_GE(smooth, 150);
    EXPECT_GE(closed, 100);
    EXPECT_GE(open, 150);
}

INSTANTIATE_TEST_SUITE_P(Seeds, Agreement, testing::Range(0, 21));

} // namespace
