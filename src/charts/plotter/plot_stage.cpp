#include "charts/plotter/plot_stage.h"

#include "charts/plotter/plot_font.h"

#include <cmath>

namespace {

// Room for stacked labels is kept in steps of one label's height.
constexpr double deepestStack = 4.0;

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

QPointF insideCorner(const QRectF& frame, const QSizeF& size, KeyPosition position)
{
    const double left = frame.right() - size.width() - 5.0;
    const double top =
        position == KeyPosition::InsideBottomRight ? frame.bottom() - size.height() - 5.0 : frame.top() + 5.0;
    return QPointF(std::round(left), std::round(top));
}

} // namespace

PlotStage::PlotStage(const PlotContents& contents, const QSize& size)
    : contents_(contents), size_(size), ranges_(shownRanges(contents))
{ }

bool PlotStage::lay()
{
    chooseColors();
    collectLabels();
    const bool above = isAbove(contents_.key.position);
    key_ = KeyBox(contents_, colors_, QSizeF(size_.width() - 12.0, size_.height() * (above ? 0.4 : 1.0)));
    layout_ = layoutOf(contents_, ranges_, size_, above ? key_.size() : QSizeF());
    if (layout_.step == LayoutStep::Nothing)
        return false;
    hasKey_ = layout_.step < LayoutStep::NoKey && !key_.isEmpty();
    keyCorner_ = above ? layAbove() : layInside();
    return true;
}

void PlotStage::chooseColors()
{
    int next = 0;
    for (const LineGraph& graph : contents_.graphs)
        colors_.append(graph.color.isValid() ? graph.color : rowColor(next++));
}

void PlotStage::collectStrokes()
{
    strokes_.clear();
    for (const LineGraph& graph : contents_.graphs) {
        const PlotAxisKey axis = graph.axis;
        strokes_.append(strokesOf(
            contents_.store.values(graph.xColumn), contents_.store.values(graph.yColumn),
            [this, axis](double x, double y) { return layout_.pixelOf(x, y, axis); }, size_,
            pixelsOfPoints(graph.symbolSize)));
    }
}

PixelCover PlotStage::coverOfGraphs(const QRectF& region) const
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
void PlotStage::collectLabels()
{
    for (const GraphLabels& wanted : contents_.labels) {
        const QVector<double>& xs = contents_.store.values(wanted.xColumn);
        const QVector<double>& ys = contents_.store.values(wanted.yColumn);
        ValueLabel label;
        label.color = labelColor(wanted, contents_, colors_);
        label.fontSize = wanted.fontSize;
        label.boxFrame = wanted.boxFrame;
        label.axis = wanted.axis;
        const bool inverted =
            wanted.axis == PlotAxisKey::Primary ? contents_.y.inverted : contents_.secondaryY.inverted;
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
InnerMargins PlotStage::marginsForSymbols() const
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
InnerMargins PlotStage::marginsForLabels() const
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

void PlotStage::layWith(const InnerMargins& margins)
{
    layout_.lay(contents_, ranges_, margins);
    collectStrokes();
    for (ValueLabel& label : labels_)
        label.point = layout_.pixelOf(label.x, label.value, label.axis);
}

QRectF PlotStage::pixelBox(const QRectF& place) const
{
    return QRectF(layout_.pixelOf(place.left(), place.top(), PlotAxisKey::Primary),
                  layout_.pixelOf(place.right(), place.bottom(), PlotAxisKey::Primary))
        .normalized();
}

void PlotStage::coverPictures(PixelCover& cover) const
{
    for (const PlotPicture& picture : contents_.pictures)
        cover.add(pixelBox(picture.place));
    for (const PlotText& text : contents_.texts)
        cover.add(textBox(text));
}

// The layout without a key inside; gives the margins that the labels want.
InnerMargins PlotStage::layFirst()
{
    const InnerMargins margins = marginsForLabels();
    layWith(margins);
    return margins;
}

void PlotStage::place(const QRectF& free)
{
    if (labels_.isEmpty())
        return;
    const bool crowded = labels_.size() > labelCrowd;
    LabelRoom room{layout_.frame, free, coverOfGraphs(crowded ? QRectF() : layout_.frame), PixelCover(size_)};
    labelsLeftOut_ = placeLabels(labels_, room);
}

// Whether no graph, label, picture or text stands in the box.
bool PlotStage::isFree(const QRectF& box) const
{
    PixelCover cover = coverOfGraphs(box);
    for (const ValueLabel& label : labels_) {
        if (label.placed)
            cover.add(label.box);
    }
    coverPictures(cover);
    return cover.taken(box) == 0;
}

QPointF PlotStage::layAbove()
{
    layFirst();
    place(layout_.frame.adjusted(1.0, 1.0, -1.0, -1.0));
    return layout_.keyAbove.topLeft();
}

QPointF PlotStage::layInside()
{
    InnerMargins margins = layFirst();
    QRectF free = layout_.frame.adjusted(1.0, 1.0, -1.0, -1.0);
    place(free);
    if (!hasKey_)
        return QPointF();
    key_ = KeyBox(contents_, colors_, layout_.frame.size() - QSizeF(10.0, 10.0));
    const QRectF box(insideCorner(layout_.frame, key_.size(), contents_.key.position), key_.size());
    if (isFree(box))
        return box.topLeft();

    // The key would cover data: they give way, to the side that costs less.
    const QSizeF room = key_.size() + QSizeF(8.0, 8.0);
    const bool sideways = room.width() / layout_.frame.width() < room.height() / layout_.frame.height();
    margins.shrinkTo(0.7 * layout_.frame.width() - (sideways ? room.width() : 0.0),
                     0.7 * layout_.frame.height() - (sideways ? 0.0 : room.height()));
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

// Right of its point and half above it; drawn back into the frame's sides.
QRectF PlotStage::textBox(const PlotText& text) const
{
    const MarkupText shown(text.text, plotFont(text.fontSize));
    const QPointF at = layout_.pixelOf(text.x, text.y, PlotAxisKey::Primary);
    const double left = qMax(layout_.data.left(), qMin(at.x(), layout_.data.right() - shown.size().width() - 3.0));
    return QRectF(QPointF(left, at.y() - shown.size().height() / 2.0), shown.size());
}
