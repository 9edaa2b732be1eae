#include "analysis/contour/surface_model.h"

#include "analysis/contour/chaining.h"

#include <algorithm>
#include <iterator>

namespace contour {

using geometry::GEOM_TOL;

namespace {

constexpr int kMostMoves = 1000;

// Points' values, to see whether a level meets one of them. They are looked
// through as long as that is sooner done than sorting them.
class Values {
public:
    explicit Values(const PointList& points)
    {
        values_.reserve(points.size());
        for (const Point3& p : points) {
            if (!std::isnan(p.z))
                values_.push_back(p.z);
        }
    }

    bool meet(double level)
    {
        const auto isNear = [level](double z) { return std::fabs(z - level) < GEOM_TOL; };
        if (looks_ < kLooks) {
            ++looks_;
            return std::any_of(values_.begin(), values_.end(), isNear);
        }
        if (looks_++ == kLooks)
            std::sort(values_.begin(), values_.end());
        const auto above = std::lower_bound(values_.begin(), values_.end(), level);
        return (above != values_.end() && isNear(*above)) || (above != values_.begin() && isNear(*(above - 1)));
    }

private:
    static constexpr std::size_t kLooks = 32;

    std::vector<double> values_;
    std::size_t looks_ = 0;
};

double movedOff(double level, Values& values)
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

using Segments = std::vector<ContourSegment>;

// One list a level as listed, within a level as the triangles stand.
std::vector<Segments> cut(const std::vector<Triangle>& triangles, const PointList& vertices,
                          const std::vector<RankedLevel>& order, std::size_t levels)
{
    std::vector<Segments> byLevel(levels);
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
    return byLevel;
}

// Whether no segment of one level can be near one of another.
bool lieApart(const std::vector<RankedLevel>& order)
{
    return std::adjacent_find(
               order.begin(), order.end(),
               [](const RankedLevel& a, const RankedLevel& b) { return !(b.level - a.level > 2.0 * GEOM_TOL); })
        == order.end();
}

std::vector<Isoline> chained(std::vector<Segments> byLevel)
{
    std::vector<Isoline> lines;
    std::size_t left = 0;
    for (const Segments& list : byLevel)
        left += list.size();
    for (Segments& list : byLevel) {
        left -= list.size();
        std::vector<Isoline> found = chainSegments(list, left > 0);
        lines.insert(lines.end(), std::make_move_iterator(found.begin()), std::make_move_iterator(found.end()));
        Segments().swap(list);
    }
    return lines;
}

} // namespace

std::vector<Isoline> SurfaceModel::isolines(std::vector<double>& levels) const
{
    Values values(points);
    for (double& level : levels)
        level = movedOff(level, values);
    const std::vector<RankedLevel> order = ranked(levels);
    std::vector<Segments> byLevel = cut(triangles, vertices, order, levels.size());
    if (lieApart(order))
        return chained(std::move(byLevel));
    Segments all;
    for (const Segments& list : byLevel)
        all.insert(all.end(), list.begin(), list.end());
    return chainSegments(all);
}

} // namespace contour
