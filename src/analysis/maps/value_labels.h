// The values of a map written beside their points.
#pragma once

#include "geometry/point3.h"

#include <nrx/object.h>

// One centred text at each point (x, y, value), along the X axis of the user
// coordinate system, on the current layer; all in a new group "TERVA_VALS_...".
NcDbObjectIdArray drawValueLabels(const geometry::PointList& points);
