#pragma once
// The measures of one thermal well, lying and standing.

#include "reports/docx/docx_table.h"
#include "reports/templates/well_record.h"

/// Row 0 carries the depths from column 3 on, row 1 the elevations; then a row
/// a measure: number, date, serial, temperatures. One depth stands in the template.
void fillLyingTable(DocxTable& table, const WellRecord& well);

/// The transposition: rows 0 to 2 carry number, date and serial from column 2
/// on; then a row a depth: depth, elevation, temperatures. One measure stands in
/// the template.
void fillStandingTable(DocxTable& table, const WellRecord& well);
