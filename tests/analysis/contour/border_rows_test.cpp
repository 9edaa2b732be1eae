#include "analysis/contour/border_rows.h"
#include "geometry/polygon.h"
#include "samples.h"

#include <gtest/gtest.h>

namespace {

using contour::BorderRows;
using geometry::PointList;

void expectPlainAnswers(const PointList& border, samples::Random& random)
{
    const BorderRows rows(border);
    int inside = 0;
    for (int i = 0; i < 400; ++i) {
        double x = random.in(-2, 12);
        double y = random.in(-2, 12);
        // Heights of corners are where sides begin and end.
        if (i % 3 == 0 && !border.empty())
            y = border[static_cast<std::size_t>(random.below(static_cast<int>(border.size())))].y;
        if (i % 5 == 0)
            x = std::round(x);
        ASSERT_EQ(rows.insideEvenOdd(x, y), geometry::insideEvenOdd(x, y, border)) << x << ' ' << y;
        inside += rows.insideEvenOdd(x, y) ? 1 : 0;
    }
    if (border.size() > 20) {
        EXPECT_GT(inside, 20);
    }
}

TEST(BorderRows, answerAsThePlainRule)
{
    samples::Random random(31);
    for (int corners : {0, 1, 2, 3, 4, 30, 300}) {
        for (int set = 0; set < 6; ++set) {
            PointList border;
            for (int i = 0; i < corners; ++i)
                border.push_back({random.in(0, 10), set % 2 ? std::round(random.in(0, 10)) : random.in(0, 10), 0});
            SCOPED_TRACE(std::to_string(corners) + " corners, set " + std::to_string(set));
            expectPlainAnswers(border, random);
        }
    }
}

// All sides level, or no extent at all.
TEST(BorderRows, flatBordersHoldNothing)
{
    samples::Random random(32);
    expectPlainAnswers({{0, 3, 0}, {10, 3, 0}, {5, 3, 0}}, random);
    expectPlainAnswers({{4, 4, 0}, {4, 4, 0}, {4, 4, 0}}, random);
}

} // namespace
