// Handlers of the synchronisations.
#pragma once

#include "drawing/sync/database_to_drawing.h"

/// Carries the drawing into the database; questions come in boxes over the
/// host's window.
void drawingToDatabaseCommand();

/// Brings the current position's rows into the active drawing; where that is
/// not the position's the user is asked first.
void databaseToDrawingCommand();

/// Asks for the families and brings the rows below the node into the drawing.
void syncNode(int id, SyncLevel level);
