#pragma once
// Marks of deformation over the cycles and how far they moved.

#include "reports/docx/docx_table.h"
#include "reports/templates/report_parameters.h"

#include <QDate>

struct DeformationTable {
    struct Cycle {
        QString number;
        QDate start;
    };
    struct Row {
        QString name;
        QString position;
        QVector<double> marks; ///< metres, one a cycle; infinite where there is none
    };
    QVector<Cycle> cycles; ///< the base first
    QVector<Row> rows;
};

/// Which elements: deformation marks or benchmarks.
enum class DeformationSource { Marks, Benchmarks };

/// Reads the elements of the part with their marks. False when the user stopped it.
bool loadDeformations(DeformationSource source, const ReportParameters& parameters, DeformationTable& into);

/// Columns: number, name, base mark (metres), then of each later cycle the mark
/// and how far it lies from the base (millimetres, shaded). In the template
/// stand those of one later cycle; the two lowest heading rows receive the
/// cycles and their months.
void fillDeformationTable(DocxTable& table, const DeformationTable& data, const LevelMap& map);
