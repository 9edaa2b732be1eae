#pragma once
// What a thermal well has gone through over many measures: how warm and how
// cold it was at each depth, and its temperatures over time and depth.

#include "charts/isotherm_chart.h"
#include "elements/measures/measures_of_element.h"

#include <QDate>
#include <limits>

/// A measure as a log with its day. Missing readings, and those above the
/// ground, are left out.
struct DatedLog {
    QDate date;
    TemperatureLog log;
};
using DatedLogs = std::vector<DatedLog>;

/// The measures that have a day and a reading, by day; `chosen` holds the ids
/// of those that count.
DatedLogs datedLogs(const Measures& measures, const QVector<int>& chosen);

/// A log at a depth: its reading, or the straight line between those above and
/// below. Not a number outside the log; nothing is drawn out beyond its ends.
double temperatureAt(const TemperatureLog& log, double depth);

/// The trumpet: the coldest, the mean and the warmest temperature at each depth
/// that any of the logs has.
struct TemperatureEnvelope {
    static constexpr double none = std::numeric_limits<double>::infinity();

    QVector<double> depths; ///< m, from the top
    QVector<double> coldest, mean, warmest;
    QVector<int> counts; ///< how many logs reach the depth
    /// The bottom of the layer that thaws: where the warmest temperature first
    /// falls to 0 °C below a thawed top. Not there where the top never thaws,
    /// or all of the well does.
    double thawDepth = none;
    /// The depth of zero annual amplitude: from there down the warmest and the
    /// coldest are no further apart than the threshold. Not there where they
    /// still are at the bottom, or a single log tells nothing.
    double quietDepth = none;

    bool isEmpty() const { return depths.isEmpty(); }
};

/// What is commonly taken for no amplitude at all, °C.
constexpr double kQuietAmplitude = 0.1;

/// The mean is that of the logs, each counting once.
TemperatureEnvelope envelopeOf(const DatedLogs& logs, double quietAmplitude = kQuietAmplitude);

/// The temperatures over time and depth: a time a day, a depth that any log has.
TemperatureGrid gridOf(const DatedLogs& logs);
