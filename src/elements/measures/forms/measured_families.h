#pragma once
// The six families with measures and inspections as a combo box offers them.

#include "elements/measures/measure_family.h"
#include "formkit/choices.h"

/// The id of a choice is the family's key, "dm".
formkit::Choices measuredFamilies();

/// The first family when none is chosen.
const MeasureFamily& chosenMeasureFamily(const QComboBox* combo);
