#pragma once

#include "analysis/contour/surface_model.h"

namespace contour {

// A piece of an isoline inside one triangle; both ends have the level as z.
struct ContourSegment {
    Point3 start;
    Point3 end;
};

// Segments of one list. They are held in the order of their places, so that those
// near each other lie near each other in memory too.
struct SegmentList {
    std::vector<ContourSegment> segments;
    std::vector<std::int32_t> listed; // numbers of the segments as the list has them
};

// Joins segments into lines. Each line starts with the first segment left and
// grows, at both ends, by the last segment of the list with an end nearer than
// GEOM_TOL to one of the line's ends. A closed line takes only the very last
// segment, if that one fits, and is finished. `goesOn`: the list is followed by
// segments of other levels, so that the very last one fits no line of this one.
std::vector<Isoline> chainSegments(const SegmentList& list, bool goesOn = false);

} // namespace contour
