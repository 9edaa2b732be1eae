// What the settlement form says of the marks along its line.
#pragma once

#include "analysis/maps/epochs.h"
#include "analysis/profiles/deformation_profile.h"

/// "Цикл 3 01.07.23-31.07.23" of a cycle of the session.
QString cycleTitle(int cycle);
/// The title of the current side: a cycle, or a forecast by its name.
QString currentTitle(const Epochs& epochs);

/// The statement's own way to say the epochs.
MovementRange movementRange(const Epochs& epochs);

struct SettlementState {
    bool read = true;       ///< the server has answered
    bool hasLine = false;   ///< picked, or of a stored profile
    bool isOffered = false; ///< the position's profiles wait for a choice
    int offered = 0;        ///< how many there are
    int lost = 0;           ///< marks of the stored profile that are no longer in the base
};
/// A line about everything that is odd; empty when nothing is.
QString settlementRemark(const SettlementState& state, const DeformationProfileClass& profile);
