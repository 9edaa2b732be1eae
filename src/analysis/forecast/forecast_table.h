// The forecast of marks as texts: a row a mark.
#pragma once

#include "analysis/forecast/mark_forecast.h"

#include <QStringList>

/// The columns between the cycles and the end, in the order of the table.
enum class ForecastColumn {
    Base,
    Deviation,
    Value,
    Deformation,
    Measures,
    Trend,
    Epochs,
    Determination,
    StandardError
};

/// Where the column stands when so many cycles are chosen.
int columnOf(ForecastColumn column, int cycles);

/// The titles; a cycle by its number.
QStringList forecastTitles(const QStringList& cycleNumbers);

/// The cells in the order of the titles; those of the two boxes are empty.
QStringList forecastCells(const MarkMeasures& mark, const MarkForecast& forecast, const QVector<int>& cycles);

/// The forecast as it is shown, stored and exported; "--" without one.
QString forecastText(const MarkForecast& forecast);

/// Says that so many marks of all have too few days of measures; empty when none has.
QString shortageText(int without, int all);

/// The name that a forecast has until the user gives it another.
QString defaultForecastName(const QDate& day);

/// A line a forecast behind the line of titles, cells joined by ";".
struct ExportedForecast {
    QString name;
    QString value; ///< as shown
};
QString forecastCsv(const QVector<ExportedForecast>& rows, const QDate& day, const QString& serial);
