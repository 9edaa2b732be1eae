#include "geometry/point_tree.h"

namespace geometry {

namespace {

// Bounds below use the very operations of the distances themselves. Each of
// these is monotone in floating point, so a bound never exceeds a distance.
double gap(double from, double to, double at) { return std::max({from - at, at - to, 0.0}); }

} // namespace

void PointTree::Box::add(double x, double y, double z)
{
    xMin = std::min(xMin, x);
    xMax = std::max(xMax, x);
    yMin = std::min(yMin, y);
    yMax = std::max(yMax, y);
    zMin = std::min(zMin, z);
    zMax = std::max(zMax, z);
}

void PointTree::Box::add(const Box& other)
{
    xMin = std::min(xMin, other.xMin);
    xMax = std::max(xMax, other.xMax);
    yMin = std::min(yMin, other.yMin);
    yMax = std::max(yMax, other.yMax);
    zMin = std::min(zMin, other.zMin);
    zMax = std::max(zMax, other.zMax);
}

PointTree::PointTree(const PointList& points, Halved halved) : halved_(halved)
{
    entries_.reserve(points.size());
    for (std::size_t i = 0; i < points.size(); ++i)
        entries_.push_back({points[i].x, points[i].y, points[i].z, static_cast<int>(i)});
    if (entries_.empty())
        return;
    std::size_t leaves = 1;
    while (leaves * kLeafSize < entries_.size())
        leaves *= 2;
    nodes_.resize(2 * leaves - 1);
    build(0, 0, static_cast<std::int32_t>(entries_.size()));
}

void PointTree::build(std::size_t node, std::int32_t begin, std::int32_t end)
{
    Node& n = nodes_[node];
    n.begin = begin;
    n.end = end;
    for (std::int32_t i = begin; i < end; ++i) {
        const Entry& e = entries_[static_cast<std::size_t>(i)];
        n.box.add(e.x, e.y, e.z);
        n.firstIndex = std::min(n.firstIndex, e.index);
    }
    n.isLeaf = 2 * node + 2 >= nodes_.size();
    if (n.isLeaf)
        return;
    const std::int32_t middle = begin + (end - begin) / 2;
    const double width = n.box.xMax - n.box.xMin;
    const double height = n.box.yMax - n.box.yMin;
    double Entry::*by = width >= height ? &Entry::x : &Entry::y;
    if (halved_ == Halved::InSpace && n.box.zMax - n.box.zMin > std::max(width, height))
        by = &Entry::z;
    const auto first = entries_.begin();
    std::nth_element(first + begin, first + middle, first + end,
                     [by](const Entry& a, const Entry& b) { return a.*by < b.*by; });
    build(2 * node + 1, begin, middle);
    build(2 * node + 2, middle, end);
}

PointTree::Nearest PointTree::nearest(double x, double y, double limit, int indexLimit) const
{
    struct Waiting {
        double bound;
        std::size_t node;
    };
    Nearest best;
    best.distance = limit;
    if (nodes_.empty())
        return best;
    const auto boundOf = [&](std::size_t node) {
        const Box& box = nodes_[node].box;
        const double dx = gap(box.xMin, box.xMax, x);
        const double dy = gap(box.yMin, box.yMax, y);
        return std::sqrt(dx * dx + dy * dy);
    };
    Waiting stack[64];
    std::size_t depth = 0;
    stack[depth++] = {boundOf(0), 0};
    while (depth > 0) {
        const Waiting top = stack[--depth];
        const Node& node = nodes_[top.node];
        // The second nearest is wanted too, but ties of it are of no interest.
        if (node.firstIndex >= indexLimit || top.bound > best.nextDistance
            || (top.bound == best.nextDistance && node.firstIndex > best.index))
            continue;
        if (!node.isLeaf) {
            Waiting near{boundOf(2 * top.node + 1), 2 * top.node + 1};
            Waiting far{boundOf(2 * top.node + 2), 2 * top.node + 2};
            if (far.bound < near.bound)
                std::swap(near, far);
            stack[depth++] = far;
            stack[depth++] = near;
            continue;
        }
        for (std::int32_t i = node.begin; i < node.end; ++i) {
            const Entry& e = entries_[static_cast<std::size_t>(i)];
            if (e.index >= indexLimit)
                continue;
            const double d = planDistance({e.x, e.y, 0.0}, {x, y, 0.0});
            if (d < best.distance || (d == best.distance && e.index < best.index)) {
                if (best.index >= 0)
                    best.nextDistance = best.distance;
                best.distance = d;
                best.index = e.index;
            } else if (d < best.nextDistance) {
                best.nextDistance = d;
            }
        }
    }
    return best;
}

void PointTree::nearestByManhattan(double x, double y, std::size_t k, std::vector<int>* indices) const
{
    using Candidate = std::pair<double, int>;
    struct Waiting {
        double bound;
        std::size_t node;
    };
    std::vector<Candidate> heap; // the worst on top
    const auto boundOf = [&](std::size_t node) {
        const Box& box = nodes_[node].box;
        return gap(box.xMin, box.xMax, x) + gap(box.yMin, box.yMax, y);
    };
    Waiting stack[64];
    std::size_t depth = 0;
    if (!nodes_.empty() && k > 0)
        stack[depth++] = {boundOf(0), 0};
    while (depth > 0) {
        const Waiting top = stack[--depth];
        const Node& node = nodes_[top.node];
        if (heap.size() == k && heap.front() < Candidate(top.bound, node.firstIndex))
            continue;
        if (!node.isLeaf) {
            Waiting near{boundOf(2 * top.node + 1), 2 * top.node + 1};
            Waiting far{boundOf(2 * top.node + 2), 2 * top.node + 2};
            if (far.bound < near.bound)
                std::swap(near, far);
            stack[depth++] = far;
            stack[depth++] = near;
            continue;
        }
        for (std::int32_t i = node.begin; i < node.end; ++i) {
            const Entry& e = entries_[static_cast<std::size_t>(i)];
            if (e.index == kAll)
                continue;
            const Candidate candidate(std::fabs(e.x - x) + std::fabs(e.y - y), e.index);
            if (heap.size() == k) {
                if (!(candidate < heap.front()))
                    continue;
                std::pop_heap(heap.begin(), heap.end());
                heap.pop_back();
            }
            heap.push_back(candidate);
            std::push_heap(heap.begin(), heap.end());
        }
    }
    std::sort_heap(heap.begin(), heap.end());
    indices->clear();
    for (const Candidate& candidate : heap)
        indices->push_back(candidate.second);
}

void PointTree::summarise(std::size_t node)
{
    Node& n = nodes_[node];
    n.firstIndex = kAll;
    n.box = Box();
    if (!n.isLeaf) {
        for (std::size_t child : {2 * node + 1, 2 * node + 2}) {
            n.firstIndex = std::min(n.firstIndex, nodes_[child].firstIndex);
            n.box.add(nodes_[child].box);
        }
        return;
    }
    for (std::int32_t i = n.begin; i < n.end; ++i) {
        const Entry& e = entries_[static_cast<std::size_t>(i)];
        n.firstIndex = std::min(n.firstIndex, e.index);
        if (e.index != kAll)
            n.box.add(e.x, e.y, e.z);
    }
}

void PointTree::remove(int index)
{
    if (positions_.empty()) {
        positions_.resize(entries_.size(), -1);
        for (std::size_t i = 0; i < entries_.size(); ++i)
            positions_[static_cast<std::size_t>(entries_[i].index)] = static_cast<std::int32_t>(i);
    }
    const std::int32_t position = positions_[static_cast<std::size_t>(index)];
    entries_[static_cast<std::size_t>(position)].index = kAll;
    std::size_t node = 0;
    while (!nodes_[node].isLeaf)
        node = nodes_[2 * node + 1].end > position ? 2 * node + 1 : 2 * node + 2;
    for (summarise(node); node > 0;) {
        node = (node - 1) / 2;
        summarise(node);
    }
}

} // namespace geometry
