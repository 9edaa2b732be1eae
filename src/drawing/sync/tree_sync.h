// Bringing a node of the project tree into whatever drawing is open.
#pragma once

#include "drawing/sync/database_to_drawing.h"

/// The same as syncDatabaseToDrawing(); opens a new drawing from "Default.dwt"
/// when none is open. Markers add up: only the commands clear them.
void syncNodeToDrawing(int id, SyncLevel level, unsigned mask);
