#include "analysis/contour/surface_model.h"

#include <algorithm>
#include <deque>
#include <numeric>

namespace contour {

namespace {

struct Edge {
    std::int32_t from;
    std::int32_t to;
};

// Edges that remain when, from the last one down, an edge and its nearest equal
// before it leave the list together; in list order. Equal edges meet at their
// lower vertex, where there are few others.
std::vector<Edge> outerRim(const std::vector<Triangle>& triangles, std::size_t vertexCount)
{
    struct Numbered {
        std::int32_t higher;
        std::uint32_t number;
    };
    const auto edgeOf = [&triangles](std::size_t number) -> Edge {
        const Triangle& t = triangles[number / 3];
        const std::int32_t corners[4] = {t.a, t.b, t.c, t.a};
        return {corners[number % 3], corners[number % 3 + 1]};
    };
    const std::size_t count = triangles.size() * 3;
    std::vector<std::uint32_t> ends(vertexCount + 1, 0); // of each vertex in `edges`
    for (std::size_t i = 0; i < count; ++i) {
        const Edge e = edgeOf(i);
        ++ends[static_cast<std::size_t>(std::min(e.from, e.to)) + 1];
    }
    std::partial_sum(ends.begin(), ends.end(), ends.begin());
    std::vector<Numbered> edges(count);
    for (std::size_t i = 0; i < count; ++i) {
        const Edge e = edgeOf(i);
        edges[ends[static_cast<std::size_t>(std::min(e.from, e.to))]++] = {std::max(e.from, e.to),
                                                                           static_cast<std::uint32_t>(i)};
    }
    // Of an odd number of equal edges the first one is left over.
    std::vector<std::uint32_t> left;
    auto begin = edges.begin();
    for (std::size_t vertex = 0; vertex < vertexCount; ++vertex) {
        const auto end = edges.begin() + ends[vertex];
        std::sort(begin, end, [](const Numbered& a, const Numbered& b) {
            return a.higher != b.higher ? a.higher < b.higher : a.number < b.number;
        });
        while (begin != end) {
            const auto next =
                std::find_if(begin, end, [begin](const Numbered& e) { return e.higher != begin->higher; });
            if ((next - begin) % 2 == 1)
                left.push_back(begin->number);
            begin = next;
        }
    }
    std::sort(left.begin(), left.end());
    std::vector<Edge> rim;
    for (std::uint32_t number : left)
        rim.push_back(edgeOf(number));
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
    const std::vector<Edge> rim = outerRim(triangles, vertices.size());
    if (rim.empty())
        return false;
    for (std::int32_t vertex : chainOf(rim)) {
        const Point3& v = vertices[static_cast<std::size_t>(vertex)];
        boundary.push_back({v.x, v.y, 0.0});
    }
    return true;
}

} // namespace contour
