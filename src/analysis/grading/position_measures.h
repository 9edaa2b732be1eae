// What was measured at a position, from the server. Statements are a position's,
// not an element's: grading a project asks five a position.
#pragma once

#include "analysis/grading/position_grades.h"

#include <QVector>

/// The elements in the order of their names. Of several measures of one element
/// in one cycle the first row counts. A refused statement gives none, and sets `unread`.
std::vector<MeasuredWell> loadWells(int positionId, int cycle, bool* unread = nullptr);
std::vector<MeasuredMark> loadMarks(int positionId, int baseCycle, int currentCycle, bool* unread = nullptr);
std::vector<MeasuredProfile> loadProfiles(int positionId, int baseCycle, int currentCycle, bool* unread = nullptr);
ElementCounts loadElementCounts(int positionId, bool* unread = nullptr);

/// Attributes, counts, measures and all grades of the position.
PositionGrades gradedPosition(int positionId, int baseCycle, int currentCycle);

/// A position by its place in the project; -1 where a row has none.
struct ListedPosition {
    QString object, subobject, position;
    int id = -1;
};
QVector<ListedPosition> listPositions();
