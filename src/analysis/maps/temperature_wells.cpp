#include "analysis/maps/temperature_wells.h"

#include "base/statement.h"
#include "base/text.h"
#include "geometry/polygon.h"
#include "session/project_session.h"

#include <cmath>

namespace {

enum Column { NameColumn, XColumn, YColumn, ZColumn, HColumn, MeasColumn };

Statement statement(const WellSelection& selection)
{
    const Statement states = stateCondition(selection.states);
    if (selection.byPosition)
        return compose("select element_name,x,y,z,h,meas from ts_elements left join  ts_meas using "
                       "(element_id) where position_id = %1 and cycle_id = %2",
                       selection.positionId, selection.cycleId)
            + states;
    const geometry::Box3 box = geometry::boxOf(selection.border);
    return compose("select element_name,x,y,z,h,meas from ts_elements left join  ts_meas using "
                   "(element_id) where cycle_id = %1 and x between %2 and %3 and y between %4 and %5",
                   selection.cycleId, Numeral(box.minimum.x, 2), Numeral(box.maximum.x, 2), Numeral(box.minimum.y, 2),
                   Numeral(box.maximum.y, 2))
        + states;
}

// The stored reading at the key, or what lies between its neighbours.
bool readingAt(const TemperatureLog& log, double key, double& value)
{
    const auto found = log.find(key);
    if (found == log.end())
        return interpolate(log, key, value);
    value = found->second;
    return true;
}

bool valueOf(const TemperatureLog& byDepth, const TemperatureLog& byElevation, const Sampling& sampling, double& value)
{
    if (sampling.bottom) {
        if (byDepth.empty())
            return false;
        value = byDepth.rbegin()->second;
        return std::isfinite(value);
    }
    switch (sampling.mode) {
    case Sampling::Depth: return readingAt(byDepth, sampling.key, value);
    case Sampling::Elevation: return readingAt(byElevation, sampling.key, value);
    case Sampling::Average:
        return weightedMean(byDepth, sampling.from, sampling.to, sampling.toEnd, value) && !std::isnan(value);
    }
    return false;
}

} // namespace

Statement stateCondition(const QStringList& states)
{
    if (states.isEmpty())
        return {};
    QVector<Statement> conditions;
    for (const QString& state : states)
        conditions << compose(" state_id='%1' ", state);
    return compose(" and (%1) ", joined(conditions, " or "));
}

QString valueLabel(double value) { return (value > 0.0 ? QStringLiteral("+") : QString()) + fixed(value, 2); }

bool TemperatureWells::load(const WellSelection& selection)
{
    *this = TemperatureWells();
    // Without a border the box would be infinite, and there is nothing inside.
    if (!selection.byPosition && selection.border.empty())
        return true;
    const sql::Result result = session().run(statement(selection));
    if (!result.isTuples())
        return false;
    for (int row = 0; row < result.ntuples(); ++row) {
        const double x = result.toDouble(row, XColumn);
        const double y = result.toDouble(row, YColumn);
        if (!selection.byPosition && !geometry::pointInPolygon({x, y, 0.0}, selection.border))
            continue;
        add(result.getvalue(row, NameColumn), x, y, result.toDouble(row, ZColumn) - result.toDouble(row, HColumn),
            result.getvalue(row, MeasColumn));
    }
    return true;
}

void TemperatureWells::add(const QString& name, double x, double y, double ground, const QString& stored)
{
    TemperatureProfile profile;
    parseProfile(stored, profile);
    TemperatureLog byElevation;
    for (const auto& [depth, temperature] : profile) {
        if (std::isnan(depth))
            continue;
        byElevation[ground - depth] = temperature;
        depths_.insert(depth);
        elevations_.insert(ground - depth);
    }
    depthLogs_.push_back(logOf(profile));
    elevationLogs_.push_back(std::move(byElevation));
    rows.push_back({name, x, y, 0.0, false});
}

void TemperatureWells::sample(const Sampling& sampling)
{
    for (size_t i = 0; i < rows.size(); ++i)
        rows[i].valid = valueOf(depthLogs_[i], elevationLogs_[i], sampling, rows[i].value);
}

const TemperatureLog& TemperatureWells::log(size_t well, Sampling::Mode mode) const
{
    return mode == Sampling::Elevation ? elevationLogs_.at(well) : depthLogs_.at(well);
}

std::vector<double> TemperatureWells::keys(Sampling::Mode mode) const
{
    if (mode == Sampling::Elevation)
        return {elevations_.rbegin(), elevations_.rend()};
    return {depths_.begin(), depths_.end()};
}
