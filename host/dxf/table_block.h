// A table as extension data and as lines and texts.
#pragma once

#include "own_data.h"

#include <nrx/entity.h>

#include <memory>
#include <vector>

// Radians that its rows are turned by, 0..2π.
double tableRotation(const NcDbTable& table);

// All but the place.
void addTable(const NcDbTable& table, OwnValues& values);
// The table at a place; null when the values are damaged. Where the rotation is
// not the one that was kept, the table was turned by another program.
std::unique_ptr<NcDbTable> tableOf(OwnValues values, const NcGePoint3d& position, double rotation);

// Grounds, borders and texts of the cells, the table's corner at the origin.
std::vector<std::unique_ptr<NcDbEntity>> tableFigures(const NcDbTable& table);
