// One side of the plot's frame: line, ticks and what they say. Belongs to the
// drawing; nobody else includes it, as it names the plotting library.
#pragma once

#include "charts/plotter/plot_ticks.h"

#include <qwt_scale_draw.h>
#include <qwt_scale_map.h>

#include <memory>

class PlotScale : public QwtScaleDraw {
public:
    PlotScale(Alignment side, const PlotRange& range, bool inverted);

    void setPlotTicks(const PlotTicks& ticks);
    const PlotTicks& plotTicks() const { return ticks_; }
    /// From the frame to the outer edge of the tick labels.
    double depth() const;
    /// The width of the widest tick label.
    double widestLabel() const;
    /// Lays the scale along [from, to] pixels on the line at `across`.
    void lay(double from, double to, double across);
    /// Takes away labels that touch the one before them; their ticks stay.
    void dropTouchingLabels();
    QRectF labelBox(int tick) const;
    void drawWith(QPainter& painter) const;

    QwtText label(double value) const override;

    static QFont tickFont();

private:
    QwtScaleDiv division() const;

    PlotRange range_;
    bool inverted_;
    PlotTicks ticks_;
};
