// TERVA_DWG_TO_PG: the plan as geometry for maps.
#pragma once

#include "base/statement.h"
#include "drawing/alignment/plan_lines.h"

#include <functional>

/// The statement that stores one chain: coordinates with 6 decimals, SRID 9999.
Statement lineStatement(const geometry::PointList& points);

/// Fills the table `geometries`, made on demand, with the lines of one layer, or
/// of all without one. `askToClear` says whether what it holds is to go first.
/// A line that the server refuses is reported and the next one is tried. Chains
/// of fewer than two points are passed over. Nothing is undone.
void exportPlan(const std::optional<QString>& layer, const std::function<bool()>& askToClear);
