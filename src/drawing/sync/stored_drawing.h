// The drawing that the database keeps for a position.
#pragma once

#include "drawing/sync/sync_questions.h"

/// Saves the active document and puts its file into the database as the current
/// position's; a dated copy of what the database holds is kept beside the
/// working copy. When another document is active the user is asked first: the
/// position's own drawing is then stored and kept once more, the other one
/// takes its place and is opened from there. A drawing that cannot be saved or
/// stored ends it, so that nothing older is written over something newer. What
/// somebody else has stored since the drawing was fetched is written over only
/// when the user says so; what is written over is kept under a dated name.
void storeActiveDrawing(const SyncQuestions& questions);

/// Whether both paths name one file, in the way of its file system.
bool isSameFile(const QString& path, const QString& other);
