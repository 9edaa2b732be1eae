#include "reports/templates/well_tables.h"

#include "base/dates.h"
#include "base/text.h"
#include "reports/templates/cell_texts.h"
#include "reports/templates/table_rows.h"

#include <cmath>

namespace {

constexpr int depthDecimals = 1;
constexpr int elevationDecimals = 2;
constexpr int measureColumns = 3; // number, date, serial
constexpr int depthColumns = 2;   // depth, elevation

QStringList measureCells(const WellRecord& well, int measure)
{
    const WellRecord::Measure& now = well.measures[measure];
    return {QString::number(measure + 1), dateText(now.date, QStringLiteral("dd.MM.yyyy")), now.serial};
}

QStringList depthCells(const WellRecord& well, double depth)
{
    return {fixed(depth, depthDecimals), fixed(well.ground() - depth, elevationDecimals)};
}

QString temperatureText(const WellRecord::Measure& measure, double depth)
{
    const auto found = measure.log.find(depth);
    return found == measure.log.end() || !std::isfinite(found->second) ? QStringLiteral("-")
                                                                       : cells::difference(found->second);
}

// What a column holds above the rows of the table, from its first row down.
void setColumnHead(DocxTable& table, int headings, int column, const QStringList& texts)
{
    for (int row = 0; row < qMin(headings, texts.size()); ++row)
        table.setCellText(row, column, texts[row]);
}

} // namespace

void fillLyingTable(DocxTable& table, const WellRecord& well)
{
    const QVector<double> depths = well.depths();
    repeatColumn(table, measureColumns, depths.size());
    TableRows rows(table);
    if (depths.isEmpty())
        setColumnHead(table, rows.headingRows(), measureColumns, {QString(), QString()});
    for (int i = 0; i < depths.size(); ++i)
        setColumnHead(table, rows.headingRows(), measureColumns + i, depthCells(well, depths[i]));
    for (int measure = 0; measure < well.measures.size(); ++measure) {
        QStringList texts = measureCells(well, measure);
        for (const double depth : depths)
            texts << temperatureText(well.measures[measure], depth);
        rows.add(texts);
    }
    rows.finish();
}

void fillStandingTable(DocxTable& table, const WellRecord& well)
{
    const int count = well.measures.size();
    repeatColumn(table, depthColumns, count);
    TableRows rows(table);
    if (count == 0)
        setColumnHead(table, rows.headingRows(), depthColumns, {QString(), QString(), QString()});
    for (int measure = 0; measure < count; ++measure)
        setColumnHead(table, rows.headingRows(), depthColumns + measure, measureCells(well, measure));
    for (const double depth : well.depths()) {
        QStringList texts = depthCells(well, depth);
        for (const WellRecord::Measure& measure : well.measures)
            texts << temperatureText(measure, depth);
        rows.add(texts);
    }
    rows.finish();
}
