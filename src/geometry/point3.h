#pragma once

#include <cmath>
#include <vector>

// Plain points in drawing coordinates. Plan operations read x and y alone; z is
// an elevation, or whatever value a surface carries at the place.
namespace geometry {

// Lengths below this are no length. It is the single-precision 0.000001 widened
// to double (9.999999974752427e-7), kept so since drawings made over the years
// were compared with it.
constexpr double GEOM_TOL = static_cast<double>(0.000001F);

struct Point3 {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

using PointList = std::vector<Point3>;

inline bool operator==(const Point3& a, const Point3& b) { return a.x == b.x && a.y == b.y && a.z == b.z; }

inline bool operator!=(const Point3& a, const Point3& b) { return !(a == b); }

inline double planDistance(const Point3& a, const Point3& b)
{
    const double dx = a.x - b.x;
    const double dy = a.y - b.y;
    return std::sqrt(dx * dx + dy * dy);
}

inline double distance(const Point3& a, const Point3& b)
{
    const double dx = a.x - b.x;
    const double dy = a.y - b.y;
    const double dz = a.z - b.z;
    return std::sqrt(dx * dx + dy * dy + dz * dz);
}

inline bool isFinite(const Point3& p) { return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z); }

inline Point3 between(const Point3& a, const Point3& b, double t)
{
    return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t, a.z + (b.z - a.z) * t};
}

struct Box3 {
    Point3 minimum{INFINITY, INFINITY, INFINITY};
    Point3 maximum{-INFINITY, -INFINITY, -INFINITY};

    bool isEmpty() const { return !(minimum.x <= maximum.x); }
    double width() const { return maximum.x - minimum.x; }
    double height() const { return maximum.y - minimum.y; }
};

// Smallest and largest x, y, z; infinities the wrong way round for no points.
Box3 boxOf(const PointList& points);

} // namespace geometry
