#pragma once
// The measures of many elements at once: which cycles they have, copying a
// cycle's measures into another, deleting them.

#include "elements/list/cycle_rows.h"
#include "elements/measures/measure_family.h"

/// The elements at the place, each with the ids and days of its measures. Of
/// several measures in one cycle the last one read counts. Nothing when the
/// elements could not be read or the work was stopped.
std::optional<CycleRows> readMeasureRows(const MeasureFamily& family, const HierarchyPlace& place,
                                         const ElementProgress& progress = {});

struct MeasureCopy {
    int source; ///< cycle
    int target; ///< another cycle
    /// Asked where the target holds a measure; false leaves it.
    std::function<bool()> mayReplace;
};

/// Copies the rows' measures from cycle to cycle, the one that stands in the
/// target being deleted first. Returns how many rows of the database changed.
int copyMeasures(const MeasureFamily& family, const CycleRows& rows, const MeasureCopy& copy,
                 const ElementProgress& progress = {});

/// Deletes the rows' measures of the cycle in one statement, none when there
/// are none. False when the statement failed.
bool deleteMeasures(const MeasureFamily& family, const CycleRows& rows, int cycleId);
