#include "analysis/contour/surface_model.h"

#include "analysis/contour/chaining.h"

#include <algorithm>
#include <iterator>
#include <numeric>

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

// Segments of one level with the triangles they cut.
struct Cut {
    std::vector<ContourSegment> segments;
    std::vector<std::int32_t> triangles;
};

// Numbers of the triangles by the middle one of their vertices: from left to
// right, but for those that have two corners far away. What is near each other
// on the map is then near each other in memory.
std::vector<std::int32_t> fromLeftToRight(const std::vector<Triangle>& triangles, std::size_t vertexCount)
{
    const auto middle = [](const Triangle& t) {
        return static_cast<std::size_t>(std::max(std::min(t.a, t.b), std::min(std::max(t.a, t.b), t.c)));
    };
    std::vector<std::int32_t> ends(vertexCount + 1, 0);
    for (const Triangle& t : triangles)
        ++ends[middle(t) + 1];
    std::partial_sum(ends.begin(), ends.end(), ends.begin());
    std::vector<std::int32_t> order(triangles.size());
    for (std::size_t i = 0; i < triangles.size(); ++i)
        order[static_cast<std::size_t>(ends[middle(triangles[i])]++)] = static_cast<std::int32_t>(i);
    return order;
}

// One a level as listed.
std::vector<Cut> cut(const std::vector<Triangle>& triangles, const PointList& vertices,
                     const std::vector<RankedLevel>& order, std::size_t levels)
{
    std::vector<Cut> byLevel(levels);
    ContourSegment segment;
    for (std::int32_t number : fromLeftToRight(triangles, vertices.size())) {
        const Triangle& t = triangles[static_cast<std::size_t>(number)];
        const Point3& a = vertices[static_cast<std::size_t>(t.a)];
        const Point3& b = vertices[static_cast<std::size_t>(t.b)];
        const Point3& c = vertices[static_cast<std::size_t>(t.c)];
        const double highest = std::max({a.z, b.z, c.z});
        auto next = std::lower_bound(order.begin(), order.end(), std::min({a.z, b.z, c.z}),
                                     [](const RankedLevel& l, double z) { return l.level < z; });
        for (; next != order.end() && next->level <= highest; ++next) {
            if (!cutTriangle(a, b, c, next->level, &segment))
                continue;
            byLevel[next->place].segments.push_back(segment);
            byLevel[next->place].triangles.push_back(number);
        }
    }
    return byLevel;
}

// Numbers of the segments in the order of their triangles, behind `first` others.
void appendListed(const Cut& level, std::size_t triangleCount, std::int32_t first, std::vector<std::int32_t>* listed)
{
    std::vector<std::int32_t> segmentIn(triangleCount, -1);
    for (std::size_t i = 0; i < level.triangles.size(); ++i)
        segmentIn[static_cast<std::size_t>(level.triangles[i])] = static_cast<std::int32_t>(i);
    for (std::int32_t segment : segmentIn) {
        if (segment >= 0)
            listed->push_back(first + segment);
    }
}

// Whether no segment of one level can be near one of another.
bool lieApart(const std::vector<RankedLevel>& order)
{
    return std::adjacent_find(
               order.begin(), order.end(),
               [](const RankedLevel& a, const RankedLevel& b) { return !(b.level - a.level > 2.0 * GEOM_TOL); })
        == order.end();
}

std::vector<Isoline> chained(std::vector<Cut> byLevel, std::size_t triangleCount)
{
    std::vector<Isoline> lines;
    std::size_t left = 0;
    for (const Cut& level : byLevel)
        left += level.segments.size();
    SegmentList list;
    for (Cut& level : byLevel) {
        left -= level.segments.size();
        list.listed.clear();
        appendListed(level, triangleCount, 0, &list.listed);
        list.segments = std::move(level.segments);
        std::vector<Isoline> found = chainSegments(list, left > 0);
        lines.insert(lines.end(), std::make_move_iterator(found.begin()), std::make_move_iterator(found.end()));
        level = Cut();
    }
    return lines;
}

std::vector<Isoline> chainedTogether(const std::vector<Cut>& byLevel, std::size_t triangleCount)
{
    SegmentList all;
    for (const Cut& level : byLevel) {
        appendListed(level, triangleCount, static_cast<std::int32_t>(all.segments.size()), &all.listed);
        all.segments.insert(all.segments.end(), level.segments.begin(), level.segments.end());
    }
    return chainSegments(all);
}

} // namespace

std::vector<Isoline> SurfaceModel::isolines(std::vector<double>& levels) const
{
    Values values(points);
    for (double& level : levels)
        level = movedOff(level, values);
    const std::vector<RankedLevel> order = ranked(levels);
    std::vector<Cut> byLevel = cut(triangles, vertices, order, levels.size());
    return lieApart(order) ? chained(std::move(byLevel), triangles.size()) : chainedTogether(byLevel, triangles.size());
}

} // namespace contour
