#include "analysis/contour/border_rings.h"

#include <algorithm>

namespace contour {

using geometry::GEOM_TOL;
using geometry::PointTree;

namespace {

PointList onTheGround(PointList points)
{
    for (Point3& p : points)
        p.z = 0.0;
    return points;
}

double gap(double from, double to, double at) { return std::max({from - at, at - to, 0.0}); }

} // namespace

BorderRings::BorderRings(const IsoContourSet& set) : set_(set), border_(onTheGround(set.boundary), true) { }

RingList BorderRings::build()
{
    for (const Point3& p : set_.surfacePoints) {
        if (border_.isWithin(p, GEOM_TOL))
            onBorder_.push_back(p);
    }
    collectNodes();
    valueCorners();
    pairNodes();
    RingList rings;
    walked_.assign(nodes_.size(), 0);
    for (std::size_t first = 0; first < nodes_.size(); ++first) {
        if (!walked_[first])
            rings.push_back(ringFrom(first));
    }
    return rings;
}

void BorderRings::collectNodes()
{
    const PointList& corners = border_.line().vertices();
    for (std::size_t i = 0; i < corners.size(); ++i)
        nodes_.push_back({corners[i], static_cast<double>(i), -1, -1});
    for (std::size_t i = 0; i < set_.lines.size(); ++i) {
        const Isoline& line = set_.lines[i];
        if (line.empty() || isClosedLine(line))
            continue;
        anyLine_ = true;
        for (const Point3& end : {line.front(), line.back()})
            nodes_.push_back({end, border_.closest(end).parameter, static_cast<std::int32_t>(i), -1});
    }
    std::stable_sort(nodes_.begin(), nodes_.end(),
                     [](const BorderNode& a, const BorderNode& b) { return a.parameter < b.parameter; });
}

void BorderRings::valueCorners()
{
    if (anyLine_)
        valueCornersFromLines();
    else
        valueCornersFromPoints();
}

// From the line's end before it, wrapping round the start.
void BorderRings::valueCornersFromLines()
{
    const auto lastEnd =
        std::find_if(nodes_.rbegin(), nodes_.rend(), [](const BorderNode& node) { return node.lineIndex >= 0; });
    double z = lastEnd->point.z;
    for (BorderNode& node : nodes_) {
        if (node.lineIndex >= 0)
            z = node.point.z;
        else
            node.point.z = z;
    }
}

// From the point on the border nearest in space to the corner at z = 0.
void BorderRings::valueCornersFromPoints()
{
    const PointTree tree(onBorder_);
    for (BorderNode& node : nodes_) {
        const Point3 corner = node.point;
        const auto lowerBound = [&corner](const PointTree::Box& box) {
            const double dx = gap(box.xMin, box.xMax, corner.x);
            const double dy = gap(box.yMin, box.yMax, corner.y);
            const double dz = gap(box.zMin, box.zMax, corner.z);
            return std::sqrt(dx * dx + dy * dy + dz * dz);
        };
        const int nearest = tree.smallest(
            lowerBound, [&](int i) { return geometry::distance(onBorder_[static_cast<std::size_t>(i)], corner); });
        node.point.z = nearest < 0 ? 0.0 : onBorder_[static_cast<std::size_t>(nearest)].z;
    }
}

void BorderRings::pairNodes()
{
    std::vector<std::int32_t> waiting(set_.lines.size(), -1);
    for (std::size_t i = 0; i < nodes_.size(); ++i) {
        const auto self = static_cast<std::int32_t>(i);
        BorderNode& node = nodes_[i];
        if (node.lineIndex < 0) {
            node.mate = self;
            continue;
        }
        std::int32_t& other = waiting[static_cast<std::size_t>(node.lineIndex)];
        if (other < 0) {
            other = self;
        } else {
            node.mate = other;
            nodes_[static_cast<std::size_t>(other)].mate = self;
        }
    }
}

void BorderRings::appendLine(const BorderNode& node, Ring* ring) const
{
    const SharedLine& line = set_.lines.share(static_cast<std::size_t>(node.lineIndex));
    ring->add(line, !(geometry::distance(node.point, line->front()) < GEOM_TOL));
}

Ring BorderRings::ringFrom(std::size_t first)
{
    double lowest = 999999.0;
    double highest = -999999.0;
    bool touched = false;
    Ring ring;
    PointList corners; // in a row, not in the ring yet
    const auto addCorners = [&] {
        if (!corners.empty())
            ring.add(shared(std::move(corners)));
        corners.clear();
    };
    std::size_t i = first;
    do {
        const BorderNode& node = nodes_[i];
        walked_[i] = 1;
        lowest = std::min(lowest, node.point.z);
        highest = std::max(highest, node.point.z);
        if (node.lineIndex < 0) {
            corners.push_back(node.point);
        } else {
            touched = true;
            addCorners();
            appendLine(node, &ring);
        }
        i = (static_cast<std::size_t>(node.mate) + 1) % nodes_.size();
    } while (i != first);
    corners.push_back(nodes_[first].point);
    addCorners();

    ring.setValue(lowest);
    if (touched && lowest == highest)
        ring.setValue(valueInside(ring.points(), lowest));
    return ring;
}

// One level alone bounds the ring; a point inside tells on which side it lies.
double BorderRings::valueInside(const PointList& ring, double level)
{
    if (!borderPoints_)
        borderPoints_ = std::make_unique<InnerPoints>(onBorder_);
    const int onBorder = borderPoints_->firstInside(ring);
    if (onBorder >= 0)
        return valueBeside(level, onBorder_[static_cast<std::size_t>(onBorder)].z);
    if (!allPoints_)
        allPoints_ = std::make_unique<InnerPoints>(set_.surfacePoints);
    const int inner = allPoints_->firstInside(ring);
    return inner < 0 ? level : valueBeside(level, set_.surfacePoints[static_cast<std::size_t>(inner)].z);
}

// At the last level a ring above it keeps that level as its value, and below the
// first one it gets a value under all: neither lies in a band.
double BorderRings::valueBeside(double level, double inner) const
{
    const std::vector<double>& levels = set_.levels;
    int band = set_.bandOf(level);
    if (band >= 0 && inner > level)
        return levels[static_cast<std::size_t>(band + (set_.bandOf(inner) > band ? 1 : 0))];
    if (band < 0) {
        if (levels.empty() || level != levels.back() || inner > level)
            return level;
        band = static_cast<int>(std::lower_bound(levels.begin(), levels.end(), level) - levels.begin());
    }
    if (band == 0)
        return std::min(inner, std::nextafter(levels.front(), -INFINITY));
    return levels[static_cast<std::size_t>(band) - 1];
}

void IsoContourSet::buildRings()
{
    rings.clear();
    const bool closedBuilt = buildClosedRings();
    if (boundary.size() >= 3)
        rings = BorderRings(*this).build();
    if (closedBuilt)
        rings.append(closedRings);
    ringsBuilt = true;
}

} // namespace contour
