#include "geometry/point_tree.h"
#include "geometry/tolerance_grid.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using namespace geometry;

struct Cloud {
    PointList points;
    std::mt19937 random;
    bool whole;

    Cloud(unsigned seed, std::size_t count) : random(seed), whole(seed % 2 == 1)
    {
        for (std::size_t i = 0; i < count; ++i)
            points.push_back(place());
    }

    double coordinate()
    {
        const double v = static_cast<double>(random()) / 4294967296.0 * 8.0;
        return whole ? std::floor(v) : v;
    }
    Point3 place() { return {coordinate(), coordinate(), coordinate()}; }
};

TEST(PointTree, nearestIsThatOfThePlainLoop)
{
    for (unsigned seed = 0; seed < 60; ++seed) {
        Cloud cloud(seed, seed % 7 == 0 ? seed % 3 : 150);
        const PointTree tree(cloud.points);
        for (int i = 0; i < 50; ++i) {
            const Point3 p = cloud.place();
            const double limit = i % 3 == 0 ? 0.7 : 100.0;
            const int indexLimit = i % 2 ? PointTree::kAll : 60;
            int best = -1;
            double distance = limit;
            for (int j = 0; j < std::min(indexLimit, int(cloud.points.size())); ++j) {
                const double d = planDistance(cloud.points[j], {p.x, p.y, 0});
                if (d < distance) {
                    distance = d;
                    best = j;
                }
            }
            const PointTree::Nearest found = tree.nearest(p.x, p.y, limit, indexLimit);
            ASSERT_EQ(found.index, best);
            for (int j = 0; j < std::min(indexLimit, int(cloud.points.size())); ++j) {
                if (j != best && best >= 0) {
                    ASSERT_LE(found.nextDistance, planDistance(cloud.points[j], {p.x, p.y, 0}));
                }
            }
        }
    }
}

TEST(PointTree, neighboursAreByManhattanThenByIndex)
{
    for (unsigned seed = 0; seed < 40; ++seed) {
        Cloud cloud(seed, 100);
        const PointTree tree(cloud.points);
        const Point3 p = cloud.place();
        std::vector<std::pair<double, int>> all;
        for (int j = 0; j < 100; ++j)
            all.push_back({std::fabs(cloud.points[j].x - p.x) + std::fabs(cloud.points[j].y - p.y), j});
        std::sort(all.begin(), all.end());
        std::vector<int> found;
        for (std::size_t k : {1U, 7U, 100U, 200U}) {
            tree.nearestByManhattan(p.x, p.y, k, &found);
            ASSERT_EQ(found.size(), std::min<std::size_t>(k, 100));
            for (std::size_t i = 0; i < found.size(); ++i)
                ASSERT_EQ(found[i], all[i].second);
        }
    }
}

TEST(PointTree, firstInBoxGoesByIndexAndForgetsTheRemoved)
{
    Cloud cloud(4, 200);
    PointTree tree(cloud.points);
    const PointTree::Box box{2, 5, 2, 5, 0, 0};
    std::vector<int> expected;
    for (int i = 0; i < 200; ++i) {
        const Point3& p = cloud.points[i];
        if (p.x >= 2 && p.x <= 5 && p.y >= 2 && p.y <= 5)
            expected.push_back(i);
    }
    ASSERT_GT(expected.size(), 10U);
    std::vector<int> seen;
    EXPECT_EQ(tree.firstInBox(box,
                              [&](int i) {
                                  seen.push_back(i);
                                  return false;
                              }),
              -1);
    EXPECT_EQ(seen, expected);
    for (int index : expected) {
        EXPECT_EQ(tree.firstInBox(box, [](int) { return true; }), index);
        tree.remove(index);
    }
    EXPECT_EQ(tree.firstInBox(box, [](int) { return true; }), -1);
}

TEST(PointTree, smallestTakesTheFirstOfEquals)
{
    PointTree tree({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}});
    const auto bound = [](const PointTree::Box&) { return 0.0; };
    const double values[] = {5, 2, 2, 7};
    EXPECT_EQ(tree.smallest(bound, [&](int i) { return values[i]; }), 1);
    tree.remove(1);
    EXPECT_EQ(tree.smallest(bound, [&](int i) { return values[i]; }), 2);
    EXPECT_EQ(tree.smallest(bound, [](int) { return INFINITY; }), -1);
    EXPECT_EQ(PointTree({}).smallest(bound, [](int) { return 0.0; }), -1);
}

TEST(ToleranceGrid, findsEveryNearPoint)
{
    std::mt19937 random(9);
    for (double origin : {0.0, -3.2e-5, 5080000.0, 1e9, 1e12, 1e300}) {
        for (int i = 0; i < 2000; ++i) {
            const auto jitter = [&] { return (static_cast<double>(random()) / 4294967296.0 - 0.5) * 2e-6; };
            const double base = origin + static_cast<double>(random() % 100) * 1e-6;
            const Point3 a{base, base, base};
            const Point3 b{base + jitter(), base + jitter(), base + jitter()};
            if (!(distance(a, b) < GEOM_TOL))
                continue;
            ToleranceGrid grid(1);
            grid.add(a, 0);
            bool found = false;
            grid.chainsNear(b, [&](std::int32_t head) { found = found || head == 0; });
            ASSERT_TRUE(found) << origin;
        }
    }
}

} // namespace
