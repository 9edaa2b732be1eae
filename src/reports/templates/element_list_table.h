#pragma once
// The elements of one family in a part of the project.

#include "elements/families/family_key.h"
#include "reports/docx/docx_table.h"
#include "reports/templates/report_parameters.h"

#include <limits>

struct ElementListRow {
    static constexpr double none = std::numeric_limits<double>::infinity();

    QString position, name, type;
    double y = none, x = none, longitude = none, latitude = none, z = none, h = none; ///< written as "--" when none
};

QVector<ElementListRow> loadElementList(FamilyKey family, const ProjectPart& part);

/// Cells: number, position, name, type, y, x, longitude, latitude, z, h.
void fillElementListTable(DocxTable& table, const QVector<ElementListRow>& elements);
