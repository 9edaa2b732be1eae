#include "kinds.h"

#include "samples.h"

#include <cmath>

namespace kinds {

namespace {

constexpr double kSide = 1000.0;
constexpr double kTurn = 6.283185307179586;

double shareOf(std::size_t i, std::size_t n) { return kSide * static_cast<double>(i) / static_cast<double>(n); }

double valueAlong(double t) { return 9 * std::sin(t * 0.05); }

} // namespace

PointList smooth(std::size_t n) { return samples::smoothField(1, static_cast<int>(n), kSide); }

PointList noise(std::size_t n)
{
    PointList points = smooth(n);
    samples::Random random(5);
    for (geometry::Point3& p : points)
        p.z = random.in(-12, 12);
    return points;
}

PointList grid(std::size_t n)
{
    const int side = static_cast<int>(std::lround(std::sqrt(static_cast<double>(n))));
    PointList points;
    for (int i = 0; i < side; ++i)
        for (int j = 0; j < side; ++j)
            points.push_back({i * 1.0, j * 1.0, 9 * std::sin(i * 0.05) * std::cos(j * 0.03)});
    return points;
}

PointList stacked(std::size_t n)
{
    PointList points;
    samples::Random random(6);
    for (std::size_t i = 0; i < n; ++i)
        points.push_back({random.in(-0.001, 0.001), shareOf(i, n), valueAlong(shareOf(i, n))});
    return points;
}

PointList slanted(std::size_t n)
{
    PointList points;
    for (std::size_t i = 0; i < n; ++i)
        points.push_back({shareOf(i, n), 0.3 * shareOf(i, n), valueAlong(shareOf(i, n))});
    points.push_back({500, 900, 1});
    points.push_back({400, -500, 2});
    return points;
}

PointList level(std::size_t n)
{
    PointList points;
    samples::Random random(7);
    for (std::size_t i = 0; i < n; ++i)
        points.push_back({shareOf(i, n), random.in(-0.001, 0.001), valueAlong(shareOf(i, n))});
    return points;
}

PointList edges(std::size_t n)
{
    PointList points;
    for (std::size_t i = 0; i < n / 2; ++i) {
        points.push_back({shareOf(i, n), 0.0, valueAlong(shareOf(i, n))});
        points.push_back({shareOf(i, n), 7.0, valueAlong(shareOf(i, n) + 3)});
    }
    return points;
}

PointList boreholes(std::size_t n)
{
    PointList points;
    for (std::size_t i = 0; i < n; ++i) {
        const double well = static_cast<double>(i % 20);
        const double depth = -0.5 * static_cast<double>(i / 20);
        points.push_back({well * 10.0, depth, 9 * std::sin(well * 0.5) * std::cos(depth * 0.006)});
    }
    return points;
}

PointList circle(std::size_t n)
{
    PointList points;
    for (std::size_t i = 0; i < n; ++i) {
        const double angle = kTurn * static_cast<double>(i) / static_cast<double>(n);
        points.push_back({500 + 400 * std::cos(angle), 500 + 400 * std::sin(angle), 9 * std::sin(3 * angle)});
    }
    return points;
}

PointList longBorder(std::size_t)
{
    PointList border;
    for (int i = 0; i < 500; ++i) {
        const double angle = kTurn * i / 500;
        const double radius = i % 2 ? 430 : 410;
        border.push_back({500 + radius * std::cos(angle), 500 + radius * std::sin(angle), 0});
    }
    return border;
}

} // namespace kinds
