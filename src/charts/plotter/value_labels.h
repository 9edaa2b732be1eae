// Places for the values beside their points.
#pragma once

#include "charts/plotter/pixel_cover.h"
#include "charts/plotter/plotter.h"

struct ValueLabel {
    double x = 0.0, value = 0.0;
    QPointF point;
    bool placed = false;
    QString text; ///< made when the label is placed
    QRectF box;
    QColor color;
    double fontSize = 8.0;
    bool boxFrame = false;
    bool leader = false; ///< a line leads from the point to the label
    PlotAxisKey axis = PlotAxisKey::Primary;
    bool below = false; ///< the side away from the x axis
};
Q_DECLARE_TYPEINFO(ValueLabel, Q_MOVABLE_TYPE);

/// What stands in the way of labels: taken pixels of curves and symbols, and
/// the room that labels must not leave.
struct LabelRoom {
    QRectF points; ///< points outside of it have no label
    QRectF frame;
    PixelCover curves;
    PixelCover labels;
};

/// Gives each label a box, in their order: at its point on its own side, or
/// further out, shifted sideways, or on the other side where others or the
/// curve are in the way. Where there is no free place the least bad one is
/// taken. Of more than labelCrowd of them each is set at its point, and left
/// out where more than half of its place is taken by others: it could not be
/// read there, nor could they. Gives the number of those left out so.
int placeLabels(QVector<ValueLabel>& labels, LabelRoom& room);

constexpr int labelCrowd = 400;

/// What a label says.
QString labelText(double value);

/// Width and height of a value in this size of letters.
QSizeF labelSize(const QString& text, double fontSize);
