#pragma once
// The inspections of many elements at once, and what follows from them: the
// latest inspection decides the element's state.

#include "elements/inspections/inspection_record.h"
#include "elements/list/cycle_rows.h"

/// Whether an inspection that stands in the way may be replaced.
using ReplaceQuestion = std::function<bool(const QString& text)>;

/// The elements at the place with their states, each with the states of its
/// inspections. Nothing when the elements could not be read or the work was stopped.
std::optional<CycleRows> readInspectionRows(const InspectionFamily& family, const HierarchyPlace& place,
                                            const ElementProgress& progress = {});

/// Writes the pattern for every row, into its own cycle. Returns how many were written.
int createInspections(InspectionRecord pattern, const CycleRows& rows, const ReplaceQuestion& mayReplace,
                      const ElementProgress& progress = {});

struct CyclePair {
    int source;
    int target;
};
/// Copies the rows' inspections from cycle to cycle, photos included.
int copyInspections(const InspectionFamily& family, const CycleRows& rows, CyclePair cycles,
                    const ReplaceQuestion& mayReplace, const ElementProgress& progress = {});

/// Returns how many were deleted.
int deleteInspections(const InspectionFamily& family, const CycleRows& rows, int cycleId);

/// The states of all elements of the family; one without an inspection is "exist" again.
bool recomputeStates(const InspectionFamily& family);

/// The state of one element, and what else of it an inspection measures; one
/// without an inspection keeps its present state. Returns the state_id, the
/// present one when the statement failed.
QString recomputeState(const InspectionFamily& family, int elementId, const QString& presentState);
