// What the measures of a deformation mark say about its elevation on another day.
#pragma once

#include "analysis/forecast/line_quality.h"

#include <QDate>
#include <QMap>
#include <QString>
#include <QVector>

/// A mark with its measures by cycle, in metres. Of two measures in one cycle
/// the later one counts; `repeated` names the cycle.
struct MarkMeasures {
    int id = -1;
    QString name;
    QMap<int, QDate> dates;
    QMap<int, double> values;
    double earliest = std::numeric_limits<double>::infinity(); ///< of all measures; infinite: there is none
    QVector<int> repeated;

    /// Measures come in the order of their dates. One that is no number is none.
    void add(int cycle, const QDate& date, double value);
};

/// Fewer measures on different days give no forecast.
constexpr int kLeastMeasures = 3;

/// Numbers in metres; infinite where there is no forecast.
struct MarkForecast {
    static constexpr double none = std::numeric_limits<double>::infinity();

    QMap<QDate, double> samples; ///< measures of the chosen cycles
    std::vector<double> line;    ///< y = c0 + c1·t, t in milliseconds since 1970; empty without a forecast
    double base = none;          ///< elevation to which the deformation is told
    double deviation = none;     ///< root of the mean squared difference from the line
    double value = none;         ///< elevation on the day of the forecast
    double deformation = none;   ///< value less base
    LineQuality quality;

    bool exists() const { return !line.empty(); }
};

/// The forecast for the day from the measures of the cycles, which are in the
/// order of the list. Two cycles measured on one day give one sample, that of
/// the later cycle.
MarkForecast forecastOf(const MarkMeasures& mark, const QVector<int>& cycles, const QDate& day);

/// Midnight of the day as the abscissa of the line.
double abscissaOf(const QDate& day);
