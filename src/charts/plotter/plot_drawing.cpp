#include "charts/plotter/plot_drawing.h"

#include "charts/plotter/plot_font.h"
#include "charts/plotter/plot_graph_painter.h"
#include "charts/plotter/plot_stage.h"

#include <qwt_plot_grid.h>

#include <QFontMetricsF>
#include <QPainter>
#include <cmath>

namespace {

class Drawing {
public:
    Drawing(const PlotContents& contents, QPainter& painter, const QSize& size, double ratio)
        : contents_(contents), painter_(painter), ratio_(ratio), stage_(contents, size)
    {
        record_.size = size;
    }

    PlotRecord draw()
    {
        if (contents_.isEmpty() || !stage_.lay())
            return record_;
        record_.white = false;
        record_.canvas = layout().frame;
        record_.data = layout().data;
        record_.labelsLeftOut = stage_.labelsLeftOut();
        paint();
        if (stage_.hasKey())
            paintKey(stage_.key(), stage_.keyCorner());
        return record_;
    }

private:
    const PlotLayout& layout() const { return stage_.layout(); }

    void paint();
    void paintRectangles();
    void paintPictures();
    void paintGrid();
    void paintGraphs();
    void paintTexts();
    void paintLabels();
    void paintKey(const KeyBox& key, const QPointF& corner);
    void paintAxes();
    void recordAxis(PlotRecord::Axis& told, const PlotAxis& axis, const PlotRange& range, const PlotScale* scale,
                    const AxisTitle& title, const QRectF& titleBox);

    const PlotContents& contents_;
    QPainter& painter_;
    double ratio_;
    PlotStage stage_;
    PlotRecord record_;
};

void Drawing::paint()
{
    painter_.save();
    painter_.setClipRect(layout().frame);
    paintRectangles();
    paintPictures();
    paintGrid();
    paintGraphs();
    paintTexts();
    paintLabels();
    painter_.restore();
    paintAxes();
}

void Drawing::paintRectangles()
{
    for (const PlotRectangle& rectangle : contents_.rectangles) {
        const QRectF box = stage_.pixelBox(rectangle.place).intersected(layout().data);
        painter_.setPen(rectangle.line.alpha() == 0 ? QPen(Qt::NoPen) : QPen(rectangle.line));
        painter_.setBrush(rectangle.fill);
        painter_.drawRect(box);
        record_.rectangles.append({rectangle.place, box, rectangle.fill});
    }
    painter_.setBrush(Qt::NoBrush);
}

void Drawing::paintPictures()
{
    for (const PlotPicture& picture : contents_.pictures) {
        const QRectF box = stage_.pixelBox(picture.place);
        if (!std::isfinite(box.width()) || !std::isfinite(box.height()) || !picture.make)
            continue;
        const QImage image = picture.make({box.width(), box.height(), layout().data.width(), ratio_});
        record_.pictures.append({picture.place, box, image.size()});
        if (image.isNull())
            continue;
        painter_.save();
        painter_.setClipRect(layout().data, Qt::IntersectClip);
        painter_.drawImage(box, image.mirrored());
        painter_.restore();
    }
}

QwtScaleDiv divisionOf(const PlotScale* scale, bool shown)
{
    QwtScaleDiv div(0.0, 0.0);
    if (scale && shown) {
        div = scale->scaleDiv();
        div.setTicks(QwtScaleDiv::MinorTick, {});
    }
    return div;
}

void Drawing::paintGrid()
{
    QwtPlotGrid grid;
    grid.setMajorPen(QColor(205, 205, 205), 0.0, Qt::DotLine);
    grid.setXDiv(divisionOf(layout().x.get(), contents_.x.grid));
    grid.setYDiv(divisionOf(layout().y.get(), contents_.y.grid));
    grid.draw(&painter_, layout().xMap, layout().yMap, layout().frame);
    painter_.setPen(QColor(120, 120, 120));
    if (contents_.x.zeroAxis && stage_.ranges().x.from < 0.0 && stage_.ranges().x.to > 0.0
        && contents_.x.tickLabels == TickLabels::Number) {
        const double x = std::round(layout().xMap.transform(0.0));
        painter_.drawLine(QPointF(x, layout().frame.top()), QPointF(x, layout().frame.bottom()));
    }
    if (contents_.y.zeroAxis && stage_.ranges().y.from < 0.0 && stage_.ranges().y.to > 0.0) {
        const double y = std::round(layout().yMap.transform(0.0));
        painter_.drawLine(QPointF(layout().frame.left(), y), QPointF(layout().frame.right(), y));
    }
}

void Drawing::paintGraphs()
{
    for (int i = 0; i < contents_.graphs.size(); ++i) {
        const LineGraph& graph = contents_.graphs[i];
        paintGraph(painter_, graph, stage_.colors()[i], stage_.strokes()[i], layout().frame);
        record_.graphs.append({graph.title, contents_.store.name(graph.xColumn), contents_.store.name(graph.yColumn),
                               stage_.strokes()[i].finitePoints, graph.symbol, graph.symbolSize, graph.lineWidth,
                               graph.lineStyle, stage_.colors()[i], graph.axis});
    }
}

void Drawing::paintTexts()
{
    for (const PlotText& text : contents_.texts) {
        const QRectF box = stage_.textBox(text);
        painter_.fillRect(box.adjusted(-2.0, 0.0, 2.0, 0.0), QColor(255, 255, 255, 210));
        painter_.setPen(text.color);
        MarkupText(text.text, plotFont(text.fontSize)).draw(painter_, box.topLeft());
        record_.texts.append({text.text, text.x, text.y, box});
    }
}

void Drawing::paintLabels()
{
    painter_.setRenderHint(QPainter::Antialiasing, true);
    for (const ValueLabel& label : stage_.labels()) {
        if (!label.placed || !label.leader)
            continue;
        QColor faint = label.color;
        faint.setAlpha(140);
        painter_.setPen(QPen(faint, 0.7));
        const bool above = label.box.center().y() < label.point.y();
        painter_.drawLine(label.point,
                          QPointF(qBound(label.box.left() + 2.0, label.point.x(), label.box.right() - 2.0),
                                  above ? label.box.bottom() : label.box.top()));
    }
    painter_.setRenderHint(QPainter::Antialiasing, false);
    for (const ValueLabel& label : stage_.labels()) {
        if (!label.placed)
            continue;
        const QFont font = plotFont(label.fontSize);
        painter_.setFont(font);
        painter_.setPen(label.color);
        painter_.drawText(QPointF(label.box.left() + 0.5, label.box.bottom() - 1.5), label.text);
        if (label.boxFrame)
            painter_.drawRect(label.box);
        record_.labels.append({label.text, label.point, label.box, label.axis});
    }
}

void Drawing::paintKey(const KeyBox& key, const QPointF& corner)
{
    record_.key = key.recordAt(corner);
    painter_.setPen(QColor(150, 150, 150));
    painter_.setBrush(QColor(255, 255, 255, 235));
    painter_.drawRect(record_.key.box.adjusted(0.0, 0.0, -1.0, -1.0));
    painter_.setBrush(Qt::NoBrush);
    for (const KeyEntry& entry : key.entries()) {
        const QRectF box = entry.box.translated(corner);
        const double middle = std::round(box.center().y());
        paintSample(painter_, *entry.graph, entry.color, QRectF(box.left(), middle - 5.0, 22.0, 10.0));
        painter_.setPen(Qt::black);
        entry.title.draw(
            painter_,
            QPointF(box.right() - entry.title.size().width(), box.center().y() - entry.title.size().height() / 2.0));
    }
}

void Drawing::recordAxis(PlotRecord::Axis& told, const PlotAxis& axis, const PlotRange& range, const PlotScale* scale,
                         const AxisTitle& title, const QRectF& titleBox)
{
    told.drawn = scale != nullptr;
    told.minimum = range.from;
    told.maximum = range.to;
    told.inverted = axis.inverted;
    told.label = axis.label;
    told.labelBox = title.isEmpty() ? QRectF() : titleBox;
    for (int i = 0; scale && i < scale->plotTicks().labels.size(); ++i) {
        if (scale->plotTicks().labels[i].isEmpty())
            continue;
        told.tickLabels.append(scale->plotTicks().labels[i]);
        told.tickBoxes.append(scale->labelBox(i));
    }
}

void Drawing::paintAxes()
{
    painter_.setPen(Qt::black);
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(layout().frame);
    for (const PlotScale* scale : {layout().x.get(), layout().y.get(), layout().secondary.get()}) {
        if (scale)
            scale->drawWith(painter_);
    }
    painter_.setPen(Qt::black);
    layout().xTitle.draw(painter_, layout().xTitleBox, false);
    layout().yTitle.draw(painter_, layout().yTitleBox, true);
    layout().secondaryTitle.draw(painter_, layout().secondaryTitleBox, true);
    recordAxis(record_.x, contents_.x, stage_.ranges().x, layout().x.get(), layout().xTitle, layout().xTitleBox);
    recordAxis(record_.y, contents_.y, stage_.ranges().y, layout().y.get(), layout().yTitle, layout().yTitleBox);
    if (contents_.hasSecondaryY)
        recordAxis(record_.secondaryY, contents_.secondaryY, stage_.ranges().secondaryY, layout().secondary.get(),
                   layout().secondaryTitle, layout().secondaryTitleBox);
}

} // namespace

PlotRecord drawPlot(const PlotContents& contents, QPainter& painter, const QSize& size, double ratio)
{
    return Drawing(contents, painter, size, ratio).draw();
}
