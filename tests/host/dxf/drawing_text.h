// All that the host knows of a drawing, a line a field: two drawings are equal
// when their lines are.
#pragma once

#include <nrx/database.h>

#include <QStringList>

// Entities with their handles; numbers exact.
QStringList drawingLines(const NcDbDatabase& database);

// The first lines that differ, for a test's message; empty for equal lists.
QString firstDifference(const QStringList& expected, const QStringList& found);
