#include "analysis/levels/legend.h"

#include "base/text.h"
#include "hostkit/model_space.h"
#include "hostkit/user_system.h"

#include <nrx/editor.h>

#include <array>

namespace {

constexpr double kRowHeight = 10.0;
constexpr double kTextHeight = 2.0;
constexpr int kTitleRow = 0;
constexpr int kHeaderRow = 1;
constexpr int kRowsAbove = 2;

struct Column {
    const char* caption;
    double width;
};

enum ColumnIndex { NumberColumn, FromColumn, ToColumn, ColorColumn };
const std::array<Column, 4> kColumns = {{{"Номер", 15.0}, {"От", 20.0}, {"До", 20.0}, {"Цвет", 20.0}}};

QString title(LegendKind kind)
{
    return kind == LegendKind::Temperature ? QStringLiteral("Температура, %%dС")
                                           : QStringLiteral("Величина вертикальных перемещений, мм");
}

QString boundText(double bound) { return (bound > 0.0 ? QStringLiteral("+") : QString()) + fixed(bound, 1); }

void setCell(NcDbTable& table, int row, int column, const QString& text)
{
    table.setTextString(row, column, text);
    table.setTextHeight(row, column, kTextHeight);
}

void fillHeader(NcDbTable& table, LegendKind kind)
{
    table.mergeCells(kTitleRow, kTitleRow, 0, int(kColumns.size()) - 1);
    setCell(table, kTitleRow, 0, title(kind));
    for (int column = 0; column < int(kColumns.size()); ++column) {
        table.setColumnWidth(column, kColumns[size_t(column)].width);
        setCell(table, kHeaderRow, column, QString::fromUtf8(kColumns[size_t(column)].caption));
    }
}

void fillRange(NcDbTable& table, int number, const LevelRange& range)
{
    const int row = kRowsAbove + number - 1;
    setCell(table, row, NumberColumn, QString::number(number));
    setCell(table, row, FromColumn, boundText(range.min));
    setCell(table, row, ToColumn, boundText(range.max));
    table.setBackgroundColor(row, ColorColumn, range.color);
}

void placeInUcs(NcDbTable& table, const NcGePoint3d& place)
{
    NcGePoint3d world = place;
    ncdbUcs2Wcs(place, world);
    table.setPosition(world);
    table.setDirection(userXAxis().normal());
}

} // namespace

bool insertLegend(const LevelMap& map, LegendKind kind, const NcGePoint3d& place)
{
    auto table = std::make_unique<NcDbTable>();
    table->setDatabaseDefaults(workingDatabase());
    table->setSize(int(map.ranges.size()) + kRowsAbove, int(kColumns.size()));
    table->setRowHeight(kRowHeight);
    fillHeader(*table, kind);
    for (int i = 0; i < int(map.ranges.size()); ++i)
        fillRange(*table, i + 1, map.ranges[size_t(i)]);
    placeInUcs(*table, place);
    return !appendToCurrentSpace(std::move(table)).isNull();
}
