#include "reports/templates/position_tables.h"

#include "base/placeholders.h"
#include "base/text.h"
#include "reports/templates/table_rows.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double millimetres = 1000.0; // in a metre
constexpr int temperatureDecimals = 2;
constexpr int settlementDecimals = 1;
constexpr int ratioDecimals = 5;

QString countOf(const QVector<PositionGrading::Item>& items, int state)
{
    const auto isSo = [state](const PositionGrading::Item& item) { return item.state == state; };
    return QString::number(std::count_if(items.begin(), items.end(), isSo));
}

// The least and the greatest value of the items that were graded.
QString rangeOf(const QVector<PositionGrading::Item>& items, const char* text, double factor, int decimals)
{
    double least = PositionNorms::none, greatest = -PositionNorms::none;
    for (const PositionGrading::Item& item : items) {
        if (item.state == grade::noMeasures || !std::isfinite(item.value))
            continue;
        least = std::min(least, item.value * factor);
        greatest = std::max(greatest, item.value * factor);
    }
    return least > greatest ? QStringLiteral(" -- ")
                            : fill(QString::fromUtf8(text), fixed(least, decimals), fixed(greatest, decimals));
}

QStringList cycleCells(const GradedCycle& cycle)
{
    return {fill(QStringLiteral("Цикл %1"), cycle.number), fill(QStringLiteral("от %1"), cycle.start)};
}

template <class Row, class Cells>
void fillRows(DocxTable& table, const QVector<Row>& items, Cells cells)
{
    TableRows rows(table);
    for (const Row& item : items)
        rows.add(cells(item));
    rows.finish();
}

} // namespace

void fillSoilStateTable(DocxTable& table, const QVector<GradedCycle>& cycles)
{
    fillRows(table, cycles, [](const GradedCycle& cycle) {
        const QVector<PositionGrading::Item>& wells = cycle.grading.wells;
        QStringList cells = cycleCells(cycle);
        for (const int state : {grade::noMeasures, grade::working, grade::limited, grade::limitedII, grade::failed})
            cells << countOf(wells, state);
        return cells << rangeOf(wells, "от %1\nдо %2 ", 1.0, temperatureDecimals) << grade::word(cycle.grading.soil);
    });
}

void fillDeformationStateTable(DocxTable& table, const QVector<GradedCycle>& cycles)
{
    fillRows(table, cycles, [](const GradedCycle& cycle) {
        const PositionGrading& grading = cycle.grading;
        QStringList cells = cycleCells(cycle);
        for (const int state : {grade::noMeasures, grade::working, grade::limited, grade::failed})
            cells << countOf(grading.marks, state);
        return cells << rangeOf(grading.marks, "от %1 мм\nдо %2 мм", millimetres, settlementDecimals)
                     << grade::word(grading.settlement)
                     << rangeOf(grading.profiles, "от %1\nдо %2 ", 1.0, ratioDecimals) << grade::word(grading.relative);
    });
}

void fillNormTable(DocxTable& table, const PositionNorms& norms)
{
    fillRows(table, normRows(norms), [](const QStringList& row) { return row; });
}

void fillSummaryTable(DocxTable& table, const QVector<SummaryRow>& positions)
{
    int number = 0;
    fillRows(table, positions, [&number](const SummaryRow& row) {
        const PositionGrading& grading = row.grading;
        return QStringList{QString::number(++number),
                           row.object,
                           row.subobject,
                           row.position,
                           grading.hasAttributes ? QStringLiteral("Да") : QStringLiteral("Нет"),
                           grade::word(grading.soil),
                           grade::word(grading.settlement),
                           grade::word(grading.relative),
                           grade::word(grading.position)};
    });
}
