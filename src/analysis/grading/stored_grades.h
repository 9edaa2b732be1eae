// The grades of a position as a text of XML, and its row of positions_stat.
#pragma once

#include "analysis/grading/position_grades.h"

/// Reports and other readers are bound to the names of the elements, misspelt
/// ones too. Numbers have a point; one that is not set is "inf".
QString gradesXml(const PositionGrades& grades);

/// A database that was made without the table keeps working.
bool canStoreGrades();

/// Replaces what is stored for the pair of cycles. False when the server
/// refuses; a name with an apostrophe is refused, since texts go unescaped.
bool storeGrades(const PositionGrades& grades, QString* problem);
