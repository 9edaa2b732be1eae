// Which rows the database holds, and which of them a run has met in the drawing.
#pragma once

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
