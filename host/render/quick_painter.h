// Small figures and thin lines on a screen, in the way in which they cost least:
// what is smaller than a dot becomes one, a text too small to be read a bar, lines
// of one colour go to the painter together.
#pragma once

#include "display_list.h"

#include <QPainter>

class QuickPainter {
public:
    QuickPainter(QPainter& painter, const QTransform& toDevice, const QColor& paper);

    // False when the figure wants the full painter: what was gathered is painted
    // then, so that nothing changes its place in the order.
    bool paint(const Figure& figure, const QColor& color);
    void flush();
    // Without the corners that cannot be told from their neighbours.
    QPolygonF toDevice(const QPolygonF& line) const;

private:
    void takeColor(const QColor& color);
    void addDot(const QPointF& at, const QColor& color);
    bool addLine(const Figure& figure, const QColor& color);
    bool addText(const Figure& figure, const QColor& color, double longest);
    void forgetDots(const QRectF& below);
    double longestSide(const Figure& figure) const;

    QPainter& painter_;
    const QTransform toDevice_;
    const double scale_; // dots to a unit of the world
    const QColor paper_;
    QColor color_;
    QVector<QPointF> dots_;
    QVector<QLineF> lines_;
    // The colour of the dot that was last set at each place of the screen: 0 for none.
    QSize screen_;
    std::vector<QRgb> set_;
};
