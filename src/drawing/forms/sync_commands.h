// Handlers of the synchronisations.
#pragma once

#include "drawing/sync/database_to_drawing.h"

/// Carries the drawing into the database; questions come in boxes over the
/// host's window.
void drawingToDatabaseCommand();

/// Asks for the families and brings the rows below the node into the drawing.
void syncNode(int id, SyncLevel level);
