#pragma once

#include "geometry/point3.h"

namespace geometry {

// A cubic cardinal spline in plan through its own points, cut into `samples`
// places a segment. Every point of the result has the given z.
//
// A tangent is `tension` times the chord of the two neighbours. Where a
// neighbouring segment is longer than the segment itself the tension falls by
// their ratio: this keeps unevenly spaced lines from looping.
class CardinalSpline {
public:
    // A number of samples below 1 counts as 1.
    CardinalSpline(double tension, int samples);

    // At least four points. Starts at the first and ends at the last of them;
    // each inner knot stands twice in a row.
    PointList throughOpen(const PointList& points, double z) const;

    // The points of a loop without the repeated closing one; the result is
    // closed by a repetition of its first point.
    PointList throughClosed(const PointList& points, double z) const;

private:
    void appendSegment(const Point3& p0, const Point3& p1, const Point3& p2, const Point3& p3, double z,
                       PointList* out) const;
    double tensionBetween(const Point3& p0, const Point3& p1, const Point3& p2, const Point3& p3) const;

    double tension_;
    int samples_;
};

} // namespace geometry
