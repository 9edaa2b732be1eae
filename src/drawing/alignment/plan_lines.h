// The lines of the plan as chains of points.
#pragma once

#include "geometry/point3.h"

#include <QString>
#include <optional>
#include <vector>

struct PlanLines {
    int entities = 0; ///< those that were looked at
    std::vector<geometry::PointList> lines;
};

/// Lines and polylines of model space on the layer, or of all layers without
/// one; other entities are counted and give nothing. A closed polyline ends at
/// its first vertex. Arcs of polylines are cut into chords that stay within
/// 1 mm of them (the drawing's unit is the metre), at least 8 to a full turn.
/// Nothing when model space is held elsewhere.
std::optional<PlanLines> collectPlanLines(const std::optional<QString>& layer);
