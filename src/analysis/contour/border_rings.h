#pragma once

#include "analysis/contour/inner_points.h"
#include "analysis/contour/iso_contour_set.h"
#include "geometry/segment_index.h"

#include <memory>

namespace contour {

// One stop on the walk along the boundary: a corner of it, or the end of a line.
struct BorderNode {
    Point3 point;
    double parameter = 0.0;      // on the closed boundary polyline
    std::int32_t lineIndex = -1; // -1 for a corner
    std::int32_t mate = -1;      // the node at the line's other end; a corner is its own
};

// Cuts the map along the lines that end on its border. From each node the walk
// goes on along the border to the next one, and through a line to its mate;
// every node is left once, so every line bounds two rings.
class BorderRings {
public:
    explicit BorderRings(const IsoContourSet& set);

    RingList build();

private:
    void collectNodes();
    void valueCorners();
    void valueCornersFromLines();
    void valueCornersFromPoints();
    void pairNodes();
    Ring ringFrom(std::size_t first);
    void appendLine(const BorderNode& node, Ring* ring) const;
    double valueInside(const PointList& ring, double level);
    double valueBeside(double level, double inner) const;

    const IsoContourSet& set_;
    geometry::SegmentIndex border_;
    PointList onBorder_; // surface points on the boundary
    std::vector<BorderNode> nodes_;
    std::vector<char> walked_;
    bool anyLine_ = false;
    std::unique_ptr<InnerPoints> borderPoints_; // made when first asked for
    std::unique_ptr<InnerPoints> allPoints_;
};

} // namespace contour
