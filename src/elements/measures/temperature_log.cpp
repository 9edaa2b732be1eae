#include "elements/measures/temperature_log.h"

#include "base/text.h"

#include <QStringList>
#include <algorithm>
#include <cmath>

bool parseProfile(const QString& text, TemperatureProfile& profile)
{
    const QStringList pieces = text.split(QLatin1Char('|'), Qt::SkipEmptyParts);
    for (const QString& piece : pieces) {
        const QStringList halves = piece.split(QLatin1Char(':'));
        if (halves.size() != 2)
            return false;
        bool depthOk = false, temperatureOk = false;
        const double depth = halves[0].toDouble(&depthOk);
        const double temperature = halves[1].toDouble(&temperatureOk);
        if (!depthOk || !temperatureOk)
            return false;
        profile.append({depth, temperature});
    }
    return true;
}

QString profileText(const TemperatureProfile& profile)
{
    QStringList pieces;
    for (const auto& [depth, temperature] : profile)
        pieces.append(fixed(depth, 2) + QLatin1Char(':') + fixed(temperature, 2));
    return pieces.join(QLatin1Char('|'));
}

TemperatureLog logOf(const TemperatureProfile& profile)
{
    TemperatureLog log;
    for (const auto& [depth, temperature] : profile) {
        if (!std::isnan(depth))
            log[depth] = temperature;
    }
    return log;
}

namespace {

struct Reading {
    double key, value;
};

Reading reading(TemperatureLog::const_iterator at) { return {at->first, at->second}; }

bool bothKnown(const Reading& a, const Reading& b) { return std::isfinite(a.value) && std::isfinite(b.value); }

double trapezoid(double first, double second, double length) { return (first + second) * 0.5 * length; }

bool strictlyInside(double key, const Reading& a, const Reading& b) { return a.key < key && key < b.key; }

// The bounds of a mean after they were drawn in.
struct Range {
    double from, to;
};

Range drawnIn(const TemperatureLog& log, double from, double to)
{
    const double first = log.begin()->first;
    const double last = log.rbegin()->first;
    return {from < first ? first : from, to > last ? last : to};
}

struct Sum {
    double value = 0.0, length = 0.0;

    void add(double first, double second, double step)
    {
        value += trapezoid(first, second, step);
        length += step;
    }
    bool mean(double& out) const
    {
        if (!(length > 0.0))
            return false;
        out = value / length;
        return true;
    }
};

// The whole steps between the bounds, as indexes of readings, and the partial
// steps already added.
struct Walk {
    int start = -1, end = -1;
    Sum sum;
};

bool walkBounds(const TemperatureLog& log, const QVector<Reading>& readings, const Range& range, Walk& walk)
{
    for (int i = 0; i + 1 < readings.size(); ++i) {
        const Reading& upper = readings[i];
        const Reading& lower = readings[i + 1];
        if (upper.key == range.from)
            walk.start = i;
        if (lower.key == range.to)
            walk.end = i + 1;
        double at = 0.0;
        if (strictlyInside(range.from, upper, lower)) {
            if (!interpolate(log, range.from, at))
                return false;
            walk.sum.add(lower.value, at, lower.key - range.from);
            walk.start = i + 1;
        }
        if (strictlyInside(range.to, upper, lower)) {
            if (!interpolate(log, range.to, at))
                return false;
            walk.sum.add(upper.value, at, range.to - upper.key);
            walk.end = i;
        }
    }
    return walk.start >= 0 && walk.end >= 0;
}

bool addWholeSteps(const QVector<Reading>& readings, bool passOverMissing, Walk& walk)
{
    for (int i = walk.start; i < walk.end; ++i) {
        const Reading& upper = readings[i];
        const Reading& lower = readings[i + 1];
        if (bothKnown(upper, lower))
            walk.sum.add(upper.value, lower.value, lower.key - upper.key);
        else if (!passOverMissing)
            return false;
    }
    return true;
}

} // namespace

bool interpolate(const TemperatureLog& log, double key, double& out)
{
    const auto next = log.upper_bound(key);
    if (std::isnan(key) || next == log.begin() || next == log.end())
        return false;
    const Reading upper = reading(std::prev(next));
    const Reading lower = reading(next);
    if (!bothKnown(upper, lower))
        return false;
    out = upper.value + (lower.value - upper.value) * (key - upper.key) / (lower.key - upper.key);
    return true;
}

bool weightedMean(const TemperatureLog& log, double from, double to, bool toEnd, double& out, EqualBounds equal)
{
    if (log.empty())
        return false;
    Range range = drawnIn(log, from, to);
    if (toEnd)
        range.to = log.rbegin()->first;
    if (range.from == range.to)
        return equal == EqualBounds::Interpolate && interpolate(log, range.from, out);
    if (!(range.from < range.to))
        return false;

    QVector<Reading> readings;
    readings.reserve(int(log.size()));
    for (auto at = log.begin(); at != log.end(); ++at)
        readings.append(reading(at));

    Walk walk;
    return walkBounds(log, readings, range, walk) && addWholeSteps(readings, toEnd, walk) && walk.sum.mean(out);
}

bool profileMean(const TemperatureLog& log, double a, double b, double& out)
{
    if (a == b)
        return interpolate(log, a, out);
    if (log.empty())
        return false;
    const double from = std::max(a, log.begin()->first);
    const double to = std::min(b, log.rbegin()->first);
    if (!(from < to))
        return false;

    Sum sum;
    for (auto at = log.begin(), next = std::next(at); next != log.end(); at = next++) {
        const Reading upper = reading(at);
        const Reading lower = reading(next);
        const double top = std::max(from, upper.key);
        const double bottom = std::min(to, lower.key);
        if (!(top < bottom))
            continue;
        if (!bothKnown(upper, lower))
            return false;
        double topValue = upper.value;
        double bottomValue = lower.value;
        if (top > upper.key && !interpolate(log, top, topValue))
            return false;
        if (bottom < lower.key && !interpolate(log, bottom, bottomValue))
            return false;
        sum.add(topValue, bottomValue, bottom - top);
    }
    return sum.mean(out);
}
