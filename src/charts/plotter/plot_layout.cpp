#include "charts/plotter/plot_layout.h"

#include <QFontMetricsF>
#include <cmath>

namespace {

constexpr double edge = 6.0;
constexpr double titleGap = 3.0;
constexpr double axisSpacing = 6.0; // between the frame and a further axis

bool isFull(AxisDrawing drawing) { return drawing == AxisDrawing::Full; }

double titleDepth(const AxisTitle& title) { return title.isEmpty() ? 0.0 : title.size().height() + titleGap; }

double tickHeight() { return QFontMetricsF(PlotScale::tickFont()).height(); }

std::unique_ptr<PlotScale> verticalScale(QwtScaleDraw::Alignment side, const PlotRange& range, bool inverted,
                                         double length)
{
    auto scale = std::make_unique<PlotScale>(side, range, inverted);
    scale->setPlotTicks(numberTicks(range, qBound(1, int(length / (2.2 * tickHeight())), 10)));
    return scale;
}

PlotTicks ticksOf(const PlotAxis& axis, const PlotRange& range, int most)
{
    return axis.tickLabels == TickLabels::DateTime ? dateTicks(range, axis.tickFormat, most) : numberTicks(range, most);
}

// As many ticks as their labels leave room for.
std::unique_ptr<PlotScale> horizontalScale(const PlotAxis& axis, const PlotRange& range, double length)
{
    auto scale = std::make_unique<PlotScale>(QwtScaleDraw::BottomScale, range, axis.inverted);
    for (int most = 12; most >= 1; --most) {
        scale->setPlotTicks(ticksOf(axis, range, most));
        const int count = scale->plotTicks().labels.size();
        if (count < 2 || (scale->widestLabel() + 14.0) * count <= length)
            break;
    }
    return scale;
}

QwtScaleMap mapOn(double from, double to, const PlotRange& range, bool inverted)
{
    QwtScaleMap map;
    map.setPaintInterval(inverted ? to : from, inverted ? from : to);
    map.setScaleInterval(range.from, range.to);
    return map;
}

// Collects the margins about the frame side by side.
class FrameMaker {
public:
    FrameMaker(const PlotContents& contents, const PlotRanges& ranges, const QSizeF& picture, const QSizeF& keySize)
        : contents_(contents), ranges_(ranges), keySize_(keySize)
    {
        layout_.picture = picture;
    }

    // False when the frame would be too small.
    bool make(LayoutStep step)
    {
        layout_.step = step;
        makeTitles();
        const double top = topMargin(), bottom = bottomMargin();
        const double height = layout_.picture.height() - top - bottom;
        if (height < 12.0)
            return false;
        const double left = leftMargin(height), right = rightMargin(height);
        const double width = layout_.picture.width() - left - right;
        if (width < 16.0)
            return false;
        layout_.frame = QRectF(std::round(left), std::round(top), std::floor(width), std::floor(height));
        if (hasTicks())
            layout_.x = horizontalScale(contents_.x, ranges_.x, width);
        placeKey();
        placeTitles();
        return true;
    }

    PlotLayout take() { return std::move(layout_); }

private:
    bool hasTicks() const { return layout_.step < LayoutStep::NoTicks; }

    void makeTitles()
    {
        layout_.xTitle = layout_.yTitle = layout_.secondaryTitle = AxisTitle();
        if (layout_.step >= LayoutStep::NoAxisLabels)
            return;
        const double width = layout_.picture.width() - 2.0 * edge;
        const double height = layout_.picture.height() - 2.0 * edge - keyDepth();
        layout_.xTitle = AxisTitle(contents_.x.label, contents_.x.labelFontSize, width);
        layout_.yTitle = AxisTitle(contents_.y.label, contents_.y.labelFontSize, height);
        if (contents_.hasSecondaryY)
            layout_.secondaryTitle = AxisTitle(contents_.secondaryY.label, contents_.secondaryY.labelFontSize, height);
    }

    double topMargin() const { return edge + qMax(hasTicks() ? tickHeight() / 2.0 : 0.0, keyDepth()); }

    // What a key above the plot takes of the height.
    double keyDepth() const
    {
        return layout_.step < LayoutStep::NoKey && !keySize_.isEmpty() ? keySize_.height() + 4.0 : 0.0;
    }

    double bottomMargin() const { return edge + titleDepth(layout_.xTitle) + (hasTicks() ? tickHeight() + 8.0 : 0.0); }

    double leftMargin(double height)
    {
        if (!hasTicks())
            return edge;
        layout_.y = verticalScale(QwtScaleDraw::LeftScale, ranges_.y, contents_.y.inverted, height);
        return edge + titleDepth(layout_.yTitle) + layout_.y->depth();
    }

    double rightMargin(double height)
    {
        if (!hasTicks())
            return edge;
        const double half = QFontMetricsF(PlotScale::tickFont()).horizontalAdvance(QStringLiteral("00.00")) / 2.0;
        if (!contents_.hasSecondaryY || !isFull(contents_.secondaryY.drawMode2))
            return edge + half;
        layout_.secondary =
            verticalScale(QwtScaleDraw::RightScale, ranges_.secondaryY, contents_.secondaryY.inverted, height);
        return edge + titleDepth(layout_.secondaryTitle) + layout_.secondary->depth()
            + (contents_.secondaryY.automaticSpacing ? axisSpacing : 0.0);
    }

    void placeKey()
    {
        layout_.keyAbove = QRectF();
        if (layout_.step >= LayoutStep::NoKey || keySize_.isEmpty())
            return;
        const double left = contents_.key.position == KeyPosition::AboveMiddle
            ? (layout_.picture.width() - keySize_.width()) / 2.0
            : layout_.frame.right() - keySize_.width();
        layout_.keyAbove = QRectF(QPointF(std::round(qMax(edge, left)), edge), keySize_);
    }

    // About the frame's middle, but never out of the picture or over the key.
    static double centred(double middle, double length, double whole, double first = edge)
    {
        return qMax(first, qMin(middle - length / 2.0, whole - edge - length));
    }

    void placeTitles()
    {
        const QRectF& frame = layout_.frame;
        const QSizeF picture = layout_.picture;
        const QSizeF x = layout_.xTitle.size(), y = layout_.yTitle.size(), second = layout_.secondaryTitle.size();
        layout_.xTitleBox = QRectF(
            QPointF(centred(frame.center().x(), x.width(), picture.width()), picture.height() - edge - x.height()), x);
        const double top = edge + keyDepth();
        layout_.yTitleBox =
            QRectF(edge, centred(frame.center().y(), y.width(), picture.height(), top), y.height(), y.width());
        layout_.secondaryTitleBox =
            QRectF(picture.width() - edge - second.height(),
                   centred(frame.center().y(), second.width(), picture.height(), top), second.height(), second.width());
    }

    const PlotContents& contents_;
    const PlotRanges& ranges_;
    QSizeF keySize_;
    PlotLayout layout_;
};

} // namespace

void InnerMargins::shrinkTo(double width, double height)
{
    const double across = qMin(1.0, qMax(0.0, width) / qMax(1e-6, left + right));
    const double down = qMin(1.0, qMax(0.0, height) / qMax(1e-6, top + bottom));
    left *= across;
    right *= across;
    top *= down;
    bottom *= down;
}

bool isAbove(KeyPosition position)
{
    return position == KeyPosition::AboveRight || position == KeyPosition::AboveMiddle;
}

PlotLayout layoutOf(const PlotContents& contents, const PlotRanges& ranges, const QSizeF& picture,
                    const QSizeF& keySize)
{
    FrameMaker maker(contents, ranges, picture, keySize);
    for (LayoutStep step : {LayoutStep::Everything, LayoutStep::NoKey, LayoutStep::NoAxisLabels, LayoutStep::NoTicks}) {
        const bool comfortable = picture.width() >= 60.0 && picture.height() >= 40.0;
        if ((step >= LayoutStep::NoTicks || comfortable) && maker.make(step))
            return maker.take();
    }
    return PlotLayout();
}

void PlotLayout::lay(const PlotContents& contents, const PlotRanges& ranges, const InnerMargins& margins)
{
    InnerMargins fitting = margins;
    fitting.shrinkTo(0.75 * frame.width(), 0.75 * frame.height());
    data = frame.adjusted(fitting.left, fitting.top, -fitting.right, -fitting.bottom);
    xMap = mapOn(data.left(), data.right(), ranges.x, contents.x.inverted);
    yMap = mapOn(data.bottom(), data.top(), ranges.y, contents.y.inverted);
    secondaryMap = mapOn(data.bottom(), data.top(), ranges.secondaryY, contents.secondaryY.inverted);
    if (x) {
        x->lay(data.left(), data.right(), frame.bottom());
        x->dropTouchingLabels();
    }
    if (y)
        y->lay(data.top(), data.bottom(), frame.left());
    if (secondary) {
        // Beside the frame the axis needs a line of its own.
        secondary->enableComponent(QwtAbstractScaleDraw::Backbone, contents.secondaryY.automaticSpacing);
        secondary->lay(data.top(), data.bottom(),
                       frame.right() + (contents.secondaryY.automaticSpacing ? axisSpacing : 0.0));
    }
}
