// Carrying the drawing of a position into the database.
#pragma once

#include "drawing/sync/sync_questions.h"

/// The command: checks that the drawing is the current position's, asks for the
/// mode and runs it. The drawing wins where blocks stand, how they are turned
/// and scaled, their kind and their label; the database wins on all else.
/// Values are overwritten, not compared. Nothing is done in a transaction: what
/// is done stays, and another run does the rest.
void syncDrawingToDatabase(const SyncQuestions& questions);
