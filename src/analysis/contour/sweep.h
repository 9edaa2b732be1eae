#pragma once

#include "analysis/contour/surface_model.h"

namespace contour {

// Delaunay triangulation by insertion in x order (Bowyer and Watson, in the form
// published by P. Bourke, "Triangulate", 1989). `vertices` holds vertexCount
// points by x and three free places behind them, which take the corners of a
// triangle around all; their z is not set.
//
// The order of the result is that of an array in which a removed triangle is
// replaced by the last one and new ones go to the end. Vertices marked in
// `repeats` (one mark a vertex) are left out: they lie at the place of another.
//
// Which triangles make room for a vertex is decided by computed circles, as maps
// have always been made. Where rounding makes these contradict each other, so
// that the triangles left do not lie in one loop round the vertex, exact figures
// decide instead: the triangles of a result never overlap.
//
// False, with no triangles, when all points lie at one place, when coordinates
// beyond all measure make triangles multiply, or when stopped.
bool sweepTriangulation(PointList* vertices, std::int32_t vertexCount, const std::vector<char>& repeats,
                        std::vector<Triangle>* triangles, const Tick& tick);

} // namespace contour
