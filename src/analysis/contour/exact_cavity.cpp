#include "analysis/contour/exact_cavity.h"

#include "geometry/exact_signs.h"

#include <algorithm>

namespace contour {

namespace {

// A walk that has not arrived by then looks at all triangles instead.
constexpr int kMostSteps = 4096;

struct Side {
    std::uint64_t key;
    std::int32_t id;
    std::int32_t number;
};

std::uint64_t keyOf(std::int32_t from, std::int32_t to)
{
    return static_cast<std::uint64_t>(std::min(from, to)) << 32U | static_cast<std::uint64_t>(std::max(from, to));
}

} // namespace

bool seesLoop(const PointList& vertices, const std::vector<Edge>& edges, const Point3& p)
{
    bool any = false;
    for (const Edge& e : edges) {
        if (e.isDropped())
            continue;
        any = true;
        if (geometry::turnOf(vertices[static_cast<std::size_t>(e.from)], vertices[static_cast<std::size_t>(e.to)], p)
            >= 0)
            return false;
    }
    return any;
}

std::array<std::int32_t, 4> ExactCavity::loopOf(std::int32_t id) const
{
    const Triangle& t = corners_[static_cast<std::size_t>(id)];
    return {t.a, t.b, t.c, t.a};
}

void ExactCavity::makeRoom()
{
    if (beside_.size() < corners_.size()) {
        beside_.resize(corners_.size(), Neighbours{-1, -1, -1});
        marks_.resize(corners_.size(), 0);
    }
}

void ExactCavity::begin(const std::vector<std::int32_t>& alive)
{
    begun_ = true;
    outside_.assign(vertices_.size(), -1);
    fan_.assign(vertices_.size(), -1);
    makeRoom();
    std::vector<Side> sides;
    sides.reserve(3 * alive.size());
    for (std::int32_t id : alive) {
        beside(id) = {-1, -1, -1};
        const auto loop = loopOf(id);
        for (int i = 0; i < 3; ++i)
            sides.push_back({keyOf(loop[i], loop[i + 1]), id, i});
    }
    std::sort(sides.begin(), sides.end(), [](const Side& a, const Side& b) { return a.key < b.key; });
    for (std::size_t i = 1; i < sides.size(); ++i) {
        const Side& a = sides[i - 1];
        const Side& b = sides[i];
        if (a.key == b.key) {
            beside(a.id)[static_cast<std::size_t>(a.number)] = b.id;
            beside(b.id)[static_cast<std::size_t>(b.number)] = a.id;
        }
    }
}

// The first side that p lies beyond, or -1 when it lies in the triangle.
int ExactCavity::sideTowards(std::int32_t id, const Point3& p) const
{
    const auto loop = loopOf(id);
    for (int i = 0; i < 3; ++i) {
        if (geometry::turnOf(at(loop[i]), at(loop[i + 1]), p) > 0)
            return i;
    }
    return -1;
}

bool ExactCavity::circleHolds(std::int32_t id, const Point3& p) const
{
    const Triangle& t = corners_[static_cast<std::size_t>(id)];
    return geometry::placeInCircle(at(t.a), at(t.b), at(t.c), p) >= 0;
}

std::int32_t ExactCavity::holderOf(const Point3& p, std::int32_t near, const std::vector<std::int32_t>& alive)
{
    std::int32_t id = near;
    for (int steps = 0; steps < kMostSteps && id >= 0; ++steps) {
        const int side = sideTowards(id, p);
        if (side < 0)
            return id;
        id = beside(id)[static_cast<std::size_t>(side)];
    }
    const auto holder =
        std::find_if(alive.begin(), alive.end(), [&](std::int32_t other) { return sideTowards(other, p) < 0; });
    return holder == alive.end() ? -1 : *holder;
}

void ExactCavity::mark(const std::vector<std::int32_t>& ids)
{
    ++mark_;
    for (std::int32_t id : ids)
        marks_[static_cast<std::size_t>(id)] = mark_;
}

std::vector<std::int32_t> ExactCavity::around(std::int32_t vertex, std::int32_t near,
                                              const std::vector<std::int32_t>& alive)
{
    makeRoom();
    const Point3& p = at(vertex);
    const std::int32_t holder = holderOf(p, near, alive);
    if (holder < 0)
        return {};
    std::vector<std::int32_t> hole{holder};
    mark(hole);
    for (std::size_t i = 0; i < hole.size(); ++i) {
        for (std::int32_t next : beside(hole[i])) {
            if (next < 0 || isMarked(next) || !circleHolds(next, p))
                continue;
            marks_[static_cast<std::size_t>(next)] = mark_;
            hole.push_back(next);
        }
    }
    return hole;
}

void ExactCavity::open(const std::vector<std::int32_t>& gone)
{
    makeRoom();
    mark(gone);
    for (std::int32_t id : gone) {
        const auto loop = loopOf(id);
        for (int i = 0; i < 3; ++i) {
            const std::int32_t other = beside(id)[static_cast<std::size_t>(i)];
            if (other < 0 || !isMarked(other))
                outside_[static_cast<std::size_t>(loop[i])] = other;
        }
    }
}

void ExactCavity::replaceNeighbour(std::int32_t id, std::int32_t from, std::int32_t to, std::int32_t neighbour)
{
    const auto loop = loopOf(id);
    for (int i = 0; i < 3; ++i) {
        if (keyOf(loop[i], loop[i + 1]) == keyOf(from, to))
            beside(id)[static_cast<std::size_t>(i)] = neighbour;
    }
}

void ExactCavity::fill(const std::vector<std::int32_t>& made)
{
    makeRoom();
    for (std::int32_t id : made)
        fan_[static_cast<std::size_t>(corners_[static_cast<std::size_t>(id)].a)] = id;
    for (std::int32_t id : made) {
        const Triangle& t = corners_[static_cast<std::size_t>(id)];
        const std::int32_t across = outside_[static_cast<std::size_t>(t.a)];
        const std::int32_t next = fan_[static_cast<std::size_t>(t.b)];
        beside(id)[0] = across;
        beside(id)[1] = next;
        beside(next)[2] = id;
        if (across >= 0)
            replaceNeighbour(across, t.a, t.b, id);
    }
}

} // namespace contour
