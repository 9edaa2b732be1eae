#pragma once
// All inspections of one element at once.

#include "elements/inspections/inspection_record.h"

#include <vector>

/// In the order of their keys, without names and photos. Two statements,
/// however many there are.
std::vector<InspectionRecord> loadInspectionsOf(const InspectionFamily& family, int elementId);
