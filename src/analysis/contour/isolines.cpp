#include "analysis/contour/surface_model.h"

#include "analysis/contour/chaining.h"

#include <algorithm>
#include <numeric>

namespace contour {

using geometry::GEOM_TOL;

namespace {

constexpr int kMostMoves = 1000;

// Points' values in order, to see whether a level meets one of them.
class SortedValues {
public:
    explicit SortedValues(const PointList& points)
    {
        for (const Point3& p : points) {
            if (!std::isnan(p.z))
                values_.push_back(p.z);
        }
        std::sort(values_.begin(), values_.end());
    }

    bool meet(double level) const
    {
        const auto above = std::lower_bound(values_.begin(), values_.end(), level);
        return (above != values_.end() && std::fabs(*above - level) < GEOM_TOL)
            || (above != values_.begin() && std::fabs(*(above - 1) - level) < GEOM_TOL);
    }

private:
    std::vector<double> values_;
};

double movedOff(double level, const SortedValues& values)
{
    for (int moves = 0; moves < kMostMoves && values.meet(level); ++moves) {
        if (level == 0.0)
            level = 0.003 - 0.001;
        else if (level > 0.0)
            level -= 0.001;
        else
            level += 0.001;
    }
    return level;
}

bool cutEdge(const Point3& a, const Point3& b, double level, Point3* cut)
{
    if (std::fabs(b.z - a.z) < GEOM_TOL || !(std::min(a.z, b.z) <= level) || !(level <= std::max(a.z, b.z)))
        return false;
    const double t = (level - a.z) / (b.z - a.z);
    *cut = {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t, level};
    return true;
}

bool cutTriangle(const Point3& a, const Point3& b, const Point3& c, double level, ContourSegment* segment)
{
    Point3 onAB;
    Point3 onBC;
    Point3 onCA;
    const bool ab = cutEdge(a, b, level, &onAB);
    const bool bc = cutEdge(b, c, level, &onBC);
    if (ab && bc) {
        *segment = {onAB, onBC};
        return true;
    }
    if ((!ab && !bc) || !cutEdge(c, a, level, &onCA))
        return false;
    *segment = bc ? ContourSegment{onBC, onCA} : ContourSegment{onCA, onAB};
    return true;
}

// Levels in ascending order with their places in the caller's list.
struct RankedLevel {
    double level;
    std::size_t place;
};

std::vector<RankedLevel> ranked(const std::vector<double>& levels)
{
    std::vector<RankedLevel> order;
    for (std::size_t i = 0; i < levels.size(); ++i) {
        if (!std::isnan(levels[i]))
            order.push_back({levels[i], i});
    }
    std::sort(order.begin(), order.end(), [](const RankedLevel& a, const RankedLevel& b) {
        return a.level != b.level ? a.level < b.level : a.place < b.place;
    });
    return order;
}

// Level by level as listed, within a level as the triangles stand.
std::vector<ContourSegment> cut(const std::vector<Triangle>& triangles, const PointList& vertices,
                                const std::vector<double>& levels)
{
    const std::vector<RankedLevel> order = ranked(levels);
    std::vector<std::vector<ContourSegment>> byLevel(levels.size());
    ContourSegment segment;
    for (const Triangle& t : triangles) {
        const Point3& a = vertices[static_cast<std::size_t>(t.a)];
        const Point3& b = vertices[static_cast<std::size_t>(t.b)];
        const Point3& c = vertices[static_cast<std::size_t>(t.c)];
        const double highest = std::max({a.z, b.z, c.z});
        auto next = std::lower_bound(order.begin(), order.end(), std::min({a.z, b.z, c.z}),
                                     [](const RankedLevel& l, double z) { return l.level < z; });
        for (; next != order.end() && next->level <= highest; ++next) {
            if (cutTriangle(a, b, c, next->level, &segment))
                byLevel[next->place].push_back(segment);
        }
    }
    std::vector<ContourSegment> all;
    all.reserve(
        std::accumulate(byLevel.begin(), byLevel.end(), std::size_t(0),
                        [](std::size_t sum, const std::vector<ContourSegment>& list) { return sum + list.size(); }));
    for (std::vector<ContourSegment>& list : byLevel) {
        all.insert(all.end(), list.begin(), list.end());
        std::vector<ContourSegment>().swap(list);
    }
    return all;
}

} // namespace

std::vector<Isoline> SurfaceModel::isolines(std::vector<double>& levels) const
{
    const SortedValues values(points);
    for (double& level : levels)
        level = movedOff(level, values);
    return chainSegments(cut(triangles, vertices, levels));
}

} // namespace contour
