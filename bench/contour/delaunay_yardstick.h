#pragma once

#include "geometry/point3.h"

#ifdef TERVA_HAVE_CGAL
constexpr bool kHaveCgal = true;
#else
constexpr bool kHaveCgal = false;
#endif

// Number of triangles of CGAL's Delaunay triangulation of the points, inserted
// at once (which sorts them along a space-filling curve); -1 where CGAL is not
// installed. Apart, since its headers want their own warnings.
long delaunayTriangles(const geometry::PointList& points);
