#pragma once
// All measures of one element at once.

#include "base/statement.h"
#include "elements/measures/family_measures.h"

#include <vector>

using Measures = std::vector<std::unique_ptr<BaseMeasure>>;

/// The measures whose ids stand in the first column of the statement's rows, in
/// its order, each as load() gives it. Two statements, however many there are.
Measures loadMeasuresOf(const MeasureFamily& family, const Statement& ids, const MeasureLists& lists = {});
