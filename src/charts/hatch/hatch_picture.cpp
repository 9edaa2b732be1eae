#include "charts/hatch/hatch_picture.h"

#include <QLineF>
#include <QPainter>
#include <cmath>

namespace {

constexpr double pixelsOfMillimetre = 96.0 / 25.4;
constexpr int mostStrokes = 300000;

using Strokes = QVector<QLineF>;

// Where a line from `from` in the direction `step` runs inside of the box, in
// units of the step. False when it does not.
bool inside(const QRectF& box, const QPointF& from, const QPointF& step, double& begin, double& end)
{
    begin = -1e18;
    end = 1e18;
    const auto narrow = [&](double start, double delta, double low, double high) {
        if (std::abs(delta) < 1e-12)
            return start >= low && start <= high;
        const double a = (low - start) / delta, b = (high - start) / delta;
        begin = qMax(begin, qMin(a, b));
        end = qMin(end, qMax(a, b));
        return end > begin;
    };
    return narrow(from.x(), step.x(), box.left(), box.right()) && narrow(from.y(), step.y(), box.top(), box.bottom());
}

// The dashes of one line between `begin` and `end`, the first of them starting
// at 0. False when there are too many.
bool addDashes(const QVector<double>& dashes, const QPointF& from, const QPointF& step, double begin, double end,
               Strokes& strokes)
{
    if (dashes.isEmpty()) {
        strokes.append(QLineF(from + step * begin, from + step * end));
        return strokes.size() < mostStrokes;
    }
    double period = 0.0;
    for (double dash : dashes)
        period += std::abs(dash);
    double at = std::floor(begin / period) * period;
    while (at < end) {
        const double before = at;
        for (double dash : dashes) {
            const double a = qMax(begin, at), b = qMin(end, at + std::abs(dash));
            if (dash >= 0.0 && b >= a)
                strokes.append(QLineF(from + step * a, from + step * b));
            at += std::abs(dash);
        }
        if (strokes.size() >= mostStrokes || at == before)
            return false;
    }
    return true;
}

// All strokes of one family over the box. False when they are too fine.
bool addFamily(const HatchLines& lines, double unit, const QRectF& box, Strokes& strokes)
{
    const double angle = lines.angle * M_PI / 180.0;
    const QPointF along(std::cos(angle), std::sin(angle)), across(-along.y(), along.x());
    const double step = lines.across * unit;
    if (std::abs(step) < 0.5)
        return false;
    const QPointF origin = lines.origin * unit;
    double low = 1e18, high = -1e18;
    for (const QPointF& corner : {box.topLeft(), box.topRight(), box.bottomLeft(), box.bottomRight()}) {
        const double number = QPointF::dotProduct(corner - origin, across) / step;
        low = qMin(low, number);
        high = qMax(high, number);
    }
    if (!(high - low < mostStrokes))
        return false;
    QVector<double> dashes = lines.dashes;
    for (double& dash : dashes)
        dash *= unit;
    for (double number = std::floor(low); number <= std::ceil(high); ++number) {
        const QPointF from = origin + along * (lines.along * unit * number) + across * (step * number);
        double begin = 0.0, end = 0.0;
        if (inside(box, from, along, begin, end) && !addDashes(dashes, from, along, begin, end, strokes))
            return false;
    }
    return true;
}

bool strokesOf(const HatchPattern& pattern, double unit, const QRectF& box, Strokes& strokes)
{
    for (const HatchLines& lines : pattern.lines) {
        if (!addFamily(lines, unit, box, strokes))
            return false;
    }
    return true;
}

// On whole pixels: a dot over the corners of four would hardly be seen.
QRect dotAt(const QPointF& middle, double ratio)
{
    const int side = qMax(1, int(std::lround(ratio)));
    return QRect(int(std::floor(middle.x() - (side - 1) / 2.0)), int(std::floor(middle.y() - (side - 1) / 2.0)), side,
                 side);
}

void paint(QImage& image, const Strokes& strokes, const HatchLook& look)
{
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.translate(0.0, image.height());
    painter.scale(1.0, -1.0);
    QPen pen(look.lines, look.ratio);
    pen.setCapStyle(Qt::SquareCap); // a dash of no length is a dot
    painter.setPen(pen);
    painter.setBrush(look.lines);
    for (const QLineF& stroke : strokes) {
        if (stroke.length() < 1e-6)
            painter.fillRect(dotAt(stroke.p1(), look.ratio), look.lines);
        else
            painter.drawLine(stroke);
    }
}

} // namespace

QImage hatchPicture(const HatchPattern& pattern, const QSize& size, const HatchLook& look)
{
    const double ratio = std::isfinite(look.ratio) && look.ratio > 0.0 ? look.ratio : 1.0;
    const QSize pixels = (QSizeF(size) * ratio).toSize().boundedTo(QSize(8192, 8192));
    if (size.isEmpty() || pixels.isEmpty())
        return QImage();
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(look.background);
    const double unit = pixelsOfMillimetre * look.scale * ratio;
    Strokes strokes;
    if (std::isfinite(unit) && unit > 0.0 && strokesOf(pattern, unit, QRectF(QPointF(), QSizeF(pixels)), strokes))
        paint(image, strokes, look);
    return image;
}
