// Places for the values beside their points.
#pragma once

#include "charts/plotter/pixel_cover.h"
#include "charts/plotter/plotter.h"

struct ValueLabel {
    QString text;
    QPointF point;
    QRectF box;
    QColor color;
    double fontSize = 8.0;
    bool boxFrame = false;
    bool leader = false; ///< a line leads from the point to the label
    PlotAxisKey axis = PlotAxisKey::Primary;
    bool below = false; ///< the side away from the x axis
};

/// What stands in the way of labels: taken pixels of curves and symbols, and
/// the room that labels must not leave.
struct LabelRoom {
    QRectF frame;
    PixelCover curves;
    PixelCover labels;
};

/// Gives each label a box, in their order: at its point on its own side, or
/// further out, shifted sideways, or on the other side where others or the
/// curve are in the way. Where there is no free place the least bad one is
/// taken. Labels are only left out where more than `crowd` stand on the plot
/// and the place is wholly covered by others: nothing could be read there.
/// Gives the number of those left out.
int placeLabels(QVector<ValueLabel>& labels, LabelRoom& room);

/// From how many labels on they are set at their points without a search.
constexpr int labelCrowd = 400;

/// Width and height of a value in this size of letters.
QSizeF labelSize(const QString& text, double fontSize);
