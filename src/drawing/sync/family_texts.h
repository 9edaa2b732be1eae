// What the two synchronisations say about the elements of each family.
#pragma once

#include "drawing/sync/sync_questions.h"
#include "elements/families/families.h"

/// What the audit of a drawing says about the blocks.
struct AuditTexts {
    FamilyKey family;
    QString notInDatabase; ///< %1 the id, as in the next
    QString notInPosition;
    QString duplicateName;         ///< %1 the name
    QString duplicateId;           ///< %1 the id
    QString duplicateIdInPosition; ///< what position mode says instead; empty: the same
    QString missingRows;           ///< asks about rows without a block, %1 their number
};

const AuditTexts& auditTexts(FamilyKey family);

/// The message on a second block of one id; %1 the id.
QString duplicateIdText(FamilyKey family, SyncMode mode);

/// What bringing rows into the drawing says.
struct RowTexts {
    FamilyKey family;
    QString heading;
    QString notFound;       ///< %1 the id, %2 the name
    QString differentNames; ///< %1 the id, %2 the drawing's name, %3 the row's
};

const RowTexts& rowTexts(FamilyKey family);
