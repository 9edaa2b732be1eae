#pragma once
// Colours of a colour map in the cells of a report.

#include "analysis/levels/level_map.h"
#include "reports/docx/docx_table.h"

/// Gives the cell the colour of the value's range; outside all ranges nothing.
void shadeCell(DocxTable& table, const QDomElement& row, int cell, const LevelMap& map, double value);

/// A legend: one column a range, its lower bound above its colour.
void fillColorMapTable(DocxTable& table, const LevelMap& map);
