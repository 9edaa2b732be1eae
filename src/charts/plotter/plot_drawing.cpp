#include "charts/plotter/plot_drawing.h"

#include "charts/plotter/plot_font.h"
#include "charts/plotter/plot_graph_painter.h"
#include "charts/plotter/plot_layout.h"
#include "charts/plotter/plot_strokes.h"
#include "charts/plotter/value_labels.h"

#include <qwt_plot_grid.h>

#include <QFontMetricsF>
#include <QPainter>
#include <cmath>

namespace {

// Room for stacked labels is kept in steps of one label's height.
constexpr double deepestStack = 4.0;

class Drawing
{
public:
    Drawing(const PlotContents& contents, QPainter& painter, const QSize& size, double ratio)
        : contents_(contents)
        , painter_(painter)
        , size_(size)
        , ratio_(ratio)
        , ranges_(shownRanges(contents))
    {
        record_.size = size;
    }

    PlotRecord draw()
    {
        if (contents_.isEmpty())
            return record_;
        chooseColors();
        const bool above = isAbove(contents_.key.position);
        KeyBox key(contents_, colors_, QSizeF(size_.width() - 12.0, size_.height() * (above ? 0.4 : 1.0)));
        layout_ = layoutOf(contents_, ranges_, size_, above ? key.size() : QSizeF());
        if (layout_.step == LayoutStep::Nothing)
            return record_;
        const QPointF keyCorner = above ? layAbove() : layInside(key);
        paint();
        if (layout_.step < LayoutStep::NoKey && !key.isEmpty() && (!above || !layout_.keyAbove.isNull()))
            paintKey(key, keyCorner);
        record_.white = false;
        return record_;
    }

private:
    void chooseColors();
    void layWith(const InnerMargins& margins);
    InnerMargins layFirst();
    void place(const QRectF& free);
    bool isFree(const QRectF& box) const;
    QPointF layAbove();
    QPointF layInside(KeyBox& key);
    InnerMargins marginsForSymbols() const;
    InnerMargins marginsForLabels() const;
    void collectStrokes();
    PixelCover coverOfGraphs(const QRectF& region) const;
    void collectLabels();
    void coverPictures(PixelCover& cover) const;
    QRectF textBox(const PlotText& text) const;

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
    QRectF pixelBox(const QRectF& place) const;

    const PlotContents& contents_;
    QPainter& painter_;
    QSize size_;
    double ratio_;
    PlotRanges ranges_;
    PlotLayout layout_;
    PlotRecord record_;
    QVector<QColor> colors_;
    QVector<GraphStrokes> strokes_;
    QVector<ValueLabel> labels_;
};

void Drawing::chooseColors()
{
    int next = 0;
    for (const LineGraph& graph : contents_.graphs)
        colors_.append(graph.color.isValid() ? graph.color : rowColor(next++));
}

// The colour of the graph on the labels' columns.
QColor labelColor(const GraphLabels& labels, const PlotContents& contents, const QVector<QColor>& colors)
{
    if (labels.color.isValid())
        return labels.color;
    for (int i = 0; i < contents.graphs.size(); ++i) {
        if (contents.graphs[i].yColumn == labels.yColumn)
            return colors[i].darker(130);
    }
    return Qt::black;
}

void Drawing::collectStrokes()
{
    strokes_.clear();
    for (const LineGraph& graph : contents_.graphs) {
        const PlotAxisKey axis = graph.axis;
        strokes_.append(strokesOf(contents_.store.values(graph.xColumn), contents_.store.values(graph.yColumn),
                                  [this, axis](double x, double y) { return layout_.pixelOf(x, y, axis); }, size_,
                                  pixelsOfPoints(graph.symbolSize)));
    }
}

PixelCover Drawing::coverOfGraphs(const QRectF& region) const
{
    PixelCover cover(size_, region);
    for (int i = 0; i < strokes_.size(); ++i) {
        const LineGraph& graph = contents_.graphs[i];
        const double half = graph.symbol == PlotSymbol::None ? 0.0 : pixelsOfPoints(graph.symbolSize) / 2.0;
        if (half > 0.0) {
            for (const QPointF& point : strokes_[i].points)
                cover.add(QRectF(point.x() - half, point.y() - half, 2.0 * half, 2.0 * half));
        }
        if (graph.lineWidth <= 0.0)
            continue;
        for (const QPolygonF& line : strokes_[i].lines) {
            for (int at = 1; at < line.size(); ++at)
                cover.addLine(line[at - 1], line[at], pixelsOfPoints(graph.lineWidth));
        }
    }
    return cover;
}

// Once for all layouts: only their points move.
void Drawing::collectLabels()
{
    for (const GraphLabels& wanted : contents_.labels) {
        const QVector<double>& xs = contents_.store.values(wanted.xColumn);
        const QVector<double>& ys = contents_.store.values(wanted.yColumn);
        ValueLabel label;
        label.color = labelColor(wanted, contents_, colors_);
        label.fontSize = wanted.fontSize;
        label.boxFrame = wanted.boxFrame;
        label.axis = wanted.axis;
        const bool inverted = wanted.axis == PlotAxisKey::Primary ? contents_.y.inverted : contents_.secondaryY.inverted;
        labels_.reserve(labels_.size() + xs.size());
        for (int i = 0; i < qMin(xs.size(), ys.size()); ++i) {
            if (!std::isfinite(xs[i]) || !std::isfinite(ys[i]))
                continue;
            label.x = xs[i];
            label.value = ys[i];
            label.below = (ys[i] < 0.0) != inverted;
            labels_.append(label);
        }
    }
}

// Enough that the symbols of points at the ranges' ends are whole.
InnerMargins Drawing::marginsForSymbols() const
{
    double largest = 0.0;
    for (const LineGraph& graph : contents_.graphs) {
        if (graph.symbol != PlotSymbol::None && graph.symbolSize >= 1.5)
            largest = qMax(largest, pixelsOfPoints(graph.symbolSize) / 2.0 + 2.0);
    }
    return {largest, largest, largest, largest};
}

// Enough for the labels above the highest and below the lowest points, and for
// half a label beside the first and the last one.
InnerMargins Drawing::marginsForLabels() const
{
    const bool crowded = labels_.size() > labelCrowd;
    double above = 0.0, below = 0.0, widest = 0.0, height = 0.0;
    for (const ValueLabel& label : labels_) {
        const QSizeF size = labelSize(crowded ? QStringLiteral("00.000") : labelText(label.value), label.fontSize);
        (label.below ? below : above) += size.width() + 4.0;
        widest = qMax(widest, size.width());
        height = qMax(height, size.height());
    }
    if (labels_.isEmpty())
        return marginsForSymbols();
    const double room = layout_.frame.width();
    const auto stack = [&](double widths) {
        if (widths == 0.0)
            return marginsForSymbols().top;
        const double levels = crowded ? 1.0 : qBound(1.0, std::ceil(widths / room), deepestStack);
        return qMin(levels * (height + 1.0) + 8.0, layout_.frame.height() * 0.25);
    };
    const double side = qMin(widest / 2.0 + 5.0, room * 0.15);
    return {side, stack(above), side, stack(below)};
}

void Drawing::layWith(const InnerMargins& margins)
{
    layout_.lay(contents_, ranges_, margins);
    collectStrokes();
    for (ValueLabel& label : labels_)
        label.point = layout_.pixelOf(label.x, label.value, label.axis);
}

QPointF insideCorner(const QRectF& frame, const QSizeF& size, KeyPosition position)
{
    const double left = frame.right() - size.width() - 5.0;
    const double top = position == KeyPosition::InsideBottomRight ? frame.bottom() - size.height() - 5.0
                                                                  : frame.top() + 5.0;
    return QPointF(std::round(left), std::round(top));
}

QRectF Drawing::pixelBox(const QRectF& place) const
{
    return QRectF(layout_.pixelOf(place.left(), place.top(), PlotAxisKey::Primary),
                  layout_.pixelOf(place.right(), place.bottom(), PlotAxisKey::Primary))
        .normalized();
}

void Drawing::coverPictures(PixelCover& cover) const
{
    for (const PlotPicture& picture : contents_.pictures)
        cover.add(pixelBox(picture.place));
    for (const PlotText& text : contents_.texts)
        cover.add(textBox(text));
}

// The layout without a key inside; gives the margins that the labels want.
InnerMargins Drawing::layFirst()
{
    collectLabels();
    const InnerMargins margins = marginsForLabels();
    layWith(margins);
    return margins;
}

void Drawing::place(const QRectF& free)
{
    if (labels_.isEmpty())
        return;
    const bool crowded = labels_.size() > labelCrowd;
    LabelRoom room{free, coverOfGraphs(crowded ? QRectF() : layout_.frame), PixelCover(size_)};
    record_.labelsLeftOut = placeLabels(labels_, room);
}

// Whether no graph, label, picture or text stands in the box.
bool Drawing::isFree(const QRectF& box) const
{
    PixelCover cover = coverOfGraphs(box);
    for (const ValueLabel& label : labels_) {
        if (label.placed)
            cover.add(label.box);
    }
    coverPictures(cover);
    return cover.taken(box) == 0;
}

QPointF Drawing::layAbove()
{
    layFirst();
    place(layout_.frame.adjusted(1.0, 1.0, -1.0, -1.0));
    return layout_.keyAbove.topLeft();
}

QPointF Drawing::layInside(KeyBox& key)
{
    InnerMargins margins = layFirst();
    QRectF free = layout_.frame.adjusted(1.0, 1.0, -1.0, -1.0);
    place(free);
    if (key.isEmpty() || layout_.step >= LayoutStep::NoKey)
        return QPointF();
    key = KeyBox(contents_, colors_, layout_.frame.size() - QSizeF(10.0, 10.0));
    const QRectF box(insideCorner(layout_.frame, key.size(), contents_.key.position), key.size());
    if (isFree(box))
        return box.topLeft();

    // The key would cover data: they give way, to the side that costs less.
    const QSizeF room = key.size() + QSizeF(8.0, 8.0);
    const bool sideways = room.width() / layout_.frame.width() < room.height() / layout_.frame.height();
    if (sideways) {
        margins.right += room.width();
        free.setRight(box.left() - 1.0);
    } else if (contents_.key.position == KeyPosition::InsideBottomRight) {
        margins.bottom += room.height();
        free.setBottom(box.top() - 1.0);
    } else {
        margins.top += room.height();
        free.setTop(box.bottom() + 1.0);
    }
    layWith(margins);
    place(free);
    return box.topLeft();
}

void Drawing::paint()
{
    record_.canvas = layout_.frame;
    record_.data = layout_.data;
    painter_.save();
    painter_.setClipRect(layout_.frame);
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
        const QRectF box = pixelBox(rectangle.place).intersected(layout_.data);
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
        const QRectF box = pixelBox(picture.place);
        if (!std::isfinite(box.width()) || !std::isfinite(box.height()) || !picture.make)
            continue;
        const QImage image = picture.make({box.width(), box.height(), layout_.data.width(), ratio_});
        record_.pictures.append({picture.place, box, image.size()});
        if (image.isNull())
            continue;
        painter_.save();
        painter_.setClipRect(layout_.data, Qt::IntersectClip);
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
    grid.setXDiv(divisionOf(layout_.x.get(), contents_.x.grid));
    grid.setYDiv(divisionOf(layout_.y.get(), contents_.y.grid));
    grid.draw(&painter_, layout_.xMap, layout_.yMap, layout_.frame);
    painter_.setPen(QColor(120, 120, 120));
    if (contents_.x.zeroAxis && ranges_.x.from < 0.0 && ranges_.x.to > 0.0
        && contents_.x.tickLabels == TickLabels::Number) {
        const double x = std::round(layout_.xMap.transform(0.0));
        painter_.drawLine(QPointF(x, layout_.frame.top()), QPointF(x, layout_.frame.bottom()));
    }
    if (contents_.y.zeroAxis && ranges_.y.from < 0.0 && ranges_.y.to > 0.0) {
        const double y = std::round(layout_.yMap.transform(0.0));
        painter_.drawLine(QPointF(layout_.frame.left(), y), QPointF(layout_.frame.right(), y));
    }
}

void Drawing::paintGraphs()
{
    for (int i = 0; i < contents_.graphs.size(); ++i) {
        const LineGraph& graph = contents_.graphs[i];
        paintGraph(painter_, graph, colors_[i], strokes_[i], layout_.frame);
        record_.graphs.append({graph.title, contents_.store.name(graph.xColumn), contents_.store.name(graph.yColumn),
                               strokes_[i].finitePoints, graph.symbol, graph.symbolSize, graph.lineWidth,
                               graph.lineStyle, colors_[i], graph.axis});
    }
}

// Right of its point and half above it; drawn back into the frame's sides.
QRectF Drawing::textBox(const PlotText& text) const
{
    const MarkupText shown(text.text, plotFont(text.fontSize));
    const QPointF at = layout_.pixelOf(text.x, text.y, PlotAxisKey::Primary);
    const double left = qMax(layout_.data.left(), qMin(at.x(), layout_.data.right() - shown.size().width() - 3.0));
    return QRectF(QPointF(left, at.y() - shown.size().height() / 2.0), shown.size());
}

void Drawing::paintTexts()
{
    for (const PlotText& text : contents_.texts) {
        const QRectF box = textBox(text);
        painter_.fillRect(box.adjusted(-2.0, 0.0, 2.0, 0.0), QColor(255, 255, 255, 210));
        painter_.setPen(text.color);
        MarkupText(text.text, plotFont(text.fontSize)).draw(painter_, box.topLeft());
        record_.texts.append({text.text, text.x, text.y, box});
    }
}

void Drawing::paintLabels()
{
    painter_.setRenderHint(QPainter::Antialiasing, true);
    for (const ValueLabel& label : labels_) {
        if (!label.placed || !label.leader)
            continue;
        QColor faint = label.color;
        faint.setAlpha(140);
        painter_.setPen(QPen(faint, 0.7));
        const bool above = label.box.center().y() < label.point.y();
        painter_.drawLine(label.point, QPointF(qBound(label.box.left() + 2.0, label.point.x(), label.box.right() - 2.0),
                                               above ? label.box.bottom() : label.box.top()));
    }
    painter_.setRenderHint(QPainter::Antialiasing, false);
    for (const ValueLabel& label : labels_) {
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
        entry.title.draw(painter_, QPointF(box.right() - entry.title.size().width(),
                                           box.center().y() - entry.title.size().height() / 2.0));
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
    painter_.drawRect(layout_.frame);
    for (const PlotScale* scale : {layout_.x.get(), layout_.y.get(), layout_.secondary.get()}) {
        if (scale)
            scale->drawWith(painter_);
    }
    painter_.setPen(Qt::black);
    layout_.xTitle.draw(painter_, layout_.xTitleBox, false);
    layout_.yTitle.draw(painter_, layout_.yTitleBox, true);
    layout_.secondaryTitle.draw(painter_, layout_.secondaryTitleBox, true);
    recordAxis(record_.x, contents_.x, ranges_.x, layout_.x.get(), layout_.xTitle, layout_.xTitleBox);
    recordAxis(record_.y, contents_.y, ranges_.y, layout_.y.get(), layout_.yTitle, layout_.yTitleBox);
    if (contents_.hasSecondaryY)
        recordAxis(record_.secondaryY, contents_.secondaryY, ranges_.secondaryY, layout_.secondary.get(),
                   layout_.secondaryTitle, layout_.secondaryTitleBox);
}

} // namespace

PlotRecord drawPlot(const PlotContents& contents, QPainter& painter, const QSize& size, double ratio)
{
    return Drawing(contents, painter, size, ratio).draw();
}
