#include "geometry/segment_index.h"

#include "geometry/polygon.h"
#include "geometry/segment.h"

#include <algorithm>

namespace geometry {

namespace {

// What rounding can do to a computed place, as a part of the coordinates that
// went into it; many times more than it does.
constexpr double kRounding = 1e-14;

} // namespace

void SegmentIndex::Node::add(const Point3& p)
{
    xMin = std::min(xMin, p.x);
    xMax = std::max(xMax, p.x);
    yMin = std::min(yMin, p.y);
    yMax = std::max(yMax, p.y);
    differenceMin = std::min(differenceMin, p.x - p.y);
    differenceMax = std::max(differenceMax, p.x - p.y);
    sumMax = std::max(sumMax, p.x + p.y);
}

void SegmentIndex::Node::add(const Node& other)
{
    xMin = std::min(xMin, other.xMin);
    xMax = std::max(xMax, other.xMax);
    yMin = std::min(yMin, other.yMin);
    yMax = std::max(yMax, other.yMax);
    differenceMin = std::min(differenceMin, other.differenceMin);
    differenceMax = std::max(differenceMax, other.differenceMax);
    sumMax = std::max(sumMax, other.sumMax);
}

double SegmentIndex::Node::distanceTo(const Point3& p) const
{
    const double dx = std::max({xMin - p.x, p.x - xMax, 0.0});
    const double dy = std::max({yMin - p.y, p.y - yMax, 0.0});
    return std::sqrt(dx * dx + dy * dy);
}

SegmentIndex::SegmentIndex(PointList vertices, bool closed) : line_(std::move(vertices), closed)
{
    const std::size_t count = line_.segmentCount();
    if (count == 0)
        return;
    leaves_ = 1;
    while (leaves_ * kLeafSize < count)
        leaves_ *= 2;
    nodes_.resize(2 * leaves_ - 1);
    for (std::size_t i = 0; i < count; ++i) {
        Node& leaf = nodes_[leaves_ - 1 + i / kLeafSize];
        leaf.add(start(i));
        leaf.add(end(i));
        largest_ = std::max({largest_, std::fabs(start(i).x), std::fabs(start(i).y)});
        largest_ = std::max({largest_, std::fabs(end(i).x), std::fabs(end(i).y)});
    }
    for (std::size_t node = leaves_ - 1; node-- > 0;) {
        nodes_[node].add(nodes_[2 * node + 1]);
        nodes_[node].add(nodes_[2 * node + 2]);
    }
}

double SegmentIndex::slackAt(const Point3& p) const { return kRounding * (largest_ + std::fabs(p.x) + std::fabs(p.y)); }

Polyline::Place SegmentIndex::closest(const Point3& p) const
{
    Polyline::Place best;
    if (!line_.vertices().empty())
        best.point = line_.vertices().front();
    if (nodes_.empty())
        return best;
    const double slack = slackAt(p);
    std::size_t bestSegment = 0;
    struct Waiting {
        std::size_t node;
        double bound;
    };
    Waiting stack[64];
    std::size_t depth = 0;
    stack[depth++] = {0, 0.0};
    while (depth > 0) {
        const Waiting top = stack[--depth];
        if (top.bound * (1.0 - kRounding) > best.distance + slack)
            continue;
        if (top.node + 1 < leaves_) {
            Waiting near{2 * top.node + 1, nodes_[2 * top.node + 1].distanceTo(p)};
            Waiting far{2 * top.node + 2, nodes_[2 * top.node + 2].distanceTo(p)};
            if (far.bound < near.bound)
                std::swap(near, far);
            stack[depth++] = far;
            stack[depth++] = near;
            continue;
        }
        const std::size_t first = (top.node + 1 - leaves_) * kLeafSize;
        const std::size_t last = std::min(first + kLeafSize, line_.segmentCount());
        for (std::size_t i = first; i < last; ++i) {
            const ClosestPlace place = closestOnSegment(start(i), end(i), p);
            if (place.distance < best.distance || (place.distance == best.distance && i < bestSegment)) {
                best = {place.point, static_cast<double>(i) + place.t, place.distance};
                bestSegment = i;
            }
        }
    }
    return best;
}

bool SegmentIndex::isWithin(const Point3& p, double limit) const
{
    const double reach = limit + slackAt(p);
    const auto matters = [&](const Node& node) {
        return node.xMin - reach <= p.x && p.x <= node.xMax + reach && node.yMin - reach <= p.y
            && p.y <= node.yMax + reach;
    };
    bool found = false;
    walk(matters, [&](std::size_t i) {
        found = closestOnSegment(start(i), end(i), p).distance < limit;
        return !found;
    });
    return found;
}

bool SegmentIndex::pointInPolygon(const Point3& p) const
{
    const double slack = slackAt(p);
    const double reach = GEOM_TOL + slack;
    const double difference = p.x - p.y;
    const double sum = p.x + p.y;
    const auto matters = [&](const Node& node) {
        const bool crosses = node.differenceMin - difference <= slack && node.differenceMax - difference >= -slack
            && node.sumMax - sum >= -slack;
        return crosses
            || (node.xMin - reach <= p.x && p.x <= node.xMax + reach && node.yMin - reach <= p.y
                && p.y <= node.yMax + reach);
    };
    bool inside = false;
    bool onRim = false;
    walk(matters, [&](std::size_t i) {
        if (polygon_edge::isZero(start(i), end(i)))
            return true;
        onRim = polygon_edge::touches(p, start(i), end(i));
        if (polygon_edge::crossesDiagonal(p, start(i), end(i)))
            inside = !inside;
        return !onRim;
    });
    return onRim || inside;
}

bool SegmentIndex::insideEvenOdd(double x, double y) const
{
    const double slack = slackAt({x, y, 0.0});
    const auto matters = [&](const Node& node) { return node.yMin <= y && y < node.yMax && x <= node.xMax + slack; };
    bool inside = false;
    walk(matters, [&](std::size_t i) {
        if (polygon_edge::crossesEvenOdd(x, y, start(i), end(i)))
            inside = !inside;
        return true;
    });
    return inside;
}

} // namespace geometry
