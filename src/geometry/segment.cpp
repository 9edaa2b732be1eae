#include "geometry/segment.h"

#include <algorithm>

namespace geometry {

namespace {

bool rangesMeet(double a, double b, double c, double d)
{
    return std::max(a, b) >= std::min(c, d) && std::max(c, d) >= std::min(a, b);
}

} // namespace

ClosestPlace closestOnSegment(const Point3& a, const Point3& b, const Point3& p)
{
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double squaredLength = dx * dx + dy * dy;
    ClosestPlace place;
    const double t = squaredLength > 0.0 ? ((p.x - a.x) * dx + (p.y - a.y) * dy) / squaredLength : 0.0;
    if (!(t > 0.0)) {
        place.point = a;
    } else if (t >= 1.0) {
        place.point = b;
        place.t = 1.0;
    } else {
        place.point = between(a, b, t);
        place.t = t;
    }
    place.distance = planDistance(place.point, p);
    return place;
}

bool intersectSegments(const Point3& a, const Point3& b, const Point3& c, const Point3& d, Point3* meeting)
{
    // Nearly parallel segments far apart would otherwise meet by rounding.
    if (!rangesMeet(a.x, b.x, c.x, d.x) || !rangesMeet(a.y, b.y, c.y, d.y))
        return false;
    const double rx = b.x - a.x;
    const double ry = b.y - a.y;
    const double sx = d.x - c.x;
    const double sy = d.y - c.y;
    const double cross = rx * sy - ry * sx;
    if (cross == 0.0)
        return false;
    const double qx = c.x - a.x;
    const double qy = c.y - a.y;
    const double onFirst = (qx * sy - qy * sx) / cross;
    const double onSecond = (qx * ry - qy * rx) / cross;
    if (!(onFirst >= 0.0 && onFirst <= 1.0 && onSecond >= 0.0 && onSecond <= 1.0))
        return false;
    *meeting = between(a, b, onFirst);
    return true;
}

} // namespace geometry
