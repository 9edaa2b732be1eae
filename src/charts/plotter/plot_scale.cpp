#include "charts/plotter/plot_scale.h"

#include "charts/plotter/plot_font.h"

#include <qwt_text.h>

#include <QFontMetricsF>
#include <QPainter>
#include <QPalette>

namespace {

QList<double> listOf(const QVector<double>& numbers) { return numbers.toList(); }

} // namespace

QFont PlotScale::tickFont() { return plotFont(8.0); }

PlotScale::PlotScale(Alignment side, const PlotRange& range, bool inverted) : range_(range), inverted_(inverted)
{
    setAlignment(side);
    enableComponent(Backbone, false); // the frame stands there
    setTickLength(QwtScaleDiv::MinorTick, 3.0);
    setTickLength(QwtScaleDiv::MediumTick, 3.0);
    setTickLength(QwtScaleDiv::MajorTick, 5.0);
    setSpacing(3.0);
}

QwtScaleDiv PlotScale::division() const
{
    const double from = inverted_ ? range_.to : range_.from, to = inverted_ ? range_.from : range_.to;
    return QwtScaleDiv(from, to, listOf(ticks_.minor), QList<double>(), listOf(ticks_.major));
}

void PlotScale::setPlotTicks(const PlotTicks& ticks)
{
    ticks_ = ticks;
    setScaleDiv(division());
}

double PlotScale::depth() const { return extent(tickFont()); }

double PlotScale::widestLabel() const
{
    const QFontMetricsF metrics(tickFont());
    double widest = 0.0;
    for (const QString& text : ticks_.labels)
        widest = qMax(widest, metrics.horizontalAdvance(text));
    return widest;
}

void PlotScale::lay(double from, double to, double across)
{
    if (orientation() == Qt::Horizontal)
        move(from, across);
    else
        move(across, from);
    setLength(to - from);
}

void PlotScale::dropTouchingLabels()
{
    QRectF before;
    for (int i = 0; i < ticks_.major.size(); ++i) {
        const QRectF box = labelBox(i);
        if (!before.isNull() && box.adjusted(-3.0, 0.0, 3.0, 0.0).intersects(before))
            ticks_.labels[i].clear();
        else
            before = box;
    }
    invalidateCache();
}

QRectF PlotScale::labelBox(int tick) const
{
    if (ticks_.labels[tick].isEmpty())
        return QRectF();
    const QRectF box = labelRect(tickFont(), ticks_.major[tick]);
    return box.translated(labelPosition(ticks_.major[tick]));
}

void PlotScale::drawWith(QPainter& painter) const
{
    painter.save();
    painter.setFont(tickFont());
    draw(&painter, QPalette(Qt::black, Qt::white));
    painter.restore();
}

QwtText PlotScale::label(double value) const
{
    const int at = ticks_.major.indexOf(value);
    return QwtText(at < 0 ? QString() : ticks_.labels[at], QwtText::PlainText);
}
