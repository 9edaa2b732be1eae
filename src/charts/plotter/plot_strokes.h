// Graphs in pixels: what of their points has to be drawn.
#pragma once

#include "charts/plotter/plotter.h"

#include <QPolygonF>
#include <functional>

using PixelOf = std::function<QPointF(double x, double y)>;

struct GraphStrokes {
    QVector<QPolygonF> lines; ///< split where a number is missing, thinned where pixels hold many
    QPolygonF points;         ///< where symbols are to be seen
    int finitePoints = 0;
};

/// Points of two columns in pixels. Thinning leaves the picture as it is: of
/// consecutive points in one column (or row) of pixels the first, the extreme
/// ones and the last stay; of very many points those whose symbols, `symbol`
/// pixels wide, would hardly be seen beside the others go.
GraphStrokes strokesOf(const QVector<double>& xs, const QVector<double>& ys, const PixelOf& pixelOf,
                       const QSize& picture, double symbol);

/// The colours of graphs without one of their own, in their order.
QColor rowColor(int index);
