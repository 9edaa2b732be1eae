#include "analysis/grading/position_history.h"

#include "session/project_session.h"

#include <algorithm>
#include <cmath>

namespace {

QMap<int, int> countsOf(const sql::Result& rows)
{
    QMap<int, int> counts;
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row)
        counts[rows.toInt(row, 0)] = rows.toInt(row, 1);
    return counts;
}

double greatest(const GradedSide& side)
{
    double most = -PositionAttributes::none;
    for (const GradedElement& element : side.elements) {
        if (std::isfinite(element.value))
            most = std::max(most, element.value);
    }
    return std::isfinite(most) ? most : PositionAttributes::none;
}

} // namespace

MeasureCounts loadMeasureCounts(int positionId)
{
    return {countsOf(session().run(compose("select  cycle_id, count(meas_dm_id) from dm_meas join dm_elements using "
                                           "(element_id) where position_id=%1 group by cycle_id",
                                           positionId))),
            countsOf(session().run(compose("select  cycle_id, count(meas_ts_id) from ts_meas join ts_elements using "
                                           "(element_id) where position_id=%1 group by cycle_id",
                                           positionId)))};
}

QMap<int, QMap<int, double>> loadMarkMeasures(const QVector<int>& marks)
{
    QMap<int, QMap<int, double>> measures;
    if (marks.isEmpty())
        return measures;
    enum Column { Element, Id, Cycle, Measure };
    const sql::Result rows = session().run(
        compose("select element_id,meas_dm_id,cycle_id,meas from dm_meas where element_id in (%1) order by element_id",
                IdList(marks)));
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row) {
        QMap<int, double>& ofMark = measures[rows.toInt(row, Element)];
        const int cycle = rows.toInt(row, Cycle);
        if (!rows.isNull(row, Measure) && !ofMark.contains(cycle))
            ofMark[cycle] = rows.toDouble(row, Measure);
    }
    return measures;
}

QVector<WellMeasure> loadWellMeasures(const QVector<int>& wells, int cycle)
{
    QVector<WellMeasure> measures;
    if (wells.isEmpty())
        return measures;
    enum Column { Element, Id, Cycle, Date, Measure };
    const sql::Result rows = session().run(
        compose("select element_id,meas_ts_id,cycle_id,TO_CHAR(date::date, 'dd.mm.yyyy') as date ,meas from ts_meas "
                "where element_id in (%1) and cycle_id = %2 order by element_id",
                IdList(wells), cycle));
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row) {
        const int element = rows.toInt(row, Element);
        if (!measures.isEmpty() && measures.last().element == element)
            continue;
        TemperatureProfile profile;
        parseProfile(rows.getvalue(row, Measure), profile);
        measures.append({element, rows.getvalue(row, Date), logOf(profile)});
    }
    return measures;
}

ThermalCycle thermalCycle(int cycle, const GradedSide& wells)
{
    ThermalCycle told;
    told.cycle = cycle;
    told.wells = wells.counts;
    told.grade = wells.grade;
    double sum = 0.0;
    int known = 0;
    for (const GradedElement& well : wells.elements) {
        if (!std::isfinite(well.value))
            continue;
        sum += well.value;
        ++known;
    }
    if (known > 0)
        told.temperature = sum / known;
    return told;
}

DeformationCycle deformationCycle(int cycle, const GradedSide& marks, const GradedSide& profiles)
{
    return {cycle, marks.counts, greatest(marks), marks.grade, greatest(profiles), profiles.grade};
}

QVector<ThermalCycle> thermalHistory(const PositionAttributes& attributes)
{
    QVector<ThermalCycle> history;
    for (int cycle : session().cycleOrder)
        history.append(thermalCycle(cycle, gradeWells(loadWells(attributes.positionId, cycle), attributes)));
    return history;
}

QVector<DeformationCycle> deformationHistory(const PositionAttributes& attributes, int baseCycle)
{
    QVector<DeformationCycle> history;
    for (int cycle : session().cycleOrder)
        history.append(
            deformationCycle(cycle, gradeMarks(loadMarks(attributes.positionId, baseCycle, cycle), attributes),
                             gradeProfiles(loadProfiles(attributes.positionId, baseCycle, cycle), attributes)));
    return history;
}
