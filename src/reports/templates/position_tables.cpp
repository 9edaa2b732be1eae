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

void addCounts(QStringList& cells, const GradedSide& side, std::initializer_list<Grade> grades)
{
    for (const Grade grade : grades)
        cells << QString::number(side.counts[size_t(grade)]);
}

// The least and the greatest value of the elements that were graded.
QString rangeOf(const GradedSide& side, const char* text, double factor, int decimals)
{
    double least = ReportedNorms::none, greatest = -ReportedNorms::none;
    for (const GradedElement& element : side.elements) {
        if (element.grade == Grade::NoMeasures || !std::isfinite(element.value))
            continue;
        least = std::min(least, element.value * factor);
        greatest = std::max(greatest, element.value * factor);
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
        const GradedSide& wells = cycle.grades.thermal;
        QStringList cells = cycleCells(cycle);
        addCounts(cells, wells, {Grade::NoMeasures, Grade::Normal, Grade::Limited, Grade::LimitedII, Grade::Fail});
        return cells << rangeOf(wells, "от %1\nдо %2 ", 1.0, temperatureDecimals) << gradeLabel(wells.grade);
    });
}

void fillDeformationStateTable(DocxTable& table, const QVector<GradedCycle>& cycles)
{
    fillRows(table, cycles, [](const GradedCycle& cycle) {
        const GradedSide& marks = cycle.grades.settlement;
        const GradedSide& profiles = cycle.grades.relative;
        QStringList cells = cycleCells(cycle);
        addCounts(cells, marks, {Grade::NoMeasures, Grade::Normal, Grade::Limited, Grade::Fail});
        return cells << rangeOf(marks, "от %1 мм\nдо %2 мм", millimetres, settlementDecimals) << gradeLabel(marks.grade)
                     << rangeOf(profiles, "от %1\nдо %2 ", 1.0, ratioDecimals) << gradeLabel(profiles.grade);
    });
}

void fillNormTable(DocxTable& table, const ReportedNorms& norms)
{
    fillRows(table, normRows(norms), [](const QStringList& row) { return row; });
}

void fillSummaryTable(DocxTable& table, const QVector<SummaryRow>& positions)
{
    int number = 0;
    fillRows(table, positions, [&number](const SummaryRow& row) {
        const PositionGrades& grades = row.grades;
        return QStringList{QString::number(++number),
                           row.object,
                           row.subobject,
                           row.position,
                           grades.attributes.exist ? QStringLiteral("Да") : QStringLiteral("Нет"),
                           gradeLabel(grades.thermal.grade),
                           gradeLabel(grades.settlement.grade),
                           gradeLabel(grades.relative.grade),
                           gradeLabel(grades.grade)};
    });
}
