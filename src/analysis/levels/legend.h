// The legend of a map: a table in the drawing.
#pragma once

#include "analysis/levels/level_map.h"

#include <nrx/geometry.h>

enum class LegendKind { Temperature, Deformation };

// Adds the table to the current space with its corner at `place` (user
// coordinate system), along the X axis of that system. False when the drawing
// takes no table.
bool insertLegend(const LevelMap& map, LegendKind kind, const NcGePoint3d& place);
