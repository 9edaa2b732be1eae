#pragma once

#include "analysis/contour/surface_model.h"

// What a triangulation covers, judged from outside and by exact turns.
namespace coverage {

using contour::SurfaceModel;
using geometry::PointList;

double area(const SurfaceModel& model);

// Number of pairs of triangles that share more than their rims, and of
// triangles without an inside.
int overlaps(const SurfaceModel& model);

// Corners of the convex hull of the vertices.
PointList hull(const SurfaceModel& model);

// The corners of the triangle that all vertices start in lie some twenty sizes
// away, so that slivers along the hull whose circle reaches them stay uncovered.
// The most area that they can have together.
double sliverArea(const PointList& hull);

} // namespace coverage
