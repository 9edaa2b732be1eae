#include "charts/plotter/axis_title.h"

#include "charts/plotter/plot_font.h"

#include <QFontMetricsF>
#include <QPainter>

namespace {

// The text in two lines of about the same length; one when it has no blank.
QStringList halves(const QString& text)
{
    int best = -1;
    for (int i = text.indexOf(QLatin1Char(' ')); i >= 0; i = text.indexOf(QLatin1Char(' '), i + 1)) {
        if (best < 0 || qAbs(2 * i - text.size()) < qAbs(2 * best - text.size()))
            best = i;
    }
    return best < 0 ? QStringList{text} : QStringList{text.left(best), text.mid(best + 1)};
}

} // namespace

AxisTitle::AxisTitle(const QString& markup, double points, double longest)
{
    if (markup.trimmed().isEmpty() || longest < 20.0)
        return;
    if (take({markup}, points, longest))
        return;
    for (double size = points; size >= 5.0; size -= 1.0) {
        if (take(halves(markup), size, longest))
            return;
    }
    const QFont font = plotFont(5.0);
    const QString plain = MarkupText(markup, font).plainText();
    lines_ = {MarkupText(QFontMetricsF(font).elidedText(plain, Qt::ElideRight, longest), font)};
}

bool AxisTitle::take(const QStringList& lines, double points, double longest)
{
    QVector<MarkupText> made;
    for (const QString& line : lines) {
        made.append(MarkupText(line, plotFont(points)));
        if (made.last().size().width() > longest)
            return false;
    }
    lines_ = made;
    return true;
}

QSizeF AxisTitle::size() const
{
    QSizeF all(0.0, 0.0);
    for (const MarkupText& line : lines_)
        all = QSizeF(qMax(all.width(), line.size().width()), all.height() + line.size().height());
    return all;
}

void AxisTitle::draw(QPainter& painter, const QRectF& box, bool turned) const
{
    painter.save();
    painter.translate(box.center());
    if (turned)
        painter.rotate(-90.0);
    double top = -size().height() / 2.0;
    for (const MarkupText& line : lines_) {
        line.draw(painter, QPointF(-line.size().width() / 2.0, top));
        top += line.size().height();
    }
    painter.restore();
}
