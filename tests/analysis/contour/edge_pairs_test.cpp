#include "analysis/contour/edge_pairs.h"

#include <gtest/gtest.h>

namespace {

using contour::Edge;
using contour::EdgePairs;

// Which of the edges are left, by their places in the list.
std::vector<std::size_t> left(EdgePairs& pairs, std::vector<Edge> edges)
{
    pairs.drop(&edges);
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < edges.size(); ++i) {
        if (!edges[i].isDropped())
            places.push_back(i);
    }
    return places;
}

TEST(EdgePairs, bothCopiesGoInEitherDirection)
{
    EdgePairs pairs;
    EXPECT_EQ(left(pairs, {{1, 2}, {2, 3}, {2, 1}, {3, 1}, {2, 3}}), (std::vector<std::size_t>{3}));
    EXPECT_TRUE(left(pairs, {}).empty());
}

TEST(EdgePairs, ofThreeTheLastStays)
{
    EdgePairs pairs;
    EXPECT_EQ(left(pairs, {{1, 2}, {2, 1}, {5, 6}, {1, 2}}), (std::vector<std::size_t>{2, 3}));
}

// Long lists go through a table that is used again and again.
TEST(EdgePairs, longListsAreJudgedAlike)
{
    EdgePairs pairs;
    for (int round = 0; round < 3; ++round) {
        for (std::int32_t count : {10, 40, 900, 25}) {
            std::vector<Edge> edges;
            for (std::int32_t i = 0; i < count; ++i)
                edges.push_back({i, i + 1});
            for (std::int32_t i = 0; i < count; i += 2)
                edges.push_back({i + 1, i});
            edges.push_back({0, 1}); // the third of its kind
            std::vector<std::size_t> expected;
            for (std::int32_t i = 1; i < count; i += 2)
                expected.push_back(static_cast<std::size_t>(i));
            expected.push_back(edges.size() - 1);
            EXPECT_EQ(left(pairs, edges), expected);
        }
    }
}

} // namespace
