#include "charts/plotter/plot_graph_painter.h"

#include "charts/plotter/plot_font.h"

#include <qwt_painter.h>
#include <qwt_plot_curve.h>
#include <qwt_scale_map.h>
#include <qwt_symbol.h>

#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <memory>

namespace {

// So many symbols are stamped from one picture instead of drawn each, so many
// strokes are a surface.
constexpr int stamped = 2000;

// Curves look better where their points really are than on whole pixels; the
// library keeps that choice for all its drawing in one place.
class ExactCurves {
public:
    ExactCurves() : before_(QwtPainter::roundingAlignment()) { QwtPainter::setRoundingAlignment(false); }
    ~ExactCurves() { QwtPainter::setRoundingAlignment(before_); }
    ExactCurves(const ExactCurves&) = delete;
    ExactCurves& operator=(const ExactCurves&) = delete;

private:
    bool before_;
};

QPainterPath octagon(double size)
{
    QPolygonF corners;
    for (int i = 0; i < 8; ++i) {
        const double angle = M_PI / 8.0 + i * M_PI / 4.0;
        corners << QPointF(std::cos(angle), std::sin(angle)) * size / 2.0;
    }
    QPainterPath path;
    path.addPolygon(corners);
    path.closeSubpath();
    return path;
}

// Null when the graph has no symbol.
std::unique_ptr<QwtSymbol> symbolOf(const LineGraph& graph, const QColor& color)
{
    const double size = pixelsOfPoints(graph.symbolSize);
    if (graph.symbol == PlotSymbol::None || !(size > 0.0))
        return nullptr;
    auto symbol = std::make_unique<QwtSymbol>(QwtSymbol::Ellipse, QBrush(color), QPen(Qt::NoPen), QSize());
    if (graph.symbol == PlotSymbol::FilledSquare)
        symbol->setStyle(QwtSymbol::Rect);
    else if (graph.symbol == PlotSymbol::FilledDiamond)
        symbol->setStyle(QwtSymbol::Diamond);
    if (graph.symbol == PlotSymbol::FilledOctagon || size < 3.0) {
        // The library counts sizes in whole pixels; an outline has any size.
        symbol->setStyle(QwtSymbol::Path);
        symbol->setPath(octagon(size));
        symbol->setPinPoint(QPointF(0.0, 0.0));
        symbol->setPinPointEnabled(true);
    } else {
        symbol->setSize(int(std::lround(size)));
    }
    return symbol;
}

QPen penOf(const LineGraph& graph, const QColor& color)
{
    QPen pen(color, qMax(0.8, pixelsOfPoints(graph.lineWidth)), graph.lineStyle);
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::BevelJoin);
    return pen;
}

void paintLine(QPainter& painter, const QPolygonF& line, const QPen& pen, const QRectF& frame)
{
    // Smooth edges and widths of strokes side by side are not seen, and are slow.
    const bool surface = line.size() >= stamped;
    painter.setRenderHint(QPainter::Antialiasing, !surface);
    QwtPlotCurve curve;
    curve.setPen(surface ? QPen(pen.color(), 1.0) : pen);
    curve.setSamples(line);
    curve.drawSeries(&painter, QwtScaleMap(), QwtScaleMap(), frame, 0, line.size() - 1);
}

} // namespace

void paintGraph(QPainter& painter, const LineGraph& graph, const QColor& color, const GraphStrokes& strokes,
                const QRectF& frame)
{
    const ExactCurves exact;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    if (graph.lineWidth > 0.0) {
        for (const QPolygonF& line : strokes.lines)
            paintLine(painter, line, penOf(graph, color), frame);
    }
    painter.setRenderHint(QPainter::Antialiasing, true);
    if (const std::unique_ptr<QwtSymbol> symbol = symbolOf(graph, color)) {
        QPolygonF inside;
        const QRectF near = frame.adjusted(-20.0, -20.0, 20.0, 20.0);
        for (const QPointF& point : strokes.points) {
            if (near.contains(point))
                inside.append(point);
        }
        symbol->setCachePolicy(inside.size() > stamped ? QwtSymbol::Cache : QwtSymbol::NoCache);
        symbol->drawSymbols(&painter, inside);
    }
    painter.restore();
}

void paintSample(QPainter& painter, const LineGraph& graph, const QColor& color, const QRectF& box)
{
    GraphStrokes sample;
    sample.lines.append(QVector<QPointF>{{box.left(), box.center().y()}, {box.right(), box.center().y()}});
    sample.points.append(box.center());
    painter.save();
    paintGraph(painter, graph, color, sample, box);
    painter.restore();
}
