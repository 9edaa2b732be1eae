#include "analysis/forecast/prediction_chart.h"

#include "base/placeholders.h"

#include <algorithm>
#include <array>

namespace {

constexpr int kBandSteps = 40; // its edges are hyperbolas

QColor colorOf(int number)
{
    static const std::array<QColor, 8> colors = {{{31, 119, 180},
                                                  {214, 39, 40},
                                                  {44, 160, 44},
                                                  {148, 103, 189},
                                                  {255, 127, 14},
                                                  {140, 86, 75},
                                                  {23, 190, 207},
                                                  {127, 127, 127}}};
    return colors[size_t(number) % colors.size()];
}

// A name as it stands in texts where "_" would set the next letter lower.
QString escaped(QString name) { return name.replace(QLatin1Char('_'), QStringLiteral("\\_")); }

struct Stretch {
    double from, to;
};

Stretch stretchOf(const MarkForecast& forecast, const QDate& day)
{
    const double first = abscissaOf(forecast.samples.firstKey());
    const double last = abscissaOf(forecast.samples.lastKey());
    const double told = day.isValid() ? abscissaOf(day) : last;
    return {std::min(first, told), std::max(last, told)};
}

} // namespace

LineGraph DMPredictionChartJK::addLine(const QVector<double>& times, const QVector<double>& values, int number)
{
    LineGraph graph;
    graph.xColumn = store_->addColumn(times, QStringLiteral("Дата"));
    graph.yColumn = store_->addColumn(values, QStringLiteral("Вертикальное перемещение"));
    graph.color = colorOf(number);
    graph.lineWidth = 1.0;
    return graph;
}

void DMPredictionChartJK::plotMeasures(const QString& name, const QMap<QDate, double>& measures, int number)
{
    QVector<double> times, values;
    for (auto measure = measures.begin(); measure != measures.end(); ++measure) {
        times.append(abscissaOf(measure.key()));
        values.append(measure.value());
    }
    if (times.isEmpty())
        return;
    LineGraph graph = addLine(times, values, number);
    graph.symbol = PlotSymbol::FilledCircle;
    graph.symbolSize = 5.0;
    graph.title = escaped(name);
    plotter_.addGraph(graph);
}

void DMPredictionChartJK::plotTrend(const QString& name, const MarkForecast& forecast, const QDate& day, int number)
{
    if (!forecast.exists())
        return;
    const Stretch stretch = stretchOf(forecast, day);
    LineGraph graph = addLine({stretch.from, stretch.to},
                              {valueAt(forecast.line, stretch.from), valueAt(forecast.line, stretch.to)}, number);
    graph.lineStyle = Qt::DashLine;
    graph.title = fill("Тренд %1", escaped(name));
    plotter_.addGraph(graph);
}

void DMPredictionChartJK::plotBand(const MarkForecast& forecast, const QDate& day, int number)
{
    if (!forecast.exists())
        return;
    const Stretch stretch = stretchOf(forecast, day);
    for (double side : {-1.0, 1.0}) {
        QVector<double> times, values;
        for (int step = 0; step <= kBandSteps; ++step) {
            const double time = stretch.from + (stretch.to - stretch.from) * step / kBandSteps;
            times.append(time);
            values.append(valueAt(forecast.line, time) + side * forecast.quality.halfBand(time));
        }
        LineGraph graph = addLine(times, values, number);
        graph.lineStyle = Qt::DotLine;
        graph.lineWidth = 0.8;
        plotter_.addGraph(graph);
    }
}

QPixmap DMPredictionChartJK::render(double ratio)
{
    PlotAxis& x = plotter_.xAxis();
    x.tickLabels = TickLabels::DateTime;
    x.tickFormat = QStringLiteral("MM.yy");
    x.label = QStringLiteral("Дата");
    plotter_.yAxis().label = QStringLiteral("Вертикальное перемещение");
    plotter_.key() = {true, KeyPosition::AboveRight, KeyLayout::WrappedRows};
    plotter_.zoomToFit(1.05, 1.1);
    return MeasureChart::render(ratio);
}
