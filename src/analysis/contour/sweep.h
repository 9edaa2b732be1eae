#pragma once

#include "analysis/contour/surface_model.h"

namespace contour {

// Delaunay triangulation by insertion in x order (Bowyer and Watson, in the form
// published by P. Bourke, "Triangulate", 1989). `vertices` holds vertexCount
// points by x and three free places behind them, which take the corners of a
// triangle around all; their z is not set.
//
// The order of the result is that of an array in which a removed triangle is
// replaced by the last one and new ones go to the end. False, with no triangles,
// when all points lie at one place, when rounding makes triangles multiply
// beyond reason, or when stopped.
bool sweepTriangulation(PointList* vertices, std::int32_t vertexCount, std::vector<Triangle>* triangles,
                        const Tick& tick);

} // namespace contour
