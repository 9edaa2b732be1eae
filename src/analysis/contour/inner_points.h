#pragma once

#include "analysis/contour/surface_model.h"
#include "geometry/point_tree.h"

namespace contour {

// Finds among many points, in their order, the one that speaks for a ring.
// Points removed are found no more; the numbers of the others stay.
class InnerPoints {
public:
    // In space for nearestToLine, in plan where firstInside is all that is asked.
    explicit InnerPoints(const PointList& points,
                         geometry::PointTree::Halved halved = geometry::PointTree::Halved::InPlan);

    // The first point inside the ring or on its rim; -1 for none.
    int firstInside(const PointList& ring) const;

    // The point with the smallest distance in space to that place of the line
    // which is nearest to it in plan; -1 without points.
    int nearestToLine(const Isoline& line) const;

    void remove(int index) { tree_.remove(index); }

private:
    const PointList& points_;
    geometry::PointTree tree_;
};

} // namespace contour
