// Whose drawing the active one is.
#pragma once

#include "drawing/sync/sync_questions.h"

/// Compares the project and the position that the drawing names with the
/// current ones; where they differ the user decides. False: do not go on.
bool drawingIsAccepted(const SyncQuestions& questions);
