#include "geometry/exact_signs.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>

namespace {

using geometry::placeInCircle;
using geometry::Point3;
using geometry::turnOf;

int signOf(std::int64_t v) { return v > 0 ? 1 : v < 0 ? -1 : 0; }

TEST(Turn, leftRightAndStraight)
{
    EXPECT_EQ(turnOf({0, 0, 0}, {1, 0, 0}, {2, 1e-300, 0}), 1);
    EXPECT_EQ(turnOf({0, 0, 0}, {1, 0, 0}, {2, -1e-300, 0}), -1);
    EXPECT_EQ(turnOf({0, 0, 0}, {1, 0, 0}, {7, 0, 0}), 0);
    EXPECT_EQ(turnOf({3, 3, 0}, {3, 3, 0}, {7, 1, 0}), 0);
}

// (12, 12) and (24, 24) lie on the line exactly; the place beside them moves by
// single steps of a double.
TEST(Turn, seesTheLastDigit)
{
    const double step = std::nextafter(0.5, 1.0) - 0.5;
    for (int i = -20; i <= 20; ++i) {
        for (int j = -20; j <= 20; ++j) {
            const Point3 p{0.5 + i * step, 0.5 + j * step, 0};
            ASSERT_EQ(turnOf(p, {12, 12, 0}, {24, 24, 0}), i == j ? 0 : i < j ? 1 : -1) << i << ' ' << j;
        }
    }
}

TEST(Turn, neverContradictsItself)
{
    std::mt19937 engine(7);
    for (int i = 0; i < 20000; ++i) {
        const double t = engine() / 4294967296.0;
        const double s = engine() / 4294967296.0;
        const Point3 a{330000.1, 5080000.3, 0};
        const Point3 b{330017.7, 5080041.9, 0};
        const Point3 p = geometry::between(a, b, t);
        const Point3 q = geometry::between(a, b, s);
        ASSERT_EQ(turnOf(a, p, q), turnOf(p, q, a));
        ASSERT_EQ(turnOf(a, p, q), -turnOf(p, a, q));
    }
}

TEST(Turn, hugeTinyAndNoNumbers)
{
    EXPECT_EQ(turnOf({0, 0, 0}, {1e300, 1e300, 0}, {1e300, -1e300, 0}), -1);
    EXPECT_EQ(turnOf({0, 0, 0}, {1e-200, 0, 0}, {0, 1e-200, 0}), 1);
    EXPECT_EQ(turnOf({0, 0, 0}, {NAN, 0, 0}, {0, 1, 0}), 0);
    EXPECT_EQ(turnOf({0, 0, 0}, {INFINITY, 0, 0}, {0, 1, 0}), 0);
}

TEST(Circle, insideOnAndOutside)
{
    for (const Point3& b : {Point3{0, 5, 0}, Point3{0, -5, 0}}) { // either hand
        EXPECT_EQ(placeInCircle({5, 0, 0}, b, {-5, 0, 0}, {3, 4, 0}), 0);
        EXPECT_EQ(placeInCircle({5, 0, 0}, b, {-5, 0, 0}, {-3, -4, 0}), 0);
        EXPECT_EQ(placeInCircle({5, 0, 0}, b, {-5, 0, 0}, {3, std::nextafter(4.0, 0.0), 0}), 1);
        EXPECT_EQ(placeInCircle({5, 0, 0}, b, {-5, 0, 0}, {3, std::nextafter(4.0, 9.0), 0}), -1);
    }
    EXPECT_EQ(placeInCircle({0, 0, 0}, {1, 1, 0}, {2, 2, 0}, {1, 0, 0}), 0); // no circle
    EXPECT_EQ(placeInCircle({0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {NAN, 0, 0}), 0);
}

// Whole numbers, where 64 bits hold every product.
TEST(Circle, agreesWithWholeNumbers)
{
    std::mt19937 engine(3);
    const auto whole = [&engine] { return static_cast<std::int64_t>(engine() % 41) - 20; };
    int ties = 0;
    for (int i = 0; i < 200000; ++i) {
        std::int64_t x[4], y[4], lift[3];
        for (int k = 0; k < 4; ++k) {
            x[k] = whole();
            y[k] = whole();
        }
        const auto at = [&](int k) {
            // An offset that leaves no digit to spare.
            return Point3{4e15 + static_cast<double>(x[k]), -3e15 + static_cast<double>(y[k]), 0};
        };
        const std::int64_t turn = (x[0] - x[2]) * (y[1] - y[2]) - (y[0] - y[2]) * (x[1] - x[2]);
        ASSERT_EQ(turnOf(at(0), at(1), at(2)), signOf(turn));
        for (int k = 0; k < 3; ++k) {
            x[k] -= x[3];
            y[k] -= y[3];
            lift[k] = x[k] * x[k] + y[k] * y[k];
        }
        x[3] = y[3] = 0;
        const std::int64_t inside = lift[0] * (x[1] * y[2] - y[1] * x[2]) + lift[1] * (x[2] * y[0] - y[2] * x[0])
            + lift[2] * (x[0] * y[1] - y[0] * x[1]);
        ties += inside == 0 && turn != 0;
        ASSERT_EQ(placeInCircle(at(0), at(1), at(2), at(3)), signOf(turn) * signOf(inside));
    }
    EXPECT_GT(ties, 100);
}

} // namespace
