#include "analysis/contour/circumcircle.h"

namespace contour {

using geometry::Point3;

namespace {

constexpr double kLevelSide = 1e-6;

// The line through the middle of a side at a right angle to it.
struct Bisector {
    double slope;
    double x;
    double y;

    double yAt(double at) const { return slope * (at - x) + y; }
};

Bisector bisectorOf(const Point3& a, const Point3& b)
{
    return {-(b.x - a.x) / (b.y - a.y), (a.x + b.x) / 2.0, (a.y + b.y) / 2.0};
}

} // namespace

bool circumcircle(const Point3& p1, const Point3& p2, const Point3& p3, Circumcircle* circle)
{
    const bool firstLevel = std::fabs(p1.y - p2.y) < kLevelSide;
    const bool secondLevel = std::fabs(p2.y - p3.y) < kLevelSide;
    if (firstLevel && secondLevel)
        return false;
    if (firstLevel) {
        circle->x = (p1.x + p2.x) / 2.0;
        circle->y = bisectorOf(p2, p3).yAt(circle->x);
    } else if (secondLevel) {
        circle->x = (p2.x + p3.x) / 2.0;
        circle->y = bisectorOf(p1, p2).yAt(circle->x);
    } else {
        const Bisector b1 = bisectorOf(p1, p2);
        const Bisector b2 = bisectorOf(p2, p3);
        circle->x = (b1.slope * b1.x - b2.slope * b2.x + b2.y - b1.y) / (b1.slope - b2.slope);
        circle->y = b1.yAt(circle->x);
    }
    const double dx = p2.x - circle->x;
    const double dy = p2.y - circle->y;
    circle->squaredRadius = dx * dx + dy * dy;
    return true;
}

} // namespace contour
