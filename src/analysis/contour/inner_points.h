#pragma once

#include "analysis/contour/surface_model.h"
#include "geometry/point_tree.h"

#include <optional>

namespace contour {

// Finds among many points, in their order, the one that speaks for a ring.
// Points removed are found no more; the numbers of the others stay.
class InnerPoints {
public:
    // In space for nearestToLine, in plan where firstInside is all that is asked.
    explicit InnerPoints(const PointList& points,
                         geometry::PointTree::Halved halved = geometry::PointTree::Halved::InPlan);

    // The first point inside the ring or on its rim; -1 for none.
    int firstInside(const PointList& ring);

    // The point with the smallest distance in space to that place of the line
    // which is nearest to it in plan; -1 without points.
    int nearestToLine(const Isoline& line);

    void remove(int index);

private:
    template <class MayHold, class Accepts>
    int firstInBox(const geometry::PointTree::Box& box, MayHold mayHold, Accepts accepts);
    geometry::PointTree& tree();

    const PointList& points_;
    geometry::PointTree::Halved halved_;
    std::vector<int> removed_;                // before there is a tree, in order
    std::size_t looks_ = 0;                   // at points without a tree
    std::optional<geometry::PointTree> tree_; // once that has cost as much as a tree
};

} // namespace contour
