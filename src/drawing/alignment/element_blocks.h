// Elements and directions, as the commands of this folder see them.
#pragma once

#include "elements/element_block.h"

#include <nrx/geometry.h>

/// An element as its block says it, without a question to the database: what is
/// written back to the block does not depend on the names of states. No kind
/// for anything that is not an element's block.
ElementBlock elementOf(NcDbObjectId id);

/// Radians from the world's X axis to that of the current user coordinate system.
double currentUcsAngle();

/// The angle of an axis in plan.
double planAngle(const NcGeVector3d& axis);
