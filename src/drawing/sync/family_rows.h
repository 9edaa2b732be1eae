// Which rows the database holds, which of them a run has met in the drawing, and
// what becomes of those that it has not.
#pragma once

#include "drawing/sync/sync_questions.h"
#include "elements/families/families.h"

#include <QSet>
#include <map>
#include <set>

/// Of one family, alive for one run.
struct FamilyRows {
    std::set<int> positionIds; ///< rows of the current position
    std::set<int> allIds;      ///< all rows of the family
    std::set<int> metIds;      ///< of blocks, whatever became of them
    std::set<int> seenIds;     ///< processed in this run
    QSet<QString> seenNames;
};

using RowsOfFamilies = std::map<FamilyKey, FamilyRows>;

/// Reads the ids of all families. False as soon as one cannot be read: what a
/// half-read list says about the drawing would be wrong.
bool loadRows(RowsOfFamilies& rows, int positionId);

/// Prints family by family the rows that the run has met no block of, with what
/// hangs on them, and asks whether they are to go, measures and files included.
/// A refused deletion is not reported.
void offerMissingRows(RowsOfFamilies& rows, const SyncQuestions& questions);
