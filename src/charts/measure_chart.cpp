#include "charts/measure_chart.h"

#include "base/written_date.h"
#include "charts/chart_series.h"

#include <algorithm>

namespace {

constexpr double fontSize = 8.0;

void describeSecondaryAxis(PlotAxis& axis, const QString& label, double largest)
{
    axis.grid = false;
    axis.drawMode1 = AxisDrawing::None;
    axis.drawMode0 = AxisDrawing::None;
    axis.drawMode2 = AxisDrawing::Full;
    axis.zeroAxis = false;
    axis.label = label;
    axis.labelFontSize = fontSize;
    axis.setRange(0.0, largest);
}

} // namespace

MeasureChart::MeasureChart(QObject* parent) : QObject(parent), store_(plotter_.datastore()) { }

MeasureChart::~MeasureChart() = default;

void MeasureChart::setPictureSize(int width, int height)
{
    width_ = width;
    height_ = height;
}

QPixmap MeasureChart::render(double ratio)
{
    plotter_.resize(width_, height_);
    return plotter_.grabPixelImage(QSize(width_, height_), ratio);
}

ValueBounds MeasureChart::widenExtents(const TimeSeries& series)
{
    ValueBounds bounds;
    if (series.isEmpty())
        return bounds;
    // A value that is no number compares as neither and changes nothing.
    for (double value : series) {
        bounds.smallest = std::min(bounds.smallest, value);
        bounds.largest = std::max(bounds.largest, value);
    }
    minimumX_ = std::min(minimumX_, double(writtenMilliseconds(series.firstKey())));
    maximumX_ = std::max(maximumX_, double(writtenMilliseconds(series.lastKey())));
    minimumY_ = std::min(minimumY_, bounds.smallest);
    maximumY_ = std::max(maximumY_, bounds.largest);
    return bounds;
}

void MeasureChart::setRangesFromExtents()
{
    plotter_.setX(minimumX_, maximumX_);
    plotter_.setY(minimumY_, maximumY_);
}

void MeasureChart::addColumns(const TimeSeries& series, const ChartSeries& row)
{
    QVector<double> times, values;
    times.reserve(series.size());
    values.reserve(series.size());
    for (auto measure = series.begin(); measure != series.end(); ++measure) {
        times.append(double(writtenMilliseconds(measure.key())));
        values.append(measure.value() * row.factor);
    }
    LineGraph graph;
    graph.xColumn = store_->addColumn(times, QStringLiteral("Дата"));
    graph.yColumn = store_->addColumn(values, row.valueColumn);
    graph.symbol = PlotSymbol::FilledOctagon;
    graph.symbolSize = row.full ? 4.0 : 1.0;
    if (!row.full)
        graph.lineWidth = 0.8;
    graph.title = row.title;
    graph.axis = row.axis;
    plotter_.addGraph(graph);
    if (!row.full)
        return;
    GraphLabels labels;
    labels.xColumn = graph.xColumn;
    labels.yColumn = graph.yColumn;
    labels.type = LabelType::YValue;
    labels.position = LabelPosition::AwayFromXAxis;
    labels.fontSize = fontSize;
    labels.boxFrame = false;
    labels.axis = row.axis;
    plotter_.addLabels(labels);
}

void MeasureChart::describeAxes(const ChartSeries& row, const ValueBounds& bounds)
{
    PlotAxis& x = plotter_.xAxis();
    x.tickLabels = TickLabels::DateTime;
    x.tickFormat = QStringLiteral("MM.yy");
    x.label = QStringLiteral("Дата");
    if (row.axis == PlotAxisKey::Secondary) {
        describeSecondaryAxis(plotter_.addSecondaryYAxis(), row.axisLabel, bounds.largest);
        return;
    }
    plotter_.yAxis().label = row.axisLabel;
    plotter_.yAxis().labelFontSize = fontSize;
}

ValueBounds MeasureChart::plotSeries(const TimeSeries& series, const ChartSeries& row)
{
    const ValueBounds bounds = widenExtents(series);
    if (series.isEmpty())
        return bounds;
    addColumns(series, row);
    plotter_.resize(width_, height_);
    if (row.describesAxes)
        describeAxes(row, bounds);
    if (row.setsRanges)
        setRangesFromExtents();
    if (row.showsKey)
        plotter_.key() = {true, row.key, KeyLayout::OneRow};
    return bounds;
}

ValueBounds DMDeformationChartJK::plotDisplacement(const TimeSeries& series)
{
    return plotSeries(series, chartSeries(SeriesKey::Displacement));
}

ValueBounds DMDeformationChartJK::plotTrend(const TimeSeries& series)
{
    return plotSeries(series, chartSeries(SeriesKey::Trend));
}

QPixmap DMDeformationChartJK::render(double ratio)
{
    setRangesFromExtents();
    plotter_.resize(width_, height_);
    plotter_.zoomToFit(1.05, 1.05);
    return plotter_.grabPixelImage(QSize(width_, height_), ratio);
}

ValueBounds GGSMeasureChartJK::plotLevel(const TimeSeries& series)
{
    return plotSeries(series, chartSeries(SeriesKey::WaterLevel));
}

ValueBounds TSGMeasuresChartJK::plotAir(const TimeSeries& series)
{
    return plotSeries(series, chartSeries(SeriesKey::AirTemperature));
}

ValueBounds TSGMeasuresChartJK::plotExchanger(const TimeSeries& series)
{
    return plotSeries(series, chartSeries(SeriesKey::ExchangerTemperature));
}

ValueBounds TSSMeasuresChartJK::plotDensity(const TimeSeries& series)
{
    return plotSeries(series, chartSeries(SeriesKey::SnowDensity));
}

ValueBounds TSSMeasuresChartJK::plotHeight(const TimeSeries& series)
{
    return plotSeries(series, chartSeries(SeriesKey::SnowHeight));
}
