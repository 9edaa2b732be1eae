#include "analysis/maps/temperature_differences.h"

#include "analysis/maps/two_states.h"
#include "base/text.h"

#include <cmath>

namespace {

const PlaceStatements kWells = {
    "select element_id,element_name,x,y,z,h from ts_elements where position_id = %1 ",
    "select element_id,element_name,x,y,z,h from ts_elements where  x between %1 and %2 and y between %3 and %4"};

// For readTwoStates(), in the place of one well.
Statement logsOf(int cycle)
{
    return compose("select meas, meas_ts_id from ts_meas where element_id=%1 and cycle_id=%2", kElementInTurn, cycle);
}

// The first of several; a well without a log in the cycle has an empty one.
WellLogs firstLog(const MapElement& well, const ElementRows& rows)
{
    enum Column { Log, Id };
    int first = 0;
    for (int row = 1; row < rows.count(); ++row) {
        if (rows.number(row, Id) < rows.number(first, Id))
            first = row;
    }
    return rows.count() == 0 ? WellLogs() : WellLogs(rows.text(first, Log), well.z - well.h);
}

QString readingText(const TemperatureLog& log, double key)
{
    const auto reading = log.find(key);
    if (reading != log.end() && std::isfinite(reading->second))
        return fixed(reading->second, 2);
    double value = 0.0;
    const bool between = reading == log.end() && interpolate(log, key, value);
    return between ? QLatin1Char('~') + fixed(value, 2) : QStringLiteral("--");
}

} // namespace

QString baseLabel(double temperature)
{
    return (temperature < 0.0 ? QString() : QStringLiteral("+")) + fixed(temperature, 2);
}

QString differenceLabel(double difference) { return QLatin1Char('d') + baseLabel(difference); }

Loaded TemperatureDifferences::load(const MapPlace& place, const Epochs& cycles, const MapProgress& progress)
{
    *this = TemperatureDifferences();
    const auto wells = elementsOf(place, kWells);
    if (!wells)
        return Loaded::Refused;
    TemperatureDifferences read;
    const auto take = [&read](const MapElement& well, const ElementRows& base, const ElementRows& current) {
        const Pair logs{firstLog(well, base), firstLog(well, current)};
        if (base.count() > 1 || current.count() > 1)
            read.repeated_ << well.name;
        read.rows.push_back({well.name, well.x, well.y, 0.0, 0.0, false});
        read.keys_.add(logs.base);
        read.keys_.add(logs.current);
        read.logs_.push_back(logs);
    };
    const Loaded loaded = readTwoStates(*wells, logsOf(cycles.base), logsOf(cycles.current), take, progress);
    if (loaded == Loaded::All)
        *this = std::move(read);
    return loaded;
}

void TemperatureDifferences::sample(const Sampling& sampling)
{
    for (size_t i = 0; i < rows.size(); ++i) {
        double base = 0.0, current = 0.0;
        DifferenceRow& row = rows[i];
        const bool known = logs_[i].base.sample(sampling, base) && logs_[i].current.sample(sampling, current);
        row.base = base;
        row.difference = current - base;
        row.valid = known && std::isfinite(row.difference);
    }
}

QString TemperatureDifferences::cell(size_t well, Sampling::Mode mode, double key) const
{
    const Pair& logs = logs_.at(well);
    return readingText(logs.base.by(mode), key) + QLatin1Char('/') + readingText(logs.current.by(mode), key);
}
