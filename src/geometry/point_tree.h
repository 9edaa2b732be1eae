#pragma once

#include "geometry/point3.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <queue>
#include <vector>

namespace geometry {

// Points under a balanced tree that halves them by x or y, whichever spreads
// more, or by z too where distances in space are asked for. Answers are those of a plain loop over the points in their
// own order: of two that are equally good the earlier one wins.
class PointTree {
public:
    static constexpr int kAll = std::numeric_limits<int>::max();

    struct Nearest {
        int index = -1;
        double distance = INFINITY;     // in plan
        double nextDistance = INFINITY; // of the second nearest point, or less
    };

    struct Box {
        double xMin = INFINITY, xMax = -INFINITY;
        double yMin = INFINITY, yMax = -INFINITY;
        double zMin = INFINITY, zMax = -INFINITY;

        void add(double x, double y, double z);
        void add(const Box& other);
    };

    enum class Halved { InPlan, InSpace };

    explicit PointTree(const PointList& points, Halved halved = Halved::InPlan);

    // Nearest in plan of the points below indexLimit and nearer than the limit.
    Nearest nearest(double x, double y, double limit, int indexLimit = kAll) const;

    // The k nearest by |dx| + |dy| in that order, earlier points first.
    void nearestByManhattan(double x, double y, std::size_t k, std::vector<int>* indices) const;

    // The first point in the box (x and y count) that `accepts` takes; -1 for none.
    template <class Accepts>
    int firstInBox(const Box& box, Accepts accepts) const
    {
        return firstInBox(
            box, [](const Box&) { return true; }, accepts);
    }

    // The same where whole boxes of points are known to be refused: `mayHold` is
    // false for a box none of whose points `accepts` would take.
    template <class MayHold, class Accepts>
    int firstInBox(const Box& box, MayHold mayHold, Accepts accepts) const;

    // The point with the smallest value(index), the first of equals; -1 for none
    // below infinity. No point in a box may have a value below lowerBound(box).
    template <class LowerBound, class Value>
    int smallest(LowerBound lowerBound, Value value) const;

    // Takes a point out of the tree, whose boxes shrink to what is left; indices
    // of the others stay.
    void remove(int index);

private:
    struct Entry {
        double x, y, z;
        int index;
    };

    struct Node {
        Box box;
        int firstIndex = kAll; // smallest index below this node
        std::int32_t begin = 0, end = 0;
        bool isLeaf = true;
    };

    static constexpr std::int32_t kLeafSize = 8;

    void build(std::size_t node, std::int32_t begin, std::int32_t end);
    void summarise(std::size_t node);

    Halved halved_;
    std::vector<Entry> entries_;
    std::vector<Node> nodes_;             // children of i at 2i + 1 and 2i + 2
    std::vector<std::int32_t> positions_; // of points in entries_, made by the first remove
};

template <class MayHold, class Accepts>
int PointTree::firstInBox(const Box& box, MayHold mayHold, Accepts accepts) const
{
    // Nodes wait with their smallest index, so points come out in index order.
    struct Waiting {
        int index;
        std::int32_t node; // -1: the point itself
        bool operator<(const Waiting& other) const { return index > other.index; }
    };
    std::priority_queue<Waiting> queue;
    const auto waitFor = [&](std::size_t node) {
        const Node& n = nodes_[node];
        if (n.firstIndex != kAll && n.box.xMax >= box.xMin && box.xMax >= n.box.xMin && n.box.yMax >= box.yMin
            && box.yMax >= n.box.yMin)
            queue.push({n.firstIndex, static_cast<std::int32_t>(node)});
    };
    if (!nodes_.empty())
        waitFor(0);
    while (!queue.empty()) {
        const Waiting top = queue.top();
        queue.pop();
        if (top.node < 0) {
            if (accepts(top.index))
                return top.index;
            continue;
        }
        const Node& node = nodes_[static_cast<std::size_t>(top.node)];
        if (!mayHold(node.box))
            continue;
        if (!node.isLeaf) {
            waitFor(2 * static_cast<std::size_t>(top.node) + 1);
            waitFor(2 * static_cast<std::size_t>(top.node) + 2);
            continue;
        }
        for (std::int32_t i = node.begin; i < node.end; ++i) {
            const Entry& e = entries_[static_cast<std::size_t>(i)];
            if (e.index != kAll && e.x >= box.xMin && e.x <= box.xMax && e.y >= box.yMin && e.y <= box.yMax)
                queue.push({e.index, -1});
        }
    }
    return -1;
}

template <class LowerBound, class Value>
int PointTree::smallest(LowerBound lowerBound, Value value) const
{
    struct Waiting {
        double bound;
        std::size_t node;
    };
    std::vector<Waiting> stack;
    if (!nodes_.empty() && nodes_[0].firstIndex != kAll)
        stack.push_back({0.0, 0});
    double best = INFINITY;
    int found = -1;
    while (!stack.empty()) {
        const Waiting top = stack.back();
        stack.pop_back();
        const Node& node = nodes_[top.node];
        if (top.bound > best || (top.bound == best && node.firstIndex > found && found >= 0))
            continue;
        if (node.isLeaf) {
            for (std::int32_t i = node.begin; i < node.end; ++i) {
                const int index = entries_[static_cast<std::size_t>(i)].index;
                if (index == kAll)
                    continue;
                const double v = value(index);
                if (v < best || (v == best && found >= 0 && index < found)) {
                    best = v;
                    found = index;
                }
            }
            continue;
        }
        Waiting children[2];
        int count = 0;
        for (std::size_t child : {2 * top.node + 1, 2 * top.node + 2}) {
            if (nodes_[child].firstIndex != kAll)
                children[count++] = {lowerBound(nodes_[child].box), child};
        }
        if (count == 2 && children[0].bound < children[1].bound)
            std::swap(children[0], children[1]);
        stack.insert(stack.end(), children, children + count);
    }
    return found;
}

} // namespace geometry
