#pragma once

#include "geometry/point3.h"

// Polygons are lists of corners judged in plan, not closed by a repeated point;
// a repeated closing point changes nothing.
namespace geometry {

// Area in plan, never negative.
double polygonArea(const PointList& polygon);

// Inside by the even-odd rule along the ray to +x. No care is taken of points on
// the rim. False for an empty polygon.
bool insideEvenOdd(double x, double y, const PointList& polygon);

// Inside by a ray in direction (1, 1); a point on the rim (nearer to it than
// GEOM_TOL) is inside. A ray through a corner counts one of the two edges only.
bool pointInPolygon(const Point3& p, const PointList& polygon);

namespace polygon_edge {

// The three judgements above for one edge, so that an index over edges gives
// the same answers as the plain loops.
bool crossesEvenOdd(double x, double y, const Point3& previous, const Point3& current);
bool isZero(const Point3& a, const Point3& b);
bool touches(const Point3& p, const Point3& a, const Point3& b);
bool crossesDiagonal(const Point3& p, const Point3& a, const Point3& b);

} // namespace polygon_edge

} // namespace geometry
