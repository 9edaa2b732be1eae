// Points of what is drawn to which a picked point jumps.
#pragma once

#include "display_list.h"

#include <nrx/geometry.h>

#include <optional>

struct SnapPoint {
    enum Kind { End, Middle, Intersection, Node, Insertion, Center };
    Kind kind = End;
    NcGePoint3d at;
};

// The nearest of these within `tolerance` of a point; of two that are equally near
// the one that stands first above. Costs the figures near the point.
NRX_API std::optional<SnapPoint> snapPoint(const DisplayList& list, const QPointF& at, double tolerance);
// "Конечная точка" and the like.
NRX_API QString snapName(SnapPoint::Kind kind);

// A point held to the directions of ortho (multiples of 90°) or polar (of `step`
// degrees, when it lies within some degrees of one) from a base, turned by the
// angle of the user's axes. `held` tells whether it was.
NRX_API NcGePoint3d orthoPoint(const NcGePoint3d& base, const NcGePoint3d& at, double axisAngle);
NRX_API NcGePoint3d polarPoint(const NcGePoint3d& base, const NcGePoint3d& at, double axisAngle, double step,
                               bool& held);
