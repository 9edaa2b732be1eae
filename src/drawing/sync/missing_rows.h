// Rows of the current position that no block of the drawing stands for.
#pragma once

#include "drawing/sync/family_rows.h"
#include "drawing/sync/sync_questions.h"

/// Asks family by family whether the rows that the run has not met are to go.
/// What hangs on them goes with them. A refused deletion is not reported.
void offerMissingRows(RowsOfFamilies& rows, const SyncQuestions& questions);
