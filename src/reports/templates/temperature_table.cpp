#include "reports/templates/temperature_table.h"

#include "base/dates.h"
#include "base/text.h"
#include "elements/families/families.h"
#include "elements/measures/family_measures.h"
#include "hostkit/console.h"
#include "reports/templates/cell_texts.h"
#include "reports/templates/scoped_elements.h"
#include "reports/templates/shades.h"
#include "reports/templates/table_rows.h"
#include "session/project_session.h"

#include <cmath>
#include <set>

namespace {

constexpr int depthDecimals = 1;
constexpr int temperatureDecimals = 1;
enum Column { NumberColumn, NameColumn, DateColumn, SerialColumn, FirstDepthColumn };

QString noDate() { return QStringLiteral("----"); }
QString noSerial() { return QStringLiteral("-"); }
QString noReading() { return QStringLiteral("--"); }

struct WellMeasure {
    QString date = noDate();
    QString serial = noSerial();
    TemperatureLog log;
};

WellMeasure measureOf(int elementId, int cycleId, const MeasureLists& lists)
{
    const sql::Result row = session().run(
        compose("select meas_ts_id from ts_meas where element_id = %1 and cycle_id=%2", elementId, cycleId));
    TSMeasure measure(lists);
    if (!row.hasRow() || measure.load(row.toInt(0, 0)) != measureOk)
        return {};
    return {measure.date.isValid() ? dateText(measure.date, QStringLiteral("dd.MM.yyyy")) : noDate(),
            measure.deviceSerial.isEmpty() ? noSerial() : measure.deviceSerial, logOf(measure.profile)};
}

// Calls `add` for each well of the part; false when the user stopped it.
template <class Add>
bool forEachWell(ElementQuery query, const ReportParameters& parameters, Add add)
{
    const sql::Result wells = session().run(elementStatement(query, parameters.part, family(FamilyKey::Ts).elements));
    for (int i = 0; i < wells.ntuples(); ++i) {
        say(QString::asprintf("\n Обработка измерений: элемент %d из %d", i + 1, wells.ntuples()));
        if (!parameters.goOn(i + 1, wells.ntuples()))
            return false;
        add(wells, i);
    }
    return true;
}

QString cellText(const TemperatureTable& data, const TemperatureLog& values, double depth)
{
    const auto found = values.find(depth);
    if (found == values.end() || !std::isfinite(found->second))
        return noReading();
    return data.differences ? cells::difference(found->second, temperatureDecimals)
                            : cells::withSign(found->second, temperatureDecimals);
}

} // namespace

QVector<double> TemperatureTable::depths() const
{
    std::set<double> all;
    for (const Row& row : rows) {
        for (const auto& reading : row.values)
            all.insert(reading.first);
    }
    QVector<double> sorted;
    for (const double depth : all)
        sorted.append(depth);
    return sorted;
}

bool loadTemperatures(const ReportParameters& parameters, TemperatureTable& into)
{
    into = {};
    MeasureLists lists;
    loadDevices(lists);
    say(QStringLiteral("\nНачата обработка измерений"));
    const bool whole = forEachWell(ElementQuery::WithAttributes, parameters, [&](const sql::Result& wells, int row) {
        const WellMeasure measure = measureOf(wells.toInt(row, ScopedId), parameters.cycleId, lists);
        into.rows.append({wells.getvalue(row, ScopedName), wells.getvalue(row, ScopedPosition), measure.date,
                          measure.serial, measure.log});
    });
    if (whole)
        say(QStringLiteral("\nОбработка измерений завершена"));
    return whole;
}

bool loadTemperatureDifferences(const ReportParameters& parameters, TemperatureTable& into)
{
    into = {};
    into.differences = true;
    MeasureLists lists;
    loadDevices(lists);
    QVector<WellMeasure> base;
    say(QStringLiteral("\nНачата обработка измерений исходного цикла"));
    if (!forEachWell(ElementQuery::Names, parameters, [&](const sql::Result& wells, int row) {
            base.append(measureOf(wells.toInt(row, ScopedId), parameters.baseCycleId, lists));
        }))
        return false;
    say(QStringLiteral("\nЗавершена обработка измерений исходного цикла"));
    say(QStringLiteral("\nНачата обработка текущего исходного цикла")); // the wording is known so
    int well = 0;
    if (!forEachWell(ElementQuery::Names, parameters, [&](const sql::Result& wells, int row) {
            const WellMeasure before = base.value(well++);
            const WellMeasure now = measureOf(wells.toInt(row, ScopedId), parameters.currentCycleId, lists);
            TemperatureLog change;
            for (const auto& [depth, temperature] : now.log) {
                const auto earlier = before.log.find(depth);
                if (earlier != before.log.end())
                    change[depth] = temperature - earlier->second;
            }
            into.rows.append(
                {wells.getvalue(row, ScopedName), wells.getvalue(row, ScopedPosition), before.date, now.date, change});
        }))
        return false;
    say(QStringLiteral("\nЗавершена обработка текущего цикла"));
    return true;
}

void fillTemperatureTable(DocxTable& table, const TemperatureTable& data, const LevelMap& map, Sections sections)
{
    const QVector<double> depths = data.depths();
    repeatColumn(table, FirstDepthColumn, depths.size());
    TableRows rows(table);
    // What stands above the depths stands above them all.
    for (int row = 0; row + 1 < rows.headingRows(); ++row)
        table.mergeColumns(row, FirstDepthColumn, FirstDepthColumn + depths.size() - 1);
    for (int i = 0; i < depths.size(); ++i)
        rows.setHeading(1, FirstDepthColumn + i, fixed(depths[i], depthDecimals));
    int number = 0;
    for (const TemperatureTable::Row& row : data.rows) {
        if (sections == Sections::ByPosition)
            rows.sectionOf(row.position);
        QStringList texts{QString::number(++number), row.name, row.date, row.serial};
        for (const double depth : depths)
            texts << cellText(data, row.values, depth);
        const QDomElement written = rows.add(texts);
        for (int i = 0; i < depths.size(); ++i) {
            const auto found = row.values.find(depths[i]);
            if (found != row.values.end())
                shadeCell(table, written, FirstDepthColumn + i, map, found->second);
        }
    }
    rows.finish();
}
