// The readings along a thermal well: the text stored in ts_meas.meas, and what
// is computed from a log.
//
// Depths are metres below the ground mark, temperatures degrees Celsius. A log
// may also be keyed by elevation: the computations ask only for ascending keys.
#pragma once

#include <QPair>
#include <QString>
#include <QVector>
#include <map>

/// (depth, temperature) pairs as they stand in the file that they came from;
/// a missing temperature is positive infinity.
using TemperatureProfile = QVector<QPair<double, double>>;

/// Temperature by depth (or by elevation), ascending.
using TemperatureLog = std::map<double, double>;

/// Appends the pairs of a stored text, "depth:temperature" joined by "|".
/// Empty pieces are passed over. A piece that is not exactly two numbers ends
/// the reading with false; the pairs before it stay. An empty text is good.
bool parseProfile(const QString& text, TemperatureProfile& profile);

/// The text that is stored: two decimals each, in the order of the vector.
QString profileText(const TemperatureProfile& profile);

/// Of several readings at one depth the last one counts. A depth that is not a
/// number has no place in the order and is left out.
TemperatureLog logOf(const TemperatureProfile& profile);

/// The temperature at `key`, linear between the readings k[i] <= key < k[i+1].
/// False outside the log, at and beyond its last key, and where one of the two
/// readings is infinite or not a number. `out` is then left alone.
bool interpolate(const TemperatureLog& log, double key, double& out);

/// What a mean over no length at all is.
enum class EqualBounds {
    Fail,        ///< maps of temperature
    Interpolate, ///< grading: the interpolated reading
};

/// The mean over [from, to] by trapezoids, weighted by depth. Bounds outside
/// the log are drawn in to its ends; with `toEnd` the mean goes down to the
/// last key, and steps with a missing reading are passed over instead of
/// failing. Where both bounds lie strictly inside one step, the partial
/// trapezoids on both sides are added although they overlap: stored results
/// are bound to it.
bool weightedMean(const TemperatureLog& log, double from, double to, bool toEnd, double& out,
                  EqualBounds equal = EqualBounds::Fail);

/// The mean by which the import validates a measure: the plain integral over
/// [a, b] divided by its length, bounds drawn in to the log. Equal bounds give
/// the interpolated reading, a missing reading anywhere inside fails.
bool profileMean(const TemperatureLog& log, double a, double b, double& out);
