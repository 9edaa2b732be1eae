// One drawing of a plot: the layout, then everything in its order.
#pragma once

#include "charts/plotter/plotter.h"

class QPainter;

/// Draws into the rectangle (0, 0, size) of the painter, whose ground is white
/// already, and tells what was drawn.
PlotRecord drawPlot(const PlotContents& contents, QPainter& painter, const QSize& size, double ratio);
