// Where the parts of a plot stand in the picture.
#pragma once

#include "charts/plotter/axis_title.h"
#include "charts/plotter/plot_key.h"
#include "charts/plotter/plot_scale.h"

/// What is left out where the picture is too small for everything, one more a step.
enum class LayoutStep { Everything, NoKey, NoAxisLabels, NoTicks, Nothing };

/// Pixels inside the frame that the ranges do not reach: room for value labels
/// and for a key that would cover the data.
struct InnerMargins {
    double left = 0.0, top = 0.0, right = 0.0, bottom = 0.0;

    /// Makes both of a direction smaller by one factor, if they are wider together.
    void shrinkTo(double width, double height);
};

struct PlotLayout {
    LayoutStep step = LayoutStep::Nothing;
    QSizeF picture;
    QRectF frame, data;
    QRectF keyAbove; ///< where a key above the plot stands
    AxisTitle xTitle, yTitle, secondaryTitle;
    QRectF xTitleBox, yTitleBox, secondaryTitleBox;
    std::unique_ptr<PlotScale> x, y, secondary;
    QwtScaleMap xMap, yMap, secondaryMap;

    const QwtScaleMap& mapOf(PlotAxisKey axis) const { return axis == PlotAxisKey::Secondary ? secondaryMap : yMap; }
    QPointF pixelOf(double xValue, double yValue, PlotAxisKey axis) const
    {
        return QPointF(xMap.transform(xValue), mapOf(axis).transform(yValue));
    }
    /// Puts the ranges into the frame less the margins and lays the scales.
    void lay(const PlotContents& contents, const PlotRanges& ranges, const InnerMargins& margins);
};

/// The frame, the scales and the titles; lay() comes after it. `keySize` is
/// that of a key above the plot.
PlotLayout layoutOf(const PlotContents& contents, const PlotRanges& ranges, const QSizeF& picture,
                    const QSizeF& keySize);

/// Whether the key stands above the plot and not inside it.
bool isAbove(KeyPosition position);
