// Rows of the current position that no block of the drawing stands for.
#pragma once

#include "drawing/sync/family_rows.h"
#include "drawing/sync/sync_questions.h"

/// Prints family by family the rows that the run has met no block of, with what
/// hangs on them, and asks whether they are to go, measures and files included.
/// A refused deletion is not reported.
void offerMissingRows(RowsOfFamilies& rows, const SyncQuestions& questions);
