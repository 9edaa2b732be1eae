// What stands on a plot. Places are in plot coordinates, sizes of symbols,
// lines and letters in points (1/72 inch, drawn at 96 pixels an inch).
#pragma once

#include "charts/plotter/plot_vocabulary.h"

#include <QColor>
#include <QImage>
#include <QRectF>
#include <QSize>
#include <QString>
#include <functional>
#include <limits>

/// A line through points, or points alone with a line width of 0.
struct LineGraph {
    int xColumn = -1, yColumn = -1;
    PlotSymbol symbol = PlotSymbol::None;
    double symbolSize = 0.0;
    double lineWidth = 1.5;
    QColor color; ///< none: the next colour of the plotter's row
    Qt::PenStyle lineStyle = Qt::SolidLine;
    QString title; ///< with _{} and ^{}; an empty one has no place in the key
    PlotAxisKey axis = PlotAxisKey::Primary;
};

/// The value of each point of two columns, beside the point.
struct GraphLabels {
    int xColumn = -1, yColumn = -1;
    LabelType type = LabelType::YValue;
    LabelPosition position = LabelPosition::AwayFromXAxis;
    double fontSize = 8.0;
    bool boxFrame = false;
    QColor color; ///< none: that of the graph on the same columns
    PlotAxisKey axis = PlotAxisKey::Primary;
};

/// A filled rectangle in the plot's back.
struct PlotRectangle {
    QRectF place; ///< corners in plot coordinates
    QColor fill;
    QColor line = Qt::transparent;
};

/// What a picture needs to know to be made.
struct PictureRoom {
    double width = 0.0, height = 0.0; ///< of the place, in pixels
    double xRangeWidth = 0.0;         ///< of the whole x range, in pixels
    double ratio = 1.0;               ///< device pixels in one pixel
};

/// A picture in plot coordinates. It is made when the layout is known, so that
/// its pixels are those of the plot; its first row lies at the lower edge of
/// the place, as y grows upward.
struct PlotPicture {
    QRectF place; ///< x, y of the lower left corner, width and height
    std::function<QImage(const PictureRoom&)> make;
};

/// A text in plot coordinates, to the right of its point and half above it.
struct PlotText {
    double x = 0.0, y = 0.0;
    QString text;
    double fontSize = 9.0;
    QColor color = Qt::black;
};

struct PlotAxis {
    double minimum = std::numeric_limits<double>::quiet_NaN(); ///< as set; no number: fitted to the data
    double maximum = std::numeric_limits<double>::quiet_NaN();
    QString label;
    double labelFontSize = 8.0;
    TickLabels tickLabels = TickLabels::Number;
    QString tickFormat; ///< of dates
    bool inverted = false;
    bool grid = true;
    bool zeroAxis = true;                      ///< a line at zero
    AxisDrawing drawMode0 = AxisDrawing::None; ///< at zero
    AxisDrawing drawMode1 = AxisDrawing::Full; ///< at the left, below
    AxisDrawing drawMode2 = AxisDrawing::Line; ///< at the right, above
    bool automaticSpacing = true;              ///< a gap between this axis and the plot's frame

    void setRange(double from, double to)
    {
        minimum = from;
        maximum = to;
    }
};

struct PlotKey {
    bool shown = false;
    KeyPosition position = KeyPosition::InsideTopRight;
    KeyLayout layout = KeyLayout::OneColumn;
};
