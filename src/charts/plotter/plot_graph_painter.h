// Lines and symbols of one graph.
#pragma once

#include "charts/plotter/plot_strokes.h"

class QPainter;

void paintGraph(QPainter& painter, const LineGraph& graph, const QColor& color, const GraphStrokes& strokes,
                const QRectF& frame);

/// The graph's look in the key.
void paintSample(QPainter& painter, const LineGraph& graph, const QColor& color, const QRectF& box);
