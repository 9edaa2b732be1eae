#include "geometry/cardinal_spline.h"

#include <algorithm>

namespace geometry {

CardinalSpline::CardinalSpline(double tension, int samples) : tension_(tension), samples_(std::max(samples, 1)) { }

double CardinalSpline::tensionBetween(const Point3& p0, const Point3& p1, const Point3& p2, const Point3& p3) const
{
    const double d01 = planDistance(p0, p1);
    const double d12 = planDistance(p1, p2);
    const double d23 = planDistance(p2, p3);
    double ratio = 0.0;
    if (d01 < GEOM_TOL) {
        ratio = d12 / d23;
    } else {
        ratio = d12 / d01;
        if (!(d23 < GEOM_TOL))
            ratio = std::min(d12 / d23, d12 / d01);
    }
    return ratio < 1.0 ? tension_ * ratio : tension_;
}

void CardinalSpline::appendSegment(const Point3& p0, const Point3& p1, const Point3& p2, const Point3& p3, double z,
                                   PointList* out) const
{
    const double tension = tensionBetween(p0, p1, p2, p3);
    const double step = 1.0 / samples_;
    for (int k = 0; k < samples_; ++k) {
        const double t = k * step;
        const double t2 = t * t;
        const double t3 = t2 * t;
        const double h1 = 2.0 * t3 - 3.0 * t2 + 1.0;
        const double h2 = t3 - 2.0 * t2 + t;
        const double h3 = 3.0 * t2 - 2.0 * t3;
        const double h4 = t3 - t2;
        out->push_back({p1.x * h1 + p2.x * h3 + tension * (p2.x - p0.x) * h2 + tension * (p3.x - p1.x) * h4,
                        p1.y * h1 + p2.y * h3 + tension * (p2.y - p0.y) * h2 + tension * (p3.y - p1.y) * h4, z});
    }
}

PointList CardinalSpline::throughOpen(const PointList& points, double z) const
{
    PointList out;
    const std::size_t n = points.size();
    out.reserve((n - 1) * static_cast<std::size_t>(samples_) + n);
    const auto knot = [&](std::size_t i) { out.push_back({points[i].x, points[i].y, z}); };
    knot(0);
    appendSegment(points[0], points[0], points[1], points[2], z, &out);
    for (std::size_t i = 1; i + 3 <= n; ++i) {
        knot(i);
        appendSegment(points[i - 1], points[i], points[i + 1], points[i + 2], z, &out);
    }
    appendSegment(points[n - 3], points[n - 2], points[n - 1], points[n - 1], z, &out);
    knot(n - 1);
    return out;
}

PointList CardinalSpline::throughClosed(const PointList& points, double z) const
{
    PointList out;
    const std::size_t n = points.size();
    out.reserve(n * static_cast<std::size_t>(samples_) + 1);
    for (std::size_t i = 0; i < n; ++i)
        appendSegment(points[i], points[(i + 1) % n], points[(i + 2) % n], points[(i + 3) % n], z, &out);
    if (!out.empty())
        out.push_back(Point3(out.front()));
    return out;
}

} // namespace geometry
