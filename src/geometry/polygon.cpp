#include "geometry/polygon.h"

#include "geometry/segment.h"

namespace geometry {

namespace polygon_edge {

bool crossesEvenOdd(double x, double y, const Point3& previous, const Point3& current)
{
    return (current.y > y) != (previous.y > y)
        && x < (previous.x - current.x) * (y - current.y) / (previous.y - current.y) + current.x;
}

bool isZero(const Point3& a, const Point3& b) { return a.x == b.x && a.y == b.y; }

bool touches(const Point3& p, const Point3& a, const Point3& b)
{
    return planDistance(p, a) < GEOM_TOL || planDistance(p, b) < GEOM_TOL
        || closestOnSegment(a, b, p).distance < GEOM_TOL;
}

// In the frame turned by 45 degrees around p the ray is an axis: `side` tells
// on which hand of it a corner lies, `ahead` how far along it.
bool crossesDiagonal(const Point3& p, const Point3& a, const Point3& b)
{
    const double sideA = (a.x - p.x) - (a.y - p.y);
    const double sideB = (b.x - p.x) - (b.y - p.y);
    if ((sideA > 0.0) == (sideB > 0.0))
        return false;
    const double aheadA = (a.x - p.x) + (a.y - p.y);
    const double aheadB = (b.x - p.x) + (b.y - p.y);
    return aheadA + (aheadB - aheadA) * (sideA / (sideA - sideB)) > 0.0;
}

} // namespace polygon_edge

double polygonArea(const PointList& polygon)
{
    if (polygon.size() < 3)
        return 0.0;
    // Measured from the first corner: drawing coordinates run into millions.
    const Point3 origin = polygon.front();
    double twice = 0.0;
    for (std::size_t i = 1; i + 1 < polygon.size(); ++i) {
        const Point3& a = polygon[i];
        const Point3& b = polygon[i + 1];
        twice += (a.x - origin.x) * (b.y - origin.y) - (b.x - origin.x) * (a.y - origin.y);
    }
    return std::fabs(twice) * 0.5;
}

bool insideEvenOdd(double x, double y, const PointList& polygon)
{
    bool inside = false;
    for (std::size_t i = 0, j = polygon.size() - 1; i < polygon.size(); j = i++) {
        if (polygon_edge::crossesEvenOdd(x, y, polygon[j], polygon[i]))
            inside = !inside;
    }
    return inside;
}

bool pointInPolygon(const Point3& p, const PointList& polygon)
{
    bool inside = false;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Point3& a = polygon[i];
        const Point3& b = polygon[i + 1 < polygon.size() ? i + 1 : 0];
        if (polygon_edge::isZero(a, b))
            continue;
        if (polygon_edge::touches(p, a, b))
            return true;
        if (polygon_edge::crossesDiagonal(p, a, b))
            inside = !inside;
    }
    return inside;
}

} // namespace geometry
