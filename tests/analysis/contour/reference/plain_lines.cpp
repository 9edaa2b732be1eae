#include "plain_contour_set.h"

#include "geometry/polyline.h"

#include <algorithm>

using geometry::distance;
using geometry::GEOM_TOL;
using geometry::planDistance;

namespace reference {

namespace {

bool isClosed(const Isoline& line) { return distance(line.front(), line.back()) < GEOM_TOL; }

void splineSegment(const Point3& p0, const Point3& p1, const Point3& p2, const Point3& p3, double tension, int samples,
                   Isoline* out)
{
    const double d01 = planDistance(p0, p1), d12 = planDistance(p1, p2), d23 = planDistance(p2, p3);
    double r;
    if (d01 < GEOM_TOL)
        r = d12 / d23;
    else if (!(d23 < GEOM_TOL))
        r = std::min(d12 / d23, d12 / d01);
    else
        r = d12 / d01;
    const double T = r < 1.0 ? tension * r : tension;
    const double step = 1.0 / samples;
    for (int k = 0; k < samples; ++k) {
        const double t = k * step;
        const double h1 = 2.0 * (t * t * t) - 3.0 * (t * t) + 1.0;
        const double h2 = t * t * t - 2.0 * (t * t) + t;
        const double h3 = 3.0 * (t * t) - 2.0 * (t * t * t);
        const double h4 = t * t * t - t * t;
        out->push_back({p1.x * h1 + p2.x * h3 + T * (p2.x - p0.x) * h2 + T * (p3.x - p1.x) * h4,
                        p1.y * h1 + p2.y * h3 + T * (p2.y - p0.y) * h2 + T * (p3.y - p1.y) * h4, 0.0});
    }
}

Isoline splineOpen(const Isoline& p, double tension, int samples)
{
    const std::size_t n = p.size();
    Isoline out{p[0]};
    splineSegment(p[0], p[0], p[1], p[2], tension, samples, &out);
    for (std::size_t i = 1; i <= n - 3; ++i) {
        out.push_back(p[i]);
        splineSegment(p[i - 1], p[i], p[i + 1], p[i + 2], tension, samples, &out);
    }
    splineSegment(p[n - 3], p[n - 2], p[n - 1], p[n - 1], tension, samples, &out);
    out.push_back(p[n - 1]);
    return out;
}

Isoline splineClosed(Isoline p, double tension, int samples)
{
    p.pop_back();
    const std::size_t n = p.size();
    Isoline out;
    for (std::size_t i = 0; i < n; ++i)
        splineSegment(p[i], p[(i + 1) % n], p[(i + 2) % n], p[(i + 3) % n], tension, samples, &out);
    const Point3 first = out[0];
    out.push_back(first);
    return out;
}

} // namespace

void PlainContourSet::filterLines(double minDistance)
{
    for (Isoline& line : lines) {
        const bool closed = isClosed(line);
        for (std::size_t i = line.size() - 2; i >= 1 && i < line.size(); --i) {
            if (distance(line[i], line[i - 1]) < minDistance)
                line.erase(line.begin() + static_cast<std::ptrdiff_t>(i));
        }
        if (closed && !isClosed(line))
            line.push_back(Point3(line.front()));
    }
}

void PlainContourSet::refineLines(double maxLength, int parts)
{
    parts = std::max(parts, 1);
    for (Isoline& line : lines) {
        PointList flat = line;
        for (Point3& p : flat)
            p.z = line.front().z;
        const geometry::Polyline polyline(flat, false);
        Isoline refined;
        for (std::size_t i = 0; i < polyline.segmentCount(); ++i) {
            refined.push_back(polyline.segmentStart(i));
            if (planDistance(polyline.segmentStart(i), polyline.segmentEnd(i)) > maxLength) {
                for (int k = 0; k < parts; ++k)
                    refined.push_back(polyline.pointAt(static_cast<double>(i) + k * (1.0 / parts)));
            }
        }
        refined.push_back(flat.back());
        line = refined;
    }
}

void PlainContourSet::smoothLines(double tension, int samples)
{
    samples = std::max(samples, 1);
    smoothedLines.clear();
    for (const Isoline& line : lines) {
        if (line.size() < 4) {
            smoothedLines.push_back(line);
            continue;
        }
        Isoline smooth = isClosed(line) ? splineClosed(line, tension, samples) : splineOpen(line, tension, samples);
        for (Point3& p : smooth)
            p.z = line.front().z;
        smoothedLines.push_back(smooth);
    }
}

} // namespace reference
