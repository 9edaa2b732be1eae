#include "charts/plotter/plot_strokes.h"

#include "charts/plotter/pixel_cover.h"

#include <cmath>

namespace {

constexpr int crowd = 4000;
constexpr double farAway = 1e9; // pixels; the painter's arithmetic ends somewhere behind it

double coordinate(const QPointF& point, bool byColumn) { return byColumn ? point.x() : point.y(); }

// Of points [first, last] the first, the two extreme ones across and the last.
void keepOutline(const QPolygonF& line, int first, int last, bool byColumn, QPolygonF& kept)
{
    int lowest = first, highest = first;
    for (int i = first + 1; i <= last; ++i) {
        if (coordinate(line[i], !byColumn) < coordinate(line[lowest], !byColumn))
            lowest = i;
        if (coordinate(line[i], !byColumn) > coordinate(line[highest], !byColumn))
            highest = i;
    }
    kept.append(line[first]);
    for (int i : {qMin(lowest, highest), qMax(lowest, highest)}) {
        if (i != first && i != last)
            kept.append(line[i]);
    }
    if (last != first)
        kept.append(line[last]);
}

QPolygonF thinned(const QPolygonF& line, bool byColumn)
{
    QPolygonF kept;
    int first = 0;
    for (int i = 1; i <= line.size(); ++i) {
        if (i < line.size()
            && std::floor(coordinate(line[i], byColumn)) == std::floor(coordinate(line[first], byColumn)))
            continue;
        keepOutline(line, first, i - 1, byColumn, kept);
        first = i;
    }
    return kept;
}

void close(QPolygonF& run, QVector<QPolygonF>& lines)
{
    if (run.size() > crowd)
        run = thinned(run, true);
    if (run.size() > crowd)
        run = thinned(run, false);
    if (run.size() > 1)
        lines.append(run);
    run.clear();
}

} // namespace

GraphStrokes strokesOf(const QVector<double>& xs, const QVector<double>& ys, const PixelOf& pixelOf,
                       const QSize& picture, double symbol)
{
    GraphStrokes strokes;
    const int count = qMin(xs.size(), ys.size());
    const bool many = count > crowd;
    PixelCover seen(many ? picture : QSize(1, 1));
    const double half = qMax(1.0, std::floor(symbol)) / 2.0;
    QPolygonF run;
    for (int i = 0; i < count; ++i) {
        if (!std::isfinite(xs[i]) || !std::isfinite(ys[i])) {
            close(run, strokes.lines);
            continue;
        }
        ++strokes.finitePoints;
        const QPointF exact = pixelOf(xs[i], ys[i]);
        const QPointF at(qBound(-farAway, exact.x(), farAway), qBound(-farAway, exact.y(), farAway));
        run.append(at);
        const QRectF stamp(at.x() - half, at.y() - half, 2.0 * half, 2.0 * half);
        if (many && 4.0 * seen.taken(stamp) >= 3.0 * 4.0 * half * half)
            continue;
        if (many)
            seen.add(stamp);
        strokes.points.append(at);
    }
    close(run, strokes.lines);
    return strokes;
}

QColor rowColor(int index)
{
    static const QColor row[] = {QColor(0, 84, 166),   QColor(192, 57, 20), QColor(0, 128, 72),   QColor(122, 45, 150),
                                 QColor(160, 110, 0),  QColor(0, 140, 160), QColor(200, 30, 110), QColor(90, 90, 90),
                                 QColor(110, 140, 20), QColor(120, 70, 40), QColor(70, 70, 190),  QColor(220, 120, 20)};
    constexpr int count = int(sizeof(row) / sizeof(row[0]));
    return row[((index % count) + count) % count];
}
