#pragma once

#include "geometry/point3.h"

// Arcs of polylines, given as the CAD host gives them: two ends and a bulge,
// the tangent of a quarter of the arc's angle; positive is counter-clockwise.
namespace geometry {

// A full turn has at least that many chords, however small it is.
constexpr int leastChordsOfTurn = 8;

// How far a chord may leave its arc when an arc is written as points: 1 mm in a
// drawing of metres.
constexpr double chordTolerance = 0.001;

// The arc as points: those behind `from`, the last of them exactly `to`, equal
// steps apart, elevations in proportion. No chord is farther than `tolerance`
// from the arc, and none spans more than an eighth of a turn. A bulge of 0 or
// one that is not finite, and ends at one place, give `to` alone.
PointList arcPoints(const Point3& from, const Point3& to, double bulge, double tolerance = chordTolerance);

} // namespace geometry
