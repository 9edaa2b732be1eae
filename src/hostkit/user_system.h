// The user coordinate system of the active view.
#pragma once

#include <nrx/geometry.h>

/// The world's direction of its X axis; the world's own where it cannot be told.
NcGeVector3d userXAxis();

/// Radians from the world's X axis to that of the user coordinate system, in
/// plan, -π..π.
double userSystemAngle();

/// The angle of an axis in plan.
double planAngle(const NcGeVector3d& axis);
