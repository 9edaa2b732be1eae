#include "geometry/arc.h"

#include <gtest/gtest.h>
#include <random>

namespace {

using namespace geometry;

// How far the chord between two points of a circle leaves it.
double sagitta(const Point3& a, const Point3& b, const Point3& center, double radius)
{
    return radius - planDistance(between(a, b, 0.5), center);
}

TEST(Arc, straightOnesGiveTheEndAlone)
{
    EXPECT_EQ(arcPoints({0, 0, 1}, {5, 0, 2}, 0.0), (PointList{{5, 0, 2}}));
    EXPECT_EQ(arcPoints({0, 0, 0}, {5, 0, 0}, NAN), (PointList{{5, 0, 0}}));
    EXPECT_EQ(arcPoints({0, 0, 0}, {5, 0, 0}, INFINITY), (PointList{{5, 0, 0}}));
    EXPECT_EQ(arcPoints({5, 0, 0}, {5, 0, 0}, 1.0), (PointList{{5, 0, 0}}));
}

TEST(Arc, smallOnesHaveEightChordsAFullTurn)
{
    // Half a turn, counter-clockwise from (1, 0) over (0, 1) to (-1, 0), so
    // small that its chords leave it by less than a millimetre all the same.
    const PointList half = arcPoints({0.001, 0, 0}, {-0.001, 0, 0}, 1.0);
    ASSERT_EQ(half.size(), 4U);
    EXPECT_NEAR(half[1].x, 0.0, 1e-12);
    EXPECT_NEAR(half[1].y, 0.001, 1e-12);
    EXPECT_EQ(arcPoints({0.001, 0, 0}, {0, 0.001, 0}, std::tan(M_PI / 8)).size(), 2U);
}

TEST(Arc, aNegativeBulgeRunsClockwise)
{
    const PointList half = arcPoints({0.001, 0, 0}, {-0.001, 0, 0}, -1.0);
    ASSERT_EQ(half.size(), 4U);
    EXPECT_NEAR(half[1].y, -0.001, 1e-12);
}

TEST(Arc, elevationsGoInProportion)
{
    const PointList half = arcPoints({0.001, 0, 0}, {-0.001, 0, 8}, 1.0);
    ASSERT_EQ(half.size(), 4U);
    EXPECT_EQ(half[0].z, 2.0);
    EXPECT_EQ(half[3].z, 8.0);
}

TEST(Arc, aCircleOfTenMetresKeepsItsChordsWithinAMillimetre)
{
    const PointList half = arcPoints({10, 0, 0}, {-10, 0, 0}, 1.0);
    // The widest step is 4 asin(sqrt(0.001 / 20)), 111.1 of them make half a turn.
    EXPECT_EQ(half.size(), 112U);
}

TEST(Arc, anyArcStaysWithinAMillimetreAndEndsExactly)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(-500.0, 500.0);
    std::uniform_real_distribution<double> bulges(-6.0, 6.0);
    for (int i = 0; i < 300; ++i) {
        const Point3 from{place(random), place(random), 0};
        const Point3 to{place(random), place(random), 0};
        const double bulge = bulges(random);
        const double chord = planDistance(from, to);
        const double radius = chord * (1 + bulge * bulge) / (4 * std::fabs(bulge));
        const double offset = (1 - bulge * bulge) / (4 * bulge);
        const Point3 center{(from.x + to.x) / 2 - (to.y - from.y) * offset,
                            (from.y + to.y) / 2 + (to.x - from.x) * offset, 0};
        const PointList points = arcPoints(from, to, bulge);
        EXPECT_EQ(points.back(), to);
        double length = 0.0;
        Point3 last = from;
        for (const Point3& p : points) {
            EXPECT_NEAR(planDistance(p, center), radius, 1e-6 * radius);
            EXPECT_LE(sagitta(last, p, center, radius), 0.001 + 1e-9 * radius);
            length += planDistance(last, p);
            last = p;
        }
        EXPECT_NEAR(length, radius * std::fabs(4 * std::atan(bulge)), 1e-2 + 1e-3 * length);
        EXPECT_GE(double(points.size()), std::fabs(4 * std::atan(bulge)) / (2 * M_PI) * 8 - 1e-6);
    }
}

TEST(Arc, oneBeyondAllDrawingsIsBounded) { EXPECT_LE(arcPoints({0, 0, 0}, {1e12, 0, 0}, 1.0).size(), 1000000U); }

} // namespace
