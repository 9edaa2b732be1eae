// Geological columns into the database.
#pragma once

#include "base/statement.h"
#include "exchange/geology/well_geology.h"

#include <functional>

/// What replaces the well's column by the record; empty without a well.
QVector<Statement> geologyStatements(const WellGeology& well);

/// Told the wells that are done; false gives the rest up.
using GeologyProgress = std::function<bool(int done, int total)>;

/// Writes the wells, each of them wholly or not at all; a well that is refused
/// does not stop the run. Returns and prints how many were written.
int importGeology(const QVector<WellGeology>& wells, const GeologyProgress& progress = {});
