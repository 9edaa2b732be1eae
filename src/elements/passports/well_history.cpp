#include "elements/passports/well_history.h"

#include "base/written_date.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

TemperatureLog groundReadings(const TemperatureLog& log)
{
    TemperatureLog ground;
    for (const auto& [depth, temperature] : log) {
        if (depth >= 0.0 && std::isfinite(depth) && std::isfinite(temperature))
            ground[depth] = temperature;
    }
    return ground;
}

// Where the straight line from (a, va) to (b, vb) takes the value.
double crossing(double a, double va, double b, double vb, double value)
{
    return vb == va ? b : a + (b - a) * (value - va) / (vb - va);
}

double thawDepthOf(const TemperatureEnvelope& envelope)
{
    const QVector<double>&depths = envelope.depths, &warmest = envelope.warmest;
    if (depths.isEmpty() || warmest[0] <= 0.0)
        return TemperatureEnvelope::none;
    for (int i = 1; i < depths.size(); ++i) {
        if (warmest[i] <= 0.0)
            return crossing(depths[i - 1], warmest[i - 1], depths[i], warmest[i], 0.0);
    }
    return TemperatureEnvelope::none;
}

double quietDepthOf(const TemperatureEnvelope& envelope, double threshold)
{
    // From the bottom up, over depths that at least two logs reach.
    double below = notANumber, belowAmplitude = 0.0;
    for (int i = envelope.depths.size() - 1; i >= 0; --i) {
        if (envelope.counts[i] < 2)
            continue;
        const double amplitude = envelope.warmest[i] - envelope.coldest[i];
        if (amplitude > threshold) {
            return std::isnan(below) ? TemperatureEnvelope::none
                                     : crossing(envelope.depths[i], amplitude, below, belowAmplitude, threshold);
        }
        below = envelope.depths[i];
        belowAmplitude = amplitude;
    }
    return std::isnan(below) ? TemperatureEnvelope::none : below;
}

void addDepth(TemperatureEnvelope& envelope, const DatedLogs& logs, double depth)
{
    double coldest = TemperatureEnvelope::none, warmest = -TemperatureEnvelope::none, sum = 0.0;
    int count = 0;
    for (const DatedLog& log : logs) {
        const double temperature = temperatureAt(log.log, depth);
        if (std::isnan(temperature))
            continue;
        coldest = std::min(coldest, temperature);
        warmest = std::max(warmest, temperature);
        sum += temperature;
        ++count;
    }
    if (count == 0)
        return;
    envelope.depths.append(depth);
    envelope.coldest.append(coldest);
    envelope.mean.append(sum / count);
    envelope.warmest.append(warmest);
    envelope.counts.append(count);
}

} // namespace

DatedLogs datedLogs(const Measures& measures, const QVector<int>& chosen)
{
    DatedLogs logs;
    for (const std::unique_ptr<BaseMeasure>& measure : measures) {
        if (!family(measure->family().family).hasProfile || !chosen.contains(measure->measureId))
            continue;
        TemperatureLog log = groundReadings(logOf(static_cast<const TSMeasure&>(*measure).profile));
        if (measure->date.isValid() && !log.empty())
            logs.push_back({measure->date.date(), std::move(log)});
    }
    std::stable_sort(logs.begin(), logs.end(), [](const DatedLog& a, const DatedLog& b) { return a.date < b.date; });
    return logs;
}

double temperatureAt(const TemperatureLog& log, double depth)
{
    const auto below = log.lower_bound(depth);
    if (below == log.end())
        return notANumber;
    if (below->first == depth)
        return below->second;
    if (below == log.begin())
        return notANumber;
    const auto above = std::prev(below);
    const double share = (depth - above->first) / (below->first - above->first);
    return above->second + share * (below->second - above->second);
}

TemperatureGrid gridOf(const DatedLogs& logs)
{
    std::set<double> depths;
    std::map<QDate, const TemperatureLog*> days; // of two logs of a day the last one counts
    for (const DatedLog& log : logs) {
        days[log.date] = &log.log;
        for (const auto& reading : log.log)
            depths.insert(reading.first);
    }
    TemperatureGrid grid;
    grid.depths = QVector<double>(depths.begin(), depths.end());
    for (const auto& [day, log] : days) {
        grid.times.append(double(writtenMilliseconds(writtenMoment(day))));
        for (const double depth : grid.depths)
            grid.values.append(temperatureAt(*log, depth));
    }
    return grid;
}

TemperatureEnvelope envelopeOf(const DatedLogs& logs, double quietAmplitude)
{
    std::set<double> depths;
    for (const DatedLog& log : logs) {
        for (const auto& reading : log.log)
            depths.insert(reading.first);
    }
    TemperatureEnvelope envelope;
    for (const double depth : depths)
        addDepth(envelope, logs, depth);
    envelope.thawDepth = thawDepthOf(envelope);
    envelope.quietDepth = quietDepthOf(envelope, quietAmplitude);
    return envelope;
}
