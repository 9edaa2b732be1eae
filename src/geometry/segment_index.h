#pragma once

#include "geometry/polyline.h"

#include <cstdint>
#include <vector>

namespace geometry {

// The segments of one chain under a tree of boxes. Neighbours along a chain are
// neighbours in space, so the tree is built over the segments in their own
// order. Every answer is that of the plain loop over all segments, to the last
// digit and with its rule for ties; the cost is about the logarithm of their
// number for each segment that matters.
class SegmentIndex {
public:
    SegmentIndex(PointList vertices, bool closed);

    const Polyline& line() const { return line_; }

    // As Polyline::closest.
    Polyline::Place closest(const Point3& p) const;

    // Whether any segment lies nearer to the point than the limit, in plan.
    bool isWithin(const Point3& p, double limit) const;

    // As the functions of the same name over the vertices as a polygon. The
    // chain must be closed.
    bool pointInPolygon(const Point3& p) const;
    bool insideEvenOdd(double x, double y) const;

    // Calls visit(segment) in order for the segments whose boxes meet the box
    // around a and b, rims included.
    template <class Visit>
    void meetingBox(const Point3& a, const Point3& b, Visit visit) const;

private:
    struct Node {
        double xMin = INFINITY, xMax = -INFINITY;
        double yMin = INFINITY, yMax = -INFINITY;
        double differenceMin = INFINITY, differenceMax = -INFINITY; // of x - y
        double sumMax = -INFINITY;                                  // of x + y

        void add(const Point3& p);
        void add(const Node& other);
        double distanceTo(const Point3& p) const;
    };

    static constexpr std::size_t kLeafSize = 4;

    // Walks the nodes that `enter` lets through, leaves from the first to the
    // last, and calls visit(segment); stops when visit says false.
    template <class Enter, class Visit>
    void walk(Enter enter, Visit visit) const;

    const Point3& start(std::size_t segment) const { return line_.segmentStart(segment); }
    const Point3& end(std::size_t segment) const { return line_.segmentEnd(segment); }
    double slackAt(const Point3& p) const;

    Polyline line_;
    std::vector<Node> nodes_; // a heap; the leaves fill its second half
    std::size_t leaves_ = 0;
    double largest_ = 0.0; // of all coordinates, without sign
};

template <class Enter, class Visit>
void SegmentIndex::walk(Enter enter, Visit visit) const
{
    if (nodes_.empty())
        return;
    std::size_t stack[64];
    std::size_t depth = 0;
    stack[depth++] = 0;
    const std::size_t count = line_.segmentCount();
    while (depth > 0) {
        const std::size_t node = stack[--depth];
        if (!enter(nodes_[node]))
            continue;
        if (node + 1 < leaves_) {
            stack[depth++] = 2 * node + 2;
            stack[depth++] = 2 * node + 1;
            continue;
        }
        const std::size_t first = (node + 1 - leaves_) * kLeafSize;
        for (std::size_t i = first; i < first + kLeafSize && i < count; ++i) {
            if (!visit(i))
                return;
        }
    }
}

template <class Visit>
void SegmentIndex::meetingBox(const Point3& a, const Point3& b, Visit visit) const
{
    Node box;
    box.add(a);
    box.add(b);
    const auto meets = [&box](const Node& node) {
        return node.xMax >= box.xMin && box.xMax >= node.xMin && node.yMax >= box.yMin && box.yMax >= node.yMin;
    };
    walk(meets, [&](std::size_t i) {
        visit(i);
        return true;
    });
}

} // namespace geometry
