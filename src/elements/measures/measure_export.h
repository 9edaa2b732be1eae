#pragma once
// Measures as a file that the import of their family reads back.

#include "elements/measures/measures_by_cycle.h"
#include "elements/measures/measures_of_element.h"

/// Whether there is a format for the family.
bool isExported(FamilyKey family);

/// All measures of the rows, loaded one by one: rows in their order, each with
/// its cycles in theirs. A measure that cannot be loaded is passed over; nothing
/// when the work was stopped.
std::optional<Measures> loadMeasures(const MeasureFamily& family, const CycleRows& rows, const QVector<int>& cycles,
                                     const ElementProgress& progress = {});

/// The file's text: fields joined by ";", rows ended by "\n". Measures of
/// profiles get a new header wherever their depths are others than before. A
/// missing number is an empty field.
QString exportText(FamilyKey family, const Measures& measures);
