// Which ends of segments meet, and lines chained with that known.

#include "analysis/contour/near_ends.h"
#include "plain_surface.h"
#include "samples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

namespace {

using contour::ContourSegment;
using contour::NearEnds;
using geometry::Point3;

ContourSegment between(double x0, double y0, double x1, double y1) { return {{x0, y0, 1}, {x1, y1, 1}}; }

TEST(NearEnds, oneOtherNoneAndSeveral)
{
    const std::vector<ContourSegment> segments{between(0, 0, 1, 0), between(2, 0, 1 + 9e-7, 0), between(2, 0, 3, 0),
                                               between(3, 0, 4, 0), between(5, 0, 3, 0)};
    const NearEnds near(segments);
    ASSERT_TRUE(near.areTold());
    EXPECT_EQ(near.of(0), NearEnds::kNone);
    EXPECT_EQ(near.of(1), 3);
    EXPECT_EQ(near.of(3), 1);
    EXPECT_EQ(near.of(2), 4);
    EXPECT_EQ(near.of(4), 2);
    for (int end : {5, 6, 9})
        EXPECT_EQ(near.of(end), NearEnds::kSeveral) << end;
    EXPECT_EQ(near.of(7), NearEnds::kNone);
}

TEST(NearEnds, ownOtherEndDoesNotCount)
{
    const std::vector<ContourSegment> segments{between(0, 0, 5e-7, 0), between(7, 0, 8, 0)};
    EXPECT_EQ(NearEnds(segments).of(0), NearEnds::kNone);
    EXPECT_EQ(NearEnds(segments).of(1), NearEnds::kNone);
}

TEST(NearEnds, distanceIsInSpace)
{
    std::vector<ContourSegment> segments{between(0, 0, 1, 0), between(1, 0, 2, 0)};
    segments[1].start.z = segments[1].end.z = 1.000002;
    EXPECT_EQ(NearEnds(segments).of(1), NearEnds::kNone);
}

// Many ends of one x are told by y, and many at one place not at all.
TEST(NearEnds, manyOfOneXAndManyAtOnePlace)
{
    std::vector<ContourSegment> column;
    for (int i = 0; i < 500; ++i)
        column.push_back(between(0, i, 0, i + 1));
    const NearEnds told(column);
    ASSERT_TRUE(told.areTold());
    EXPECT_EQ(told.of(0), NearEnds::kNone);
    for (int i = 1; i < 500; ++i)
        ASSERT_EQ(told.of(2 * i), 2 * i - 1);

    std::vector<ContourSegment> star;
    for (int i = 0; i < 500; ++i)
        star.push_back(between(0, 0, 10 * std::cos(i * 0.01), 10 * std::sin(i * 0.01)));
    const NearEnds untold(star);
    EXPECT_FALSE(untold.areTold());
    EXPECT_EQ(untold.of(1), NearEnds::kSeveral);
}

TEST(NearEnds, placesBeyondMeasureAreNotTold)
{
    EXPECT_FALSE(NearEnds({between(0, 0, INFINITY, 0)}).areTold());
    EXPECT_FALSE(NearEnds({between(0, NAN, 1, 0)}).areTold());
}

void expectPlainChains(const std::vector<ContourSegment>& segments, samples::Random& random)
{
    contour::SegmentList list;
    std::vector<std::size_t> stored(segments.size());
    std::iota(stored.begin(), stored.end(), std::size_t{0});
    for (std::size_t i = stored.size(); i > 1; --i)
        std::swap(stored[i - 1], stored[static_cast<std::size_t>(random.below(static_cast<int>(i)))]);
    list.listed.resize(segments.size());
    for (std::size_t number = 0; number < stored.size(); ++number) {
        list.segments.push_back(segments[stored[number]]);
        list.listed[stored[number]] = static_cast<std::int32_t>(number);
    }
    const std::vector<contour::Isoline> ours = chainSegments(list);
    const std::vector<contour::Isoline> plain = reference::chained(segments);
    ASSERT_EQ(ours.size(), plain.size());
    for (std::size_t i = 0; i < ours.size(); ++i)
        ASSERT_EQ(ours[i], plain[i]) << "line " << i;
}

// Walks over a lattice, small ones with many ends at a place, some a little off
// it; pieces of them in any order.
TEST(NearEnds, chainsAreThoseOfThePlainStatement)
{
    int told = 0;
    int untold = 0;
    for (std::uint32_t seed = 0; seed < 400; ++seed) {
        samples::Random random(seed + 31);
        const int side = 2 + random.below(seed % 2 ? 3 : 40);
        const double off = random.chance(0.5) ? 6e-7 : 0.0;
        const auto place = [&](int x, int y) -> Point3 {
            return {x + random.in(-off, off), y + random.in(-off, off), 1.0};
        };
        std::vector<ContourSegment> segments;
        for (int i = random.below(120); i >= 0; --i) {
            const int x = random.below(side);
            const int y = random.below(side);
            const Point3 from = place(x, y);
            const Point3 to = random.chance(0.5) ? place(x + 1, y) : place(x, random.chance(0.1) ? y : y + 1);
            segments.push_back(random.chance(0.5) ? ContourSegment{from, to} : ContourSegment{to, from});
        }
        (NearEnds(segments).areTold() ? told : untold)++;
        SCOPED_TRACE("seed " + std::to_string(seed));
        ASSERT_NO_FATAL_FAILURE(expectPlainChains(segments, random));
    }
    EXPECT_GT(told, 100);
    EXPECT_GT(untold, 10);
}

} // namespace
