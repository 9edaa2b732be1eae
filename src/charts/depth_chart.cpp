#include "charts/depth_chart.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double fontSize = 10.0;
constexpr double infinity = std::numeric_limits<double>::infinity();

struct CurveColumns {
    QVector<double> keys, temperatures;
};

CurveColumns columnsOf(const TemperatureCurve& curve)
{
    CurveColumns columns;
    for (const auto& [key, temperature] : curve) {
        columns.keys.append(key);
        columns.temperatures.append(temperature);
    }
    return columns;
}

} // namespace

TSDataChartJK::TSDataChartJK(QObject* parent)
    : QObject(parent), store_(plotter_.datastore()), profile_(std::make_shared<const TemperatureCurve>())
{ }

void TSDataChartJK::setPictureSize(int width, int height)
{
    width_ = width;
    height_ = height;
}

void TSDataChartJK::setProfile(const TemperatureCurve& profile)
{
    profile_ = std::make_shared<const TemperatureCurve>(profile);
    if (profile_->empty())
        return;
    depthFrom_ = depthTo_ = infinity;
    plotProfile();
}

void TSDataChartJK::plotProfile()
{
    plotter_.clearGraphs();
    setRanges();
    addProfileGraph();
    PlotAxis& y = plotter_.yAxis();
    y.label = QStringLiteral("Глубина, м");
    y.labelFontSize = fontSize;
    y.inverted = true;
    PlotAxis& x = plotter_.xAxis();
    x.label = QStringLiteral("Температура, °C");
    x.labelFontSize = fontSize;
    plotter_.key().shown = true;
    addZeroLine();
    plotter_.resize(width_, height_);
}

void TSDataChartJK::setRanges()
{
    double smallest = infinity, largest = -infinity;
    for (const auto& [depth, temperature] : *profile_) {
        if (!std::isfinite(temperature))
            continue; // a missing one has no part in the range
        smallest = std::min(smallest, temperature);
        largest = std::max(largest, temperature);
    }
    const double top = profile_->begin()->first, bottom = profile_->rbegin()->first;
    const double side = smallest > largest ? 0.0 : std::max(std::abs(smallest), std::abs(largest));
    const double pad = bottom - top == 0.0 ? 1.0 : 0.05 * (bottom - top);
    plotter_.setX(-side, side);
    plotter_.setY(top - pad, bottom + pad);
}

void TSDataChartJK::addProfileGraph()
{
    const CurveColumns columns = columnsOf(*profile_);
    LineGraph graph;
    graph.yColumn = store_->addColumn(columns.keys, QStringLiteral("Глубина"));
    graph.xColumn = store_->addColumn(columns.temperatures, QStringLiteral("Температура"));
    graph.symbol = PlotSymbol::FilledCircle;
    graph.symbolSize = 1.5;
    graph.lineWidth = 1.5;
    graph.color = Qt::red;
    graph.title = QStringLiteral("Т"); // a Cyrillic letter
    plotter_.addGraph(graph);
}

void TSDataChartJK::addZeroLine()
{
    LineGraph line;
    line.xColumn = store_->addColumn({0.0, 0.0}, QStringLiteral("Z_x"));
    line.yColumn = store_->addColumn({plotter_.yAxis().minimum, plotter_.yAxis().maximum}, QStringLiteral("Z_y"));
    line.lineWidth = 1.0;
    line.color = Qt::black;
    plotter_.addGraph(line);
}

void TSDataChartJK::addMarks(const TemperatureCurve& outliers, const TemperatureCurve& gradients)
{
    addMark(outliers, PlotSymbol::FilledSquare, Qt::green, QStringLiteral("Пр.пик.знач."));
    addMark(gradients, PlotSymbol::FilledDiamond, Qt::blue, QStringLiteral("Пр.Ск.Изм."));
}

void TSDataChartJK::addMark(const TemperatureCurve& readings, PlotSymbol symbol, const QColor& color,
                            const QString& title)
{
    if (readings.empty())
        return;
    const CurveColumns columns = columnsOf(readings);
    LineGraph marks;
    marks.yColumn = store_->addColumn(columns.keys, QStringLiteral("Глубина"));
    marks.xColumn = store_->addColumn(columns.temperatures, QStringLiteral("Температура"));
    marks.symbol = symbol;
    marks.symbolSize = 5.0;
    marks.lineWidth = 0.0;
    marks.color = color;
    marks.title = title;
    plotter_.addGraph(marks);
}

void TSDataChartJK::addDepthBounds(double from, double to)
{
    if (std::isfinite(from)) {
        depthFrom_ = from;
        addDepthLine(from, QStringLiteral("Глубина (min)"));
    }
    if (std::isfinite(to)) {
        depthTo_ = to;
        addDepthLine(to, QStringLiteral("Глубина (max)"));
    }
}

void TSDataChartJK::addDepthLine(double depth, const QString& column)
{
    const double side = std::abs(0.75 * plotter_.xAxis().minimum);
    LineGraph line;
    line.xColumn = store_->addColumn({-side, side}, QString());
    line.yColumn = store_->addColumn({depth, depth}, column);
    line.symbol = PlotSymbol::FilledDiamond;
    line.symbolSize = 0.0;
    line.lineStyle = Qt::DashLine;
    line.lineWidth = 0.5;
    line.color = Qt::black;
    plotter_.addGraph(line);
}

void TSDataChartJK::addMeans(double now, double before)
{
    addMeanLine(now, Qt::red, QStringLiteral("Т_{ср.взв}^{Тек.}"), QStringLiteral("Т_{ср.взв}^{Тек.}"));
    // The blank in the second title is in all pictures that exist.
    addMeanLine(before, Qt::blue, QStringLiteral("Т_{ср.взв}^{Пред.}"), QStringLiteral("Т_{ср.взв }^{Пред.}"));
}

void TSDataChartJK::addMeanLine(double mean, const QColor& color, const QString& column, const QString& title)
{
    if (!std::isfinite(mean))
        return;
    // The first bound gives way to the smallest depth shown, the second to the
    // largest, although the axis points down.
    const double from = std::isfinite(depthFrom_) ? depthFrom_ : plotter_.yAxis().minimum;
    const double to = std::isfinite(depthTo_) ? depthTo_ : plotter_.yAxis().maximum;
    LineGraph line;
    line.xColumn = store_->addColumn({mean, mean}, column);
    line.yColumn = store_->addColumn({from, to}, QString());
    line.symbol = PlotSymbol::FilledDiamond;
    line.symbolSize = 0.0;
    line.lineStyle = Qt::DashLine;
    line.lineWidth = 0.5;
    line.color = color;
    line.title = title;
    plotter_.addGraph(line);
}

QPixmap TSDataChartJK::render(double ratio)
{
    plotter_.resize(width_, height_);
    if (profile_->empty())
        return Plotter().grabPixelImage(plotter_.size(), ratio);
    return plotter_.grabPixelImage(plotter_.size(), ratio);
}
