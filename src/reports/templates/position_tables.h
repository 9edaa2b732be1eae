#pragma once
// What is known of the state of positions, as tables.

#include "analysis/grading/position_grades.h"
#include "reports/docx/docx_table.h"
#include "reports/templates/position_norms.h"

struct GradedCycle {
    QString number;
    QString start; ///< as the session shows it
    PositionGrades grades;
};

/// A row a cycle: cycle, its start, wells without measures, working, limited,
/// limited II, failed, the mean temperatures from and to, the state of the soil.
void fillSoilStateTable(DocxTable& table, const QVector<GradedCycle>& cycles);

/// A row a cycle: cycle, its start, marks without measures, working, limited,
/// failed, settlements from and to, their state, ratios from and to, their state.
void fillDeformationStateTable(DocxTable& table, const QVector<GradedCycle>& cycles);

/// A row a limit: its name, working, limited, limited II, failed.
void fillNormTable(DocxTable& table, const ReportedNorms& norms);

struct SummaryRow {
    QString object, subobject, position;
    PositionGrades grades;
};

/// A row a position: number, object, subobject, position, whether it has
/// limits, and the states of soil, settlement, ratio and position.
void fillSummaryTable(DocxTable& table, const QVector<SummaryRow>& positions);
