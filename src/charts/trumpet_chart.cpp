#include "charts/trumpet_chart.h"

#include "base/text.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double fontSize = 9.0;

} // namespace

void TrumpetChart::plot(const TrumpetCurves& curves)
{
    plotter_.clearGraphs();
    if (curves.depths.isEmpty())
        return;
    const double coldest = *std::min_element(curves.coldest.begin(), curves.coldest.end());
    const double warmest = *std::max_element(curves.warmest.begin(), curves.warmest.end());
    const double margin = warmest > coldest ? 0.08 * (warmest - coldest) : 1.0;
    // Zero is always in sight, and so is the ground.
    const Range x{std::min(coldest, 0.0) - margin, std::max(warmest, 0.0) + margin};
    const double deepest = curves.depths.last();
    const Range y{std::min(curves.depths.first(), 0.0), deepest + (deepest > 0.0 ? 0.03 * deepest : 1.0)};
    describeAxes(x, y);
    addZeroLine(y);
    addCurve(curves, curves.coldest, QColor(30, 90, 190), QStringLiteral("Наименьшая"));
    addCurve(curves, curves.mean, QColor(20, 120, 60), QStringLiteral("Средняя"));
    addCurve(curves, curves.warmest, QColor(200, 50, 30), QStringLiteral("Наибольшая"));
    addDepthLine(curves.thawDepth, x, QColor(150, 90, 0),
                 QStringLiteral("Сезонное оттаивание ") + fixed(curves.thawDepth, 2) + QStringLiteral(" м"));
    addDepthLine(curves.quietDepth, x, QColor(110, 40, 140),
                 QStringLiteral("Нулевые годовые амплитуды ") + fixed(curves.quietDepth, 2) + QStringLiteral(" м"));
}

void TrumpetChart::describeAxes(const Range& x, const Range& y)
{
    plotter_.setX(x.from, x.to);
    plotter_.setY(y.from, y.to);
    plotter_.xAxis().label = QStringLiteral("Температура, °C");
    plotter_.xAxis().labelFontSize = fontSize;
    plotter_.xAxis().zeroAxis = false;
    plotter_.yAxis().label = QStringLiteral("Глубина, м");
    plotter_.yAxis().labelFontSize = fontSize;
    plotter_.yAxis().inverted = true;
    plotter_.yAxis().zeroAxis = false;
    plotter_.key() = {true, KeyPosition::AboveMiddle, KeyLayout::WrappedRows};
}

void TrumpetChart::addCurve(const TrumpetCurves& curves, const QVector<double>& temperatures, const QColor& color,
                            const QString& title)
{
    LineGraph graph;
    graph.xColumn = plotter_.datastore()->addColumn(temperatures, title);
    graph.yColumn = plotter_.datastore()->addColumn(curves.depths, QStringLiteral("Глубина"));
    graph.symbol = PlotSymbol::FilledCircle;
    graph.symbolSize = 3.0;
    graph.lineWidth = 1.5;
    graph.color = color;
    graph.title = title;
    plotter_.addGraph(graph);
}

void TrumpetChart::addDepthLine(double depth, const Range& x, const QColor& color, const QString& title)
{
    if (!std::isfinite(depth))
        return;
    LineGraph line;
    line.xColumn = plotter_.datastore()->addColumn({x.from, x.to}, title);
    line.yColumn = plotter_.datastore()->addColumn({depth, depth}, QStringLiteral("Глубина"));
    line.lineStyle = Qt::DashLine;
    line.lineWidth = 1.2;
    line.color = color;
    line.title = title;
    plotter_.addGraph(line);
}

void TrumpetChart::addZeroLine(const Range& y)
{
    LineGraph line;
    line.xColumn = plotter_.datastore()->addColumn({0.0, 0.0}, QStringLiteral("Z_x"));
    line.yColumn = plotter_.datastore()->addColumn({y.from, y.to}, QStringLiteral("Z_y"));
    line.lineWidth = 1.0;
    line.color = Qt::black;
    plotter_.addGraph(line);
}
