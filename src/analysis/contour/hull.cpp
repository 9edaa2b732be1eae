#include "analysis/contour/surface_model.h"

#include <algorithm>
#include <deque>

namespace contour {

namespace {

struct Edge {
    std::int32_t from;
    std::int32_t to;
};

std::uint64_t keyOf(const Edge& e)
{
    return static_cast<std::uint64_t>(std::min(e.from, e.to)) << 32U
        | static_cast<std::uint64_t>(std::max(e.from, e.to));
}

// Edges that remain when, from the last one down, an edge and its nearest equal
// before it leave the list together; in list order.
std::vector<Edge> outerRim(const std::vector<Triangle>& triangles)
{
    struct Numbered {
        std::uint64_t key;
        std::uint32_t number;
    };
    std::vector<Numbered> edges;
    edges.reserve(triangles.size() * 3);
    const auto add = [&edges](std::int32_t from, std::int32_t to) {
        edges.push_back({keyOf({from, to}), static_cast<std::uint32_t>(edges.size())});
    };
    for (const Triangle& t : triangles) {
        add(t.a, t.b);
        add(t.b, t.c);
        add(t.c, t.a);
    }
    std::sort(edges.begin(), edges.end(), [](const Numbered& a, const Numbered& b) {
        return a.key != b.key ? a.key < b.key : a.number < b.number;
    });
    // Of an odd number of equal edges the first one is left over.
    std::vector<std::uint32_t> left;
    for (std::size_t i = 0, j = 0; i < edges.size(); i = j) {
        while (j < edges.size() && edges[j].key == edges[i].key)
            ++j;
        if ((j - i) % 2 == 1)
            left.push_back(edges[i].number);
    }
    std::sort(left.begin(), left.end());
    std::vector<Edge> rim;
    for (std::uint32_t number : left) {
        const Triangle& t = triangles[number / 3];
        const std::int32_t corners[4] = {t.a, t.b, t.c, t.a};
        rim.push_back({corners[number % 3], corners[number % 3 + 1]});
    }
    return rim;
}

// Edges by their end vertices; the last one left at a vertex is known at once.
class RimEdges {
public:
    explicit RimEdges(const std::vector<Edge>& rim) : rim_(rim), taken_(rim.size(), 0)
    {
        for (std::size_t i = 0; i < rim.size(); ++i) {
            ends_.push_back({rim[i].from, static_cast<std::int32_t>(i)});
            ends_.push_back({rim[i].to, static_cast<std::int32_t>(i)});
        }
        std::sort(ends_.begin(), ends_.end(), [](const End& a, const End& b) {
            return a.vertex != b.vertex ? a.vertex < b.vertex : a.edge < b.edge;
        });
        remaining_.resize(ends_.size());
        for (std::size_t i = 0, j = 0; i < ends_.size(); i = j) {
            while (j < ends_.size() && ends_[j].vertex == ends_[i].vertex)
                ++j;
            remaining_[i] = j - i;
        }
    }

    void take(std::int32_t edge) { taken_[static_cast<std::size_t>(edge)] = 1; }

    // The highest edge at the vertex, or -1.
    std::int32_t lastAt(std::int32_t vertex)
    {
        const auto group =
            static_cast<std::size_t>(std::lower_bound(ends_.begin(), ends_.end(), vertex,
                                                      [](const End& end, std::int32_t v) { return end.vertex < v; })
                                     - ends_.begin());
        std::size_t& left = remaining_[group];
        while (left > 0 && taken_[static_cast<std::size_t>(ends_[group + left - 1].edge)])
            --left;
        return left > 0 ? ends_[group + left - 1].edge : -1;
    }

    const Edge& edge(std::int32_t i) const { return rim_[static_cast<std::size_t>(i)]; }

private:
    struct End {
        std::int32_t vertex;
        std::int32_t edge;
    };

    const std::vector<Edge>& rim_;
    std::vector<char> taken_;
    std::vector<End> ends_;
    std::vector<std::size_t> remaining_; // of the group that starts at this place
};

// Grows from the first edge at both ends, each time by the last edge that fits.
std::deque<std::int32_t> chainOf(const std::vector<Edge>& rim)
{
    RimEdges edges(rim);
    edges.take(0);
    std::deque<std::int32_t> chain{rim[0].from, rim[0].to};
    for (;;) {
        const std::int32_t last = std::max(edges.lastAt(chain.front()), edges.lastAt(chain.back()));
        if (last < 0)
            break;
        const Edge e = edges.edge(last);
        edges.take(last);
        if (e.from == chain.front())
            chain.push_front(e.to);
        else if (e.to == chain.front())
            chain.push_front(e.from);
        else if (e.from == chain.back())
            chain.push_back(e.to);
        else
            chain.push_back(e.from);
    }
    if (chain.front() == chain.back())
        chain.pop_back();
    return chain;
}

} // namespace

bool SurfaceModel::boundaryFromHull()
{
    if (!triangulated || boundary.size() > 3)
        return false;
    const std::vector<Edge> rim = outerRim(triangles);
    if (rim.empty())
        return false;
    for (std::int32_t vertex : chainOf(rim)) {
        const Point3& v = vertices[static_cast<std::size_t>(vertex)];
        boundary.push_back({v.x, v.y, 0.0});
    }
    return true;
}

} // namespace contour
