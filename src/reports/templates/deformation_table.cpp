#include "reports/templates/deformation_table.h"

#include "base/placeholders.h"
#include "base/text.h"
#include "elements/families/families.h"
#include "elements/measures/base_measure.h"
#include "hostkit/console.h"
#include "reports/templates/cell_texts.h"
#include "reports/templates/scoped_elements.h"
#include "reports/templates/shades.h"
#include "reports/templates/table_rows.h"
#include "session/project_session.h"

#include <cmath>

namespace {

constexpr int markDecimals = 4;
constexpr double millimetres = 1000.0; // in a metre

enum Column { NumberColumn, NameColumn, BaseColumn, FirstMarkColumn, FirstDifferenceColumn };
constexpr int columnsPerCycle = 2;

QString missing() { return QStringLiteral("-"); }

double markAt(const sql::Result& rows, int row, int column)
{
    bool ok = false;
    const double mark = rows.toDouble(row, column, &ok);
    return ok ? mark : BaseMeasure::noValue;
}

// Of all cycles in one statement.
QVector<double> marksOf(int elementId, const QVector<int>& cycles)
{
    QVector<double> marks(cycles.size(), BaseMeasure::noValue);
    const sql::Result rows = session().run(compose(
        "select meas, cycle_id from dm_meas where element_id=%1 and cycle_id in (%2)", elementId, IdList(cycles)));
    for (int row = 0; row < rows.ntuples(); ++row) {
        const int place = cycles.indexOf(rows.toInt(row, 1));
        if (place >= 0)
            marks[place] = markAt(rows, row, 0);
    }
    return marks;
}

// A statement a cycle.
QVector<double> benchmarksOf(int elementId, const QVector<int>& cycles)
{
    QVector<double> marks;
    for (const int cycle : cycles) {
        const sql::Result rows =
            session().run(compose("select meas from rp_meas where element_id=%1 and cycle_id=%2", elementId, cycle));
        marks.append(rows.hasRow() ? markAt(rows, 0, 0) : BaseMeasure::noValue);
    }
    return marks;
}

struct Source {
    FamilyKey family;
    QVector<double> (*marks)(int elementId, const QVector<int>& cycles);
};

// In the order of DeformationSource.
const Source kSources[] = {{FamilyKey::Dm, marksOf}, {FamilyKey::Rp, benchmarksOf}};

void setHeading(TableRows& rows, int column, const QString& title, const QString& below)
{
    if (rows.headingRows() >= 2) {
        rows.setHeading(2, column, title);
        rows.setHeading(1, column, below);
    } else {
        rows.setHeading(1, column, below.isEmpty() ? title : title + QLatin1Char(' ') + below);
    }
}

void setCycleHeading(TableRows& rows, int column, const DeformationTable::Cycle& cycle)
{
    setHeading(rows, column, fill(QStringLiteral("%1-цикл"), cycle.number), cells::monthOfYear(cycle.start));
}

QString markText(double mark) { return std::isfinite(mark) ? fixed(mark, markDecimals) : missing(); }

double movement(const DeformationTable::Row& row, int cycle)
{
    const double moved = (row.marks[cycle] - row.marks[0]) * millimetres;
    return std::isfinite(moved) ? moved : BaseMeasure::noValue;
}

} // namespace

bool loadDeformations(DeformationSource source, const ReportParameters& parameters, DeformationTable& into)
{
    into = {};
    for (const int cycle : parameters.cycles)
        into.cycles.append({cells::cycleNumber(cycle), cells::cycleStart(cycle)});
    const Source& row = kSources[int(source)];
    const sql::Result elements =
        session().run(elementStatement(ElementQuery::Names, parameters.part, family(row.family).elements));
    say(QStringLiteral("\nНачата обработка измерений"));
    for (int i = 0; i < elements.ntuples(); ++i) {
        say(QString::asprintf("\n Обработка измерений: элемент %d из %d", i + 1, elements.ntuples()));
        if (!parameters.goOn(i + 1, elements.ntuples()))
            return false;
        into.rows.append({elements.getvalue(i, ScopedName), elements.getvalue(i, ScopedPosition),
                          row.marks(elements.toInt(i, ScopedId), parameters.cycles)});
    }
    say(QStringLiteral("\nОбработка элементов  завершена"));
    say(QStringLiteral("\nОбработка измерений завершена"));
    return true;
}

void fillDeformationTable(DocxTable& table, const DeformationTable& data, const LevelMap& map)
{
    // The columns of a cycle are copies of the last one, so that the pairs alternate.
    const int later = qMax(0, data.cycles.size() - 1);
    if (later > 1)
        repeatColumn(table, FirstDifferenceColumn, 1 + (later - 1) * columnsPerCycle);
    TableRows rows(table);
    if (!data.cycles.isEmpty())
        setCycleHeading(rows, BaseColumn, data.cycles.first());
    for (int cycle = 1; cycle <= later; ++cycle) {
        const int column = FirstMarkColumn + (cycle - 1) * columnsPerCycle;
        setCycleHeading(rows, column, data.cycles[cycle]);
        setHeading(rows, column + 1,
                   fill(QStringLiteral("%2-%1"), data.cycles.first().number, data.cycles[cycle].number), QString());
    }
    int number = 0;
    for (const DeformationTable::Row& row : data.rows) {
        rows.sectionOf(row.position);
        QStringList texts{QString::number(++number), row.name};
        for (int cycle = 0; cycle < row.marks.size(); ++cycle) {
            texts << markText(row.marks[cycle]);
            if (cycle > 0) {
                const double moved = movement(row, cycle);
                texts << (std::isfinite(moved) ? cells::difference(moved) : missing());
            }
        }
        const QDomElement written = rows.add(texts);
        for (int cycle = 1; cycle < row.marks.size(); ++cycle)
            shadeCell(table, written, FirstDifferenceColumn + (cycle - 1) * columnsPerCycle, map, movement(row, cycle));
    }
    rows.finish();
}
