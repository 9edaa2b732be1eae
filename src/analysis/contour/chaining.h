#pragma once

#include "analysis/contour/surface_model.h"

namespace contour {

// A piece of an isoline inside one triangle; both ends have the level as z.
struct ContourSegment {
    Point3 start;
    Point3 end;
};

// Joins segments into lines. Each line starts with the first segment left and
// grows, at both ends, by the last segment of the list with an end nearer than
// GEOM_TOL to one of the line's ends. A closed line takes only the very last
// segment, if that one fits, and is finished. `goesOn`: the list is followed by
// segments of other levels, so that the very last one fits no line of this one.
std::vector<Isoline> chainSegments(const std::vector<ContourSegment>& segments, bool goesOn = false);

} // namespace contour
