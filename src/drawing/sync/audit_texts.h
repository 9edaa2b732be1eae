// What the audit of a drawing says about the blocks of each family.
#pragma once

#include "drawing/sync/sync_mode.h"
#include "elements/families/families.h"

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
