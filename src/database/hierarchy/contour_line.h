#pragma once
// Lines of the drawing as contours, and lines of the database in the drawing.

#include "database/hierarchy/contour_record.h"
#include "geometry/point3.h"

#include <nrx/object.h>

#include <optional>

/// The vertices of a polyline; nothing of another entity. Distances follow its
/// arcs.
std::optional<std::vector<ContourPoint>> contourPointsOf(NcDbObjectId polyline);

/// Draws the points as an open polyline on the current layer; fewer than two
/// give none.
void drawOpenLine(const geometry::PointList& points);
