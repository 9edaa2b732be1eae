#include "analysis/forecast/mark_forecast.h"

#include "base/written_date.h"

#include <cmath>

void MarkMeasures::add(int cycle, const QDate& date, double value)
{
    if (!std::isfinite(value))
        return;
    if (values.contains(cycle) && !repeated.contains(cycle))
        repeated.append(cycle);
    values[cycle] = value;
    if (date.isValid())
        dates[cycle] = date;
    else
        dates.remove(cycle);
    if (!std::isfinite(earliest))
        earliest = value;
}

double abscissaOf(const QDate& day) { return double(writtenMilliseconds(writtenMoment(day))); }

MarkForecast forecastOf(const MarkMeasures& mark, const QVector<int>& cycles, const QDate& day)
{
    MarkForecast forecast;
    for (int cycle : cycles) {
        const QDate date = mark.dates.value(cycle);
        if (date.isValid())
            forecast.samples[date] = mark.values.value(cycle);
    }
    if (forecast.samples.size() < kLeastMeasures)
        return forecast;
    std::map<double, double> samples;
    for (auto sample = forecast.samples.begin(); sample != forecast.samples.end(); ++sample)
        samples[abscissaOf(sample.key())] = sample.value();
    PolynomialFit fit;
    fit.setSamples(samples);
    forecast.line = fit.fit(1);
    forecast.deviation = std::sqrt(fit.meanSquaredError(forecast.line));
    forecast.base = mark.values.value(cycles.first(), mark.earliest);
    forecast.value = valueAt(forecast.line, abscissaOf(day));
    forecast.deformation = forecast.value - forecast.base;
    forecast.quality = qualityOf(fit, forecast.line);
    return forecast;
}
