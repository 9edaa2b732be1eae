#include "geometry/arc.h"

#include <algorithm>

namespace geometry {

namespace {

constexpr double turn = 6.283185307179586;
// An arc beyond all drawings must not eat up the memory.
constexpr double mostChords = 1e6;

// A chord over the angle a leaves its arc by r (1 - cos(a / 2)), that is
// 2 r sin(a / 4)^2; solved so since the difference of near equals would be lost.
double widestStep(double radius, double tolerance)
{
    const double widest = turn / leastChordsOfTurn;
    const double part = std::sqrt(tolerance / (2.0 * radius));
    return part < 1.0 ? std::min(widest, 4.0 * std::asin(part)) : widest;
}

int chordCount(double sweep, double radius, double tolerance)
{
    // A hair less, so that a sweep of exactly n steps is not cut into n + 1.
    const double exact = std::fabs(sweep) / widestStep(radius, tolerance) - 1e-9;
    return static_cast<int>(std::clamp(std::ceil(exact), 1.0, mostChords));
}

} // namespace

PointList arcPoints(const Point3& from, const Point3& to, double bulge, double tolerance)
{
    const double chord = planDistance(from, to);
    if (bulge == 0.0 || !std::isfinite(bulge) || !(chord > 0.0) || !std::isfinite(chord))
        return {to};
    const double radius = chord * (1.0 + bulge * bulge) / (4.0 * std::fabs(bulge));
    const double sweep = 4.0 * std::atan(bulge);
    const int count = chordCount(sweep, radius, tolerance);

    const double aside = (1.0 - bulge * bulge) / (4.0 * bulge);
    const Point3 middle = between(from, to, 0.5);
    const Point3 center{middle.x - (to.y - from.y) * aside, middle.y + (to.x - from.x) * aside, 0.0};
    PointList points;
    points.reserve(static_cast<std::size_t>(count));
    for (int i = 1; i < count; ++i) {
        const double part = static_cast<double>(i) / count;
        const double cosine = std::cos(sweep * part);
        const double sine = std::sin(sweep * part);
        const double x = from.x - center.x;
        const double y = from.y - center.y;
        points.push_back(
            {center.x + x * cosine - y * sine, center.y + x * sine + y * cosine, from.z + (to.z - from.z) * part});
    }
    points.push_back(to);
    return points;
}

} // namespace geometry
