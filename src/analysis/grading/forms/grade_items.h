// Grades in tables.
#pragma once

#include "analysis/grading/grades.h"

class QTableWidgetItem;

/// The label in the grade's colours: green letters for Normal; red ones on
/// yellow, orange, deep orange for what is limited or fails; others plain.
QTableWidgetItem* gradeItem(Grade grade, const QString& tip = QString());

/// "Рабочие: 3, ...", a line a grade that any element has.
QString countsTip(const GradeCounts& counts);
