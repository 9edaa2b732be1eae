#pragma once

#include "geometry/point3.h"

namespace geometry {

// The place on a segment nearest in plan to a point.
struct ClosestPlace {
    Point3 point;          // z interpolated along the segment
    double t = 0.0;        // 0 at the segment's start, 1 at its end
    double distance = 0.0; // in plan
};

// A segment without length answers with its start.
ClosestPlace closestOnSegment(const Point3& a, const Point3& b, const Point3& p);

// Meeting point of two segments in plan, ends included, as the place on a-b
// (with its z). False for segments that are parallel or whose boxes lie apart.
bool intersectSegments(const Point3& a, const Point3& b, const Point3& c, const Point3& d, Point3* meeting);

} // namespace geometry
