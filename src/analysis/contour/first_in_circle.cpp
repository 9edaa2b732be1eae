#include "analysis/contour/first_in_circle.h"

#include <algorithm>
#include <cmath>

namespace contour {

namespace {

constexpr double kRounding = 1e-14;
constexpr std::int32_t kLeafSize = 8;
// Of what is measured; beyond it figures may be no numbers.
constexpr double kLargest = 1e150;

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

FirstInCircle::Node FirstInCircle::boxOf(std::int32_t begin, std::int32_t end) const
{
    Node n;
    n.begin = begin;
    n.end = end;
    const auto [first, last] = std::minmax_element(order_.begin() + begin, order_.begin() + end);
    n.first = *first;
    n.last = *last;
    n.x = at(n.first).x;
    n.y = at(n.first).y;
    const double length = geometry::planDistance(at(n.first), at(n.last));
    if (length > 0.0 && length < INFINITY) {
        n.alongX = (at(n.last).x - n.x) / length;
        n.alongY = (at(n.last).y - n.y) / length;
    }
    double farthest = 0.0;
    bool isMeasured = true;
    for (std::int32_t i = begin; i < end; ++i) {
        const geometry::Point3& p = at(order_[static_cast<std::size_t>(i)]);
        const double u = (p.x - n.x) * n.alongX + (p.y - n.y) * n.alongY;
        const double w = (p.y - n.y) * n.alongX - (p.x - n.x) * n.alongY;
        n.uMin = std::min(n.uMin, u);
        n.uMax = std::max(n.uMax, u);
        n.wMin = std::min(n.wMin, w);
        n.wMax = std::max(n.wMax, w);
        farthest = std::max({farthest, std::fabs(u), std::fabs(w)});
        isMeasured = isMeasured && std::fabs(u) < kLargest && std::fabs(w) < kLargest;
    }
    if (!isMeasured)
        farthest = INFINITY;
    n.uMin -= kRounding * farthest;
    n.uMax += kRounding * farthest;
    n.wMin -= kRounding * farthest;
    n.wMax += kRounding * farthest;
    return n;
}

bool FirstInCircle::Node::mayMeet(const Circumcircle& circle) const
{
    const double dx = circle.x - x;
    const double dy = circle.y - y;
    const double slack = kRounding * (std::fabs(dx) + std::fabs(dy));
    const double u = gap(uMin - slack, uMax + slack, dx * alongX + dy * alongY);
    const double w = gap(wMin - slack, wMax + slack, dy * alongX - dx * alongY);
    return !(u * u + w * w > circle.squaredRadius * (1.0 + kRounding));
}

void FirstInCircle::build(std::size_t node, std::int32_t begin, std::int32_t end)
{
    const Node n = boxOf(begin, end);
    if (nodes_.size() <= node)
        nodes_.resize(node + 1);
    nodes_[node] = n;
    if (end - begin <= kLeafSize)
        return;
    // Vertices are in the order of x.
    const auto [lowest, highest] =
        std::minmax_element(order_.begin() + begin, order_.begin() + end,
                            [this](std::int32_t a, std::int32_t b) { return at(a).y < at(b).y; });
    const bool byX = at(n.last).x - at(n.first).x >= at(*highest).y - at(*lowest).y;
    const std::int32_t middle = begin + (end - begin) / 2;
    std::nth_element(
        order_.begin() + begin, order_.begin() + middle, order_.begin() + end,
        [&](std::int32_t a, std::int32_t b) { return byX ? a < b : (at(a).y != at(b).y ? at(a).y < at(b).y : a < b); });
    build(2 * node + 1, begin, middle);
    build(2 * node + 2, middle, end);
}

std::int32_t FirstInCircle::from(std::int32_t from, std::int32_t end, const Circumcircle& circle) const
{
    std::int32_t best = end;
    if (!nodes_.empty())
        search(0, from, circle, &best);
    return best < end ? best : -1;
}

// Lowers `best` to the first vertex below it.
void FirstInCircle::search(std::size_t node, std::int32_t from, const Circumcircle& circle, std::int32_t* best) const
{
    const Node& n = nodes_[node];
    if (n.last < from || n.first >= *best)
        return;
    if (!n.mayMeet(circle))
        return;
    if (n.end - n.begin > kLeafSize) {
        const bool rightFirst = std::max(nodes_[2 * node + 2].first, from) < std::max(nodes_[2 * node + 1].first, from);
        search(2 * node + (rightFirst ? 2 : 1), from, circle, best);
        search(2 * node + (rightFirst ? 1 : 2), from, circle, best);
        return;
    }
    for (std::int32_t i = n.begin; i < n.end; ++i) {
        const std::int32_t vertex = order_[static_cast<std::size_t>(i)];
        if (vertex < from || vertex >= *best)
            continue;
        const double x = at(vertex).x - circle.x;
        const double y = at(vertex).y - circle.y;
        if (x * x + y * y <= circle.squaredRadius)
            *best = vertex;
    }
}

} // namespace contour
