// The label of an axis, made to fit the length it has.
#pragma once

#include "charts/plotter/markup_text.h"

#include <QRectF>

class AxisTitle {
public:
    AxisTitle() = default;
    /// In one line; or else in two, broken at a blank; or else in smaller
    /// letters; or else cut with an ellipsis.
    AxisTitle(const QString& markup, double points, double longest);

    bool isEmpty() const { return lines_.isEmpty(); }
    /// Along and across the axis.
    QSizeF size() const;
    /// Draws about the box's middle; turned: reading upward.
    void draw(QPainter& painter, const QRectF& box, bool turned) const;

private:
    bool take(const QStringList& lines, double points, double longest);

    QVector<MarkupText> lines_;
};
