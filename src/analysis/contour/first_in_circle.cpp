#include "analysis/contour/first_in_circle.h"

#include <algorithm>
#include <cmath>

namespace contour {

namespace {

constexpr double kRounding = 1e-14;
constexpr std::int32_t kLeafSize = 8;

double gap(double from, double to, double at) { return std::max({from - at, at - to, 0.0}); }

} // namespace

FirstInCircle::FirstInCircle(const geometry::PointList& vertices, std::int32_t count, const std::vector<char>& repeats)
    : vertices_(vertices)
{
    for (std::int32_t i = 0; i < count; ++i) {
        if (!repeats[static_cast<std::size_t>(i)])
            order_.push_back(i);
    }
    if (!order_.empty())
        build(0, 0, static_cast<std::int32_t>(order_.size()));
}

void FirstInCircle::build(std::size_t node, std::int32_t begin, std::int32_t end)
{
    Node n{INFINITY, -INFINITY, INFINITY, -INFINITY, order_[static_cast<std::size_t>(begin)], -1, begin, end};
    for (std::int32_t i = begin; i < end; ++i) {
        const std::int32_t vertex = order_[static_cast<std::size_t>(i)];
        n.xMin = std::min(n.xMin, at(vertex).x);
        n.xMax = std::max(n.xMax, at(vertex).x);
        n.yMin = std::min(n.yMin, at(vertex).y);
        n.yMax = std::max(n.yMax, at(vertex).y);
        n.first = std::min(n.first, vertex);
        n.last = std::max(n.last, vertex);
    }
    if (nodes_.size() <= node)
        nodes_.resize(node + 1);
    nodes_[node] = n;
    if (end - begin <= kLeafSize)
        return;
    const bool byX = n.xMax - n.xMin >= n.yMax - n.yMin;
    const std::int32_t middle = begin + (end - begin) / 2;
    std::nth_element(
        order_.begin() + begin, order_.begin() + middle, order_.begin() + end, [&](std::int32_t a, std::int32_t b) {
            return byX ? a < b : (at(a).y != at(b).y ? at(a).y < at(b).y : a < b); // vertices are in the order of x
        });
    build(2 * node + 1, begin, middle);
    build(2 * node + 2, middle, end);
}

std::int32_t FirstInCircle::from(std::int32_t from, const Circumcircle& circle) const
{
    std::int32_t best = -1;
    if (!nodes_.empty())
        search(0, from, circle, &best);
    return best;
}

void FirstInCircle::search(std::size_t node, std::int32_t from, const Circumcircle& circle, std::int32_t* best) const
{
    const Node& n = nodes_[node];
    if (n.last < from || (*best >= 0 && n.first >= *best))
        return;
    const double dx = gap(n.xMin, n.xMax, circle.x);
    const double dy = gap(n.yMin, n.yMax, circle.y);
    if (dx * dx + dy * dy > circle.squaredRadius * (1.0 + kRounding))
        return;
    if (n.end - n.begin > kLeafSize) {
        const bool rightFirst = std::max(nodes_[2 * node + 2].first, from) < std::max(nodes_[2 * node + 1].first, from);
        search(2 * node + (rightFirst ? 2 : 1), from, circle, best);
        search(2 * node + (rightFirst ? 1 : 2), from, circle, best);
        return;
    }
    for (std::int32_t i = n.begin; i < n.end; ++i) {
        const std::int32_t vertex = order_[static_cast<std::size_t>(i)];
        if (vertex < from || (*best >= 0 && vertex >= *best))
            continue;
        const double x = at(vertex).x - circle.x;
        const double y = at(vertex).y - circle.y;
        if (x * x + y * y <= circle.squaredRadius)
            *best = vertex;
    }
}

} // namespace contour
