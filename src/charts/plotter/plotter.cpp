#include "charts/plotter/plotter.h"

#include "charts/plotter/plot_drawing.h"

#include <QBuffer>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <cmath>

namespace {

QSize usable(const QSize& size) { return size.expandedTo(QSize(1, 1)).boundedTo(QSize(8192, 8192)); }

double usableRatio(double ratio) { return std::isfinite(ratio) ? qBound(0.25, ratio, 8.0) : 1.0; }

void widen(QRectF& box, const QPointF& point, bool first)
{
    if (first) {
        box = QRectF(point, point);
        return;
    }
    box.setLeft(qMin(box.left(), point.x()));
    box.setRight(qMax(box.right(), point.x()));
    box.setTop(qMin(box.top(), point.y()));
    box.setBottom(qMax(box.bottom(), point.y()));
}

// Ends of a range stretched about its middle.
void fit(PlotAxis& axis, double from, double to, double factor)
{
    const double middle = from + (to - from) / 2.0, half = (to - from) / 2.0 * factor;
    axis.setRange(middle - half, middle + half);
}

} // namespace

bool PlotContents::isEmpty() const
{
    return graphs.isEmpty() && rectangles.isEmpty() && pictures.isEmpty() && texts.isEmpty();
}

QRectF PlotContents::extents(PlotAxisKey axis, bool* any) const
{
    *any = false;
    QRectF box;
    for (const LineGraph& graph : graphs) {
        if (graph.axis != axis)
            continue;
        const QVector<double>& xs = store.values(graph.xColumn);
        const QVector<double>& ys = store.values(graph.yColumn);
        for (int i = 0; i < qMin(xs.size(), ys.size()); ++i) {
            if (!std::isfinite(xs[i]) || !std::isfinite(ys[i]))
                continue;
            widen(box, QPointF(xs[i], ys[i]), !*any);
            *any = true;
        }
    }
    return box;
}

Plotter::Plotter() = default;

void Plotter::clearGraphs()
{
    contents_.graphs.clear();
    contents_.labels.clear();
    contents_.rectangles.clear();
    contents_.pictures.clear();
    contents_.texts.clear();
    contents_.store.clear();
}

PlotAxis& Plotter::addSecondaryYAxis()
{
    contents_.hasSecondaryY = true;
    contents_.secondaryY = PlotAxis();
    return contents_.secondaryY;
}

void Plotter::zoomToFit(double xFactor, double yFactor)
{
    bool any = false;
    const QRectF box = contents_.extents(PlotAxisKey::Primary, &any);
    if (!any)
        return;
    fit(contents_.x, box.left(), box.right(), xFactor);
    fit(contents_.y, box.top(), box.bottom(), yFactor);
}

QPixmap Plotter::grabPixelImage(const QSize& size, double ratio)
{
    const QSize shown = usable(size);
    const double scale = usableRatio(ratio);
    QImage image((QSizeF(shown) * scale).toSize().expandedTo(QSize(1, 1)), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    QPainter painter(&image);
    record_ = drawPlot(contents_, painter, shown, scale);
    painter.end();
    return QPixmap::fromImage(image);
}

bool Plotter::writeSvg(QIODevice* device, const QSize& size)
{
    if (!device || !device->isWritable())
        return false;
    const QSize shown = usable(size);
    QSvgGenerator svg;
    svg.setOutputDevice(device);
    svg.setSize(shown);
    svg.setViewBox(QRect(QPoint(), shown));
    svg.setResolution(96);
    QPainter painter;
    if (!painter.begin(&svg))
        return false;
    painter.fillRect(QRect(QPoint(), shown), Qt::white);
    record_ = drawPlot(contents_, painter, shown, 1.0);
    return painter.end();
}

bool Plotter::writePdf(QIODevice* device, const QSize& size)
{
    if (!device || !device->isWritable())
        return false;
    const QSize shown = usable(size);
    QPdfWriter pdf(device);
    pdf.setResolution(96);
    pdf.setPageSize(QPageSize(QSizeF(shown) * 72.0 / 96.0, QPageSize::Point, QString(), QPageSize::ExactMatch));
    pdf.setPageMargins(QMarginsF());
    QPainter painter;
    if (!painter.begin(&pdf))
        return false;
    record_ = drawPlot(contents_, painter, shown, 1.0);
    return painter.end();
}
