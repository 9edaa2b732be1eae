#pragma once
// The rule of a geological well's name.

#include <QString>

/// Why the well may not be called so: empty, or another well of the position
/// has the name (of all wells without a position, -1). Empty when it may.
QString geologicalWellNameFault(int elementId, int positionId, const QString& name);
