#pragma once
// The inspections of one cycle, element by element.

#include "elements/families/family_key.h"
#include "reports/docx/docx_table.h"
#include "reports/docx/docx_template.h"
#include "reports/templates/report_parameters.h"

#include <QPixmap>

struct InspectionRow {
    QString name;
    QString position;
    QStringList findings; ///< texts of the cells behind the name
    QPixmap photo;        ///< may be null
};

/// The elements of the part with their inspections of the chosen cycle, or the
/// defective ones alone. False when the user stopped it.
bool loadInspections(FamilyKey family, const ReportParameters& parameters, QVector<InspectionRow>& into);

/// Columns: number, name, the findings in the order of the inspection's columns
/// (checks, verdict, note, state, further ones), the photo.
void fillInspectionTable(DocxTable& table, DocxTemplate& document, const QVector<InspectionRow>& inspections);
