// The measures of marks over time, their trends and how far these are to be trusted.
#pragma once

#include "analysis/forecast/mark_forecast.h"
#include "charts/measure_chart.h"

class DMPredictionChartJK : public MeasureChart {
    Q_OBJECT

public:
    using MeasureChart::MeasureChart;

    /// The measures of a mark in metres. Each mark has a colour of its own, by
    /// its number.
    void plotMeasures(const QString& name, const QMap<QDate, double>& measures, int number);
    /// The line from the first measure to the last one, or to the day of the
    /// forecast where that is later; "Тренд %1" in the key.
    void plotTrend(const QString& name, const MarkForecast& forecast, const QDate& day, int number);
    /// Both edges of the band in which a measure lies with 95 %.
    void plotBand(const MarkForecast& forecast, const QDate& day, int number);
    QPixmap render(double ratio = 1.0) override;

private:
    LineGraph addLine(const QVector<double>& times, const QVector<double>& values, int number);
};
