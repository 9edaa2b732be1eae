#pragma once

#include "geometry/point3.h"

// Questions of position in plan, answered without rounding. Points nearly on a
// line or on a circle get contradictory answers from computed figures; these
// never contradict each other. Cheap where the answer is clear, and some hundred
// times dearer where it is not.
//
// Coordinates must be finite; where they differ by more than some sixty powers
// of ten the smallest ones may count as 0. A figure that is no number answers 0.
namespace geometry {

namespace exact {

int turnBeyondRounding(const Point3& a, const Point3& b, const Point3& c);

} // namespace exact

// Which way the path from a over b to c turns: 1 to the left, -1 to the right,
// 0 on a line.
inline int turnOf(const Point3& a, const Point3& b, const Point3& c)
{
    // Differences and products are off by a part in 2^53 each: three of them
    // and the last subtraction stay well under this share of the products.
    constexpr double kRounding = 5e-16;
    const double left = (a.x - c.x) * (b.y - c.y);
    const double right = (a.y - c.y) * (b.x - c.x);
    const double turn = left - right;
    const double doubt = kRounding * (std::fabs(left) + std::fabs(right));
    // Products below this may have lost digits; infinite ones fail both tests.
    if (doubt > 1e-290 && std::fabs(turn) > doubt && std::fabs(turn) < INFINITY)
        return turn > 0.0 ? 1 : -1;
    return exact::turnBeyondRounding(a, b, c);
}

// 1 for a point inside the circle through a, b and c, 0 on it, -1 outside;
// either hand of the triangle will do. 0 for three points on a line.
int placeInCircle(const Point3& a, const Point3& b, const Point3& c, const Point3& p);

} // namespace geometry
