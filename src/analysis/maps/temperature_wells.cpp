#include "analysis/maps/temperature_wells.h"

#include "base/text.h"
#include "session/project_session.h"

namespace {

enum Column { NameColumn, XColumn, YColumn, ZColumn, HColumn, MeasColumn };

Statement statement(const MapPlace& place, int cycleId)
{
    const Statement states = stateCondition(place.states);
    if (place.byPosition)
        return compose("select element_name,x,y,z,h,meas from ts_elements left join  ts_meas using "
                       "(element_id) where position_id = %1 and cycle_id = %2",
                       place.positionId, cycleId)
            + states;
    const geometry::Box3 box = geometry::boxOf(place.border);
    return compose("select element_name,x,y,z,h,meas from ts_elements left join  ts_meas using "
                   "(element_id) where cycle_id = %1 and x between %2 and %3 and y between %4 and %5",
                   cycleId, Numeral(box.minimum.x, 2), Numeral(box.maximum.x, 2), Numeral(box.minimum.y, 2),
                   Numeral(box.maximum.y, 2))
        + states;
}

} // namespace

QString valueLabel(double value) { return (value > 0.0 ? QStringLiteral("+") : QString()) + fixed(value, 2); }

bool TemperatureWells::load(const MapPlace& place, int cycleId)
{
    *this = TemperatureWells();
    if (place.isNowhere())
        return true;
    const sql::Result result = session().run(statement(place, cycleId));
    if (!result.isTuples())
        return false;
    for (int row = 0; row < result.ntuples(); ++row) {
        const double x = result.toDouble(row, XColumn);
        const double y = result.toDouble(row, YColumn);
        if (!place.contains(x, y))
            continue;
        rows.push_back({result.getvalue(row, NameColumn), x, y, 0.0, false});
        logs_.emplace_back(result.getvalue(row, MeasColumn),
                           result.toDouble(row, ZColumn) - result.toDouble(row, HColumn));
        keys_.add(logs_.back());
    }
    return true;
}

void TemperatureWells::sample(const Sampling& sampling)
{
    for (size_t i = 0; i < rows.size(); ++i)
        rows[i].valid = logs_[i].sample(sampling, rows[i].value);
}
