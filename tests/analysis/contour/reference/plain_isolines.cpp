#include "plain_surface.h"

#include <algorithm>

using geometry::GEOM_TOL;

namespace reference {

namespace {

using Segment = contour::ContourSegment;

double movedOffThePoints(double level, const PointList& points)
{
    int moves = 0;
    for (std::size_t i = 0; i < points.size() && moves < 1000; ++i) {
        if (std::fabs(points[i].z - level) < GEOM_TOL) {
            if (level == 0.0)
                level = 0.003 - 0.001;
            else if (level > 0.0)
                level -= 0.001;
            else
                level += 0.001;
            ++moves;
            i = static_cast<std::size_t>(-1); // the scan starts again
        }
    }
    return level;
}

bool cutEdge(const Point3& a, const Point3& b, double level, Point3* cut)
{
    if (std::fabs(b.z - a.z) < GEOM_TOL)
        return false;
    if (!(std::min(a.z, b.z) <= level && level <= std::max(a.z, b.z)))
        return false;
    const double t = (level - a.z) / (b.z - a.z);
    *cut = {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t, level};
    return true;
}

bool near(const Point3& a, const Point3& b) { return geometry::distance(a, b) < GEOM_TOL; }

} // namespace

std::vector<Isoline> chained(std::vector<Segment> segments)
{
    std::vector<Isoline> lines;
    while (!segments.empty()) {
        Isoline line{segments[0].start, segments[0].end};
        segments.erase(segments.begin());
        for (std::ptrdiff_t i = static_cast<std::ptrdiff_t>(segments.size()) - 1; i >= 0; --i) {
            const Segment s = segments[i];
            if (near(s.start, line.front())) {
                line.insert(line.begin(), s.end);
            } else if (near(s.end, line.front())) {
                line.insert(line.begin(), s.start);
            } else if (near(s.end, line.back())) {
                line.push_back(s.start);
            } else if (near(s.start, line.back())) {
                line.push_back(s.end);
            } else if (near(line.front(), line.back())) {
                break;
            } else {
                continue;
            }
            segments.erase(segments.begin() + i);
            i = static_cast<std::ptrdiff_t>(segments.size());
        }
        lines.push_back(line);
    }
    return lines;
}

std::vector<Isoline> PlainSurface::isolines(std::vector<double>& levels) const
{
    for (double& level : levels)
        level = movedOffThePoints(level, points);
    std::vector<Segment> segments;
    for (double level : levels) {
        for (const Triangle& t : triangles) {
            const Point3 &a = vertices[t.a], &b = vertices[t.b], &c = vertices[t.c];
            Point3 onAB, onBC, onCA;
            const bool ab = cutEdge(a, b, level, &onAB);
            const bool bc = cutEdge(b, c, level, &onBC);
            const bool ca = cutEdge(c, a, level, &onCA);
            if (ab && bc)
                segments.push_back({onAB, onBC});
            else if (bc && ca)
                segments.push_back({onBC, onCA});
            else if (ca && ab)
                segments.push_back({onCA, onAB});
        }
    }
    return chained(std::move(segments));
}

} // namespace reference
