#include "reports/templates/shades.h"

#include "hostkit/console.h"
#include "reports/templates/cell_texts.h"
#include "reports/templates/table_rows.h"

namespace {

constexpr int boundDecimals = 1;

} // namespace

void shadeCell(DocxTable& table, const QDomElement& row, int cell, const LevelMap& map, double value)
{
    if (const LevelRange* range = map.rangeOf(value))
        table.setCellColor(row, cell, range->color.red(), range->color.green(), range->color.blue());
}

void fillColorMapTable(DocxTable& table, const LevelMap& map)
{
    const int count = int(map.ranges.size());
    for (int column = table.columnCount(); column < count; ++column)
        table.appendColumn();
    // Of a single row the value stands in the colour itself.
    const int rows = table.rowCount();
    const int colors = rows - 1;
    const int values = qMax(0, rows - 2);
    for (int column = 0; column < table.columnCount(); ++column) {
        const bool used = column < count;
        table.setCellText(colors, column, QString());
        table.setCellText(values, column,
                          used ? cells::withSign(map.ranges[size_t(column)].min, boundDecimals) : QString());
        if (used) {
            const NcCmColor& color = map.ranges[size_t(column)].color;
            table.setCellColor(colors, column, color.red(), color.green(), color.blue());
        }
    }
    say(QStringLiteral("\nГенерация карты градиентов завершена"));
}
