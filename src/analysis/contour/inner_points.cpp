#include "analysis/contour/inner_points.h"

#include "analysis/contour/iso_contour_set.h"
#include "geometry/polygon.h"
#include "geometry/segment_index.h"

#include <algorithm>
#include <optional>

namespace contour {

using geometry::GEOM_TOL;
using geometry::PointTree;

namespace {

constexpr double kRounding = 1e-14;
// Below so many corners a ring is judged without an index, and above it for the
// first few points too.
constexpr std::size_t kSmallRing = 24;
constexpr int kPlainTests = 3;
// Looking at so many boxes of points costs about as much as a tree over a point.
constexpr std::size_t kLooksForATree = 16;
// Rings of such coordinates are judged point by point, whatever comes of it.
constexpr double kBeyondMeasure = 1e100;

struct PlanBox {
    PointTree::Box box;
    double largest = 0.0;

    explicit PlanBox(const PointList& points)
    {
        for (const Point3& p : points) {
            box.xMin = std::min(box.xMin, p.x);
            box.xMax = std::max(box.xMax, p.x);
            box.yMin = std::min(box.yMin, p.y);
            box.yMax = std::max(box.yMax, p.y);
            largest = std::max({largest, std::fabs(p.x), std::fabs(p.y), std::fabs(p.z)});
        }
    }
};

// Where no side of the ring comes near a box, all places in it are judged alike.
bool mayHoldInner(const PointTree::Box& box, double reach, const geometry::SegmentIndex& ring)
{
    bool isNear = false;
    ring.meetingBox({box.xMin - reach, box.yMin - reach, 0.0}, {box.xMax + reach, box.yMax + reach, 0.0},
                    [&](std::size_t) { isNear = true; });
    return isNear || ring.pointInPolygon({box.xMin, box.yMin, 0.0});
}

double gap(double fromA, double toA, double fromB, double toB) { return std::max({fromA - toB, fromB - toA, 0.0}); }

} // namespace

InnerPoints::InnerPoints(const PointList& points, PointTree::Halved halved) : points_(points), halved_(halved) { }

PointTree& InnerPoints::tree()
{
    if (!tree_) {
        tree_.emplace(points_, halved_);
        for (int index : removed_)
            tree_->remove(index);
    }
    return *tree_;
}

void InnerPoints::remove(int index)
{
    if (tree_) {
        tree_->remove(index);
        return;
    }
    looks_ += removed_.size();
    removed_.insert(std::lower_bound(removed_.begin(), removed_.end(), index), index);
}

// Many maps have a few rings, most of which hold one of the first points.
template <class MayHold, class Accepts>
int InnerPoints::firstInBox(const PointTree::Box& box, MayHold mayHold, Accepts accepts)
{
    if (tree_ || looks_ > kLooksForATree * points_.size())
        return tree().firstInBox(box, mayHold, accepts);
    auto removed = removed_.begin();
    for (std::size_t i = 0; i < points_.size(); ++i) {
        const auto index = static_cast<int>(i);
        if (removed != removed_.end() && *removed == index) {
            ++removed;
            continue;
        }
        const Point3& p = points_[i];
        ++looks_;
        if (p.x >= box.xMin && p.x <= box.xMax && p.y >= box.yMin && p.y <= box.yMax && accepts(index))
            return index;
    }
    return -1;
}

int InnerPoints::firstInside(const PointList& ring)
{
    PlanBox around(ring);
    const double reach = GEOM_TOL + kRounding * around.largest;
    around.box.xMin -= reach;
    around.box.xMax += reach;
    around.box.yMin -= reach;
    around.box.yMax += reach;
    std::optional<geometry::SegmentIndex> index;
    int tests = 0;
    const bool judgesBoxes = around.largest < kBeyondMeasure;
    const auto mayHold = [&](const PointTree::Box& box) {
        return !index || !judgesBoxes || mayHoldInner(box, 2.0 * reach, *index);
    };
    return firstInBox(around.box, mayHold, [&](int i) {
        const Point3& p = points_[static_cast<std::size_t>(i)];
        if (ring.size() < kSmallRing || tests++ < kPlainTests)
            return geometry::pointInPolygon(p, ring);
        if (!index)
            index.emplace(ring, true);
        return index->pointInPolygon(p);
    });
}

int InnerPoints::nearestToLine(const Isoline& line)
{
    const PlanBox around(line);
    const geometry::SegmentIndex index(line, false);
    const double level = line.front().z;
    const auto lowerBound = [&](const PointTree::Box& box) {
        const double dx = gap(box.xMin, box.xMax, around.box.xMin, around.box.xMax);
        const double dy = gap(box.yMin, box.yMax, around.box.yMin, around.box.yMax);
        const double dz = gap(box.zMin, box.zMax, level, level);
        const double slack = kRounding * around.largest;
        const double bound = std::sqrt(dx * dx + dy * dy + dz * dz) * (1.0 - kRounding) - slack;
        return std::max(bound, 0.0);
    };
    return tree().smallest(lowerBound, [&](int i) {
        const Point3& p = points_[static_cast<std::size_t>(i)];
        return geometry::distance(p, index.closest(p).point);
    });
}

int findInnerPoint(const PointList& ring, const PointList& candidates)
{
    return InnerPoints(candidates).firstInside(ring);
}

} // namespace contour
