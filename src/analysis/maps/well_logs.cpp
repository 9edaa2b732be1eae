#include "analysis/maps/well_logs.h"

#include <cmath>

namespace {

// The stored reading at the key, or what lies between its neighbours.
bool readingAt(const TemperatureLog& log, double key, double& value)
{
    const auto found = log.find(key);
    if (found == log.end())
        return interpolate(log, key, value);
    value = found->second;
    return true;
}

} // namespace

WellLogs::WellLogs(const QString& stored, double ground)
{
    TemperatureProfile profile;
    parseProfile(stored, profile);
    depths_ = logOf(profile);
    for (const auto& [depth, temperature] : depths_)
        elevations_[ground - depth] = temperature;
}

bool WellLogs::sample(const Sampling& sampling, double& value) const
{
    if (sampling.bottom) {
        if (depths_.empty())
            return false;
        value = depths_.rbegin()->second;
        return std::isfinite(value);
    }
    if (sampling.mode == Sampling::Average)
        return weightedMean(depths_, sampling.from, sampling.to, sampling.toEnd, value) && !std::isnan(value);
    return readingAt(by(sampling.mode), sampling.key, value);
}

void LogKeys::add(const WellLogs& logs)
{
    for (const auto& [depth, temperature] : logs.by(Sampling::Depth))
        depths_.insert(depth);
    for (const auto& [elevation, temperature] : logs.by(Sampling::Elevation))
        elevations_.insert(elevation);
}

std::vector<double> LogKeys::by(Sampling::Mode mode) const
{
    if (mode == Sampling::Elevation)
        return {elevations_.rbegin(), elevations_.rend()};
    return {depths_.begin(), depths_.end()};
}
