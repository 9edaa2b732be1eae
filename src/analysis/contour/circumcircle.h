#pragma once

#include "geometry/point3.h"

namespace contour {

struct Circumcircle {
    double x = 0.0;
    double y = 0.0;
    double squaredRadius = 0.0; // from the centre to the triangle's second corner
};

// From the bisectors of two sides. False for a triangle whose corners lie at one
// y within 1e-6 (a double here, not GEOM_TOL): no point is ever inside it.
// Corners on a sloping line give infinite or undefined figures.
bool circumcircle(const geometry::Point3& p1, const geometry::Point3& p2, const geometry::Point3& p3,
                  Circumcircle* circle);

} // namespace contour
