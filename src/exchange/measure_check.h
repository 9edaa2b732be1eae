// The checks that a family's measures pass before they are imported.
#pragma once

#include "elements/measures/family_measures.h"
#include "exchange/stored_criteria.h"

/// What a check means for the summary and for the import's question.
enum class Verdict { Valid, Warning, Error };

struct MeasureCheck {
    /// Looks at the measure and stores the result in it. The position is the
    /// element's, -1 when it is not known.
    void (*run)(BaseMeasure& measure, int positionId, StoredCriteria& criteria);
    QString (*text)(const BaseMeasure& measure);
    int (*code)(const BaseMeasure& measure);
    Verdict (*verdict)(const BaseMeasure& measure);
    /// The statement that gives `run` the measure of the cycle before.
    const char* previous;
};

/// Codes of a deformation mark's check.
enum SettlementCode {
    settlementUnknown = 0,
    settlementValid = 1,
    settlementExceeded = 2,
    settlementNoPrevious = 3,
    settlementNoNorm = 4,
    settlementError = 5,
};
/// Compares the mark with the one of the cycle before.
const MeasureCheck& settlementCheck();

/// Bits of a thermal well's check.
enum ProfileBit : quint32 {
    profileValid = 1,
    profileOutliers = 2,
    profileGradient = 4,
    profileMeanChanged = 8,
    profileNoNorm = 16,
    profileNoPrevious = 32,
    profileError = 64,
};

/// Limits that tell a bad logger from a change in the ground.
struct ProfileLimits {
    double mean = 1.0;     ///< of the change of the weighted mean, degrees
    double outlier = 0.2;  ///< of the distance from the line between the neighbours, degrees
    double gradient = 0.2; ///< degrees a metre
};

/// Compares the profile with the one of the cycle before and with itself.
const MeasureCheck& profileCheck();
