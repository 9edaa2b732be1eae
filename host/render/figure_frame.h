// Where the figures of one entity go, and how they look.
#pragma once

#include "display_list.h"

// What the walker hands to the makers of figures.
struct FigureFrame {
    DisplayList* list = nullptr;
    QTransform toWorld; // from the entity's coordinates to the list's
    Figure pattern;     // source, layer, colour and clip of what is made

    void line(QPolygonF points, bool thin = false) const;
    void fill(std::vector<QPolygonF> loops) const;
    // A ground that hides what lies below.
    void ground(const QPolygonF& loop) const;
    void fill(const QPolygonF& loop, const QColor& color) const;
    void dot(const QPointF& at) const;
    // `text.placing` goes to the entity's coordinates.
    void text(FigureText text) const;

private:
    void add(Figure figure) const;
};
