#pragma once
// The elements of one family in a part of the project.

#include "elements/families/family_key.h"
#include "reports/docx/docx_table.h"
#include "reports/templates/report_parameters.h"

struct ElementListRow {
    QString position, name, type;
    double y = 0.0, x = 0.0, longitude = 0.0, latitude = 0.0, z = 0.0, h = 0.0;
};

QVector<ElementListRow> loadElementList(FamilyKey family, const ProjectPart& part);

/// Cells: number, position, name, type, y, x, longitude, latitude, z, h.
void fillElementListTable(DocxTable& table, const QVector<ElementListRow>& elements);
