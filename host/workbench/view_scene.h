// The picture of a drawing in its window. A large drawing takes longer to paint than
// a hand moves it: meanwhile its last picture is moved, and the next one is painted
// piece by piece between the frames.
#pragma once

#include <render/figure_painter.h>

#include <QImage>

class ViewScene {
public:
    // Where the drawing stands on the screen.
    struct Place {
        QTransform toScreen;
        QSize size;
        double ratio = 1.0; // dots of the screen to a pixel of the window

        bool operator==(const Place& o) const { return toScreen == o.toScreen && size == o.size && ratio == o.ratio; }
        QRectF visible() const { return toScreen.inverted().mapRect(QRectF(QPointF(0, 0), size)); }
    };

    // Whether the picture is that of the place.
    bool isOf(const Place& place) const { return !shown_.isNull() && place_ == place; }
    bool isOfSize(const Place& place) const
    {
        return !shown_.isNull() && place_.size == place.size && place_.ratio == place.ratio;
    }

    // The whole at once.
    void paint(const DisplayList& list, const PaintStyle& style, const Place& place);
    // Goes on with the next picture for about so long; one that was begun for another
    // place is finished first, so that a hand that never rests sees new pictures too.
    // True when there is a new picture.
    bool paintOn(const DisplayList& list, const PaintStyle& style, const Place& place, int milliseconds);
    // To be called before the list changes.
    void dropNext() { next_.reset(); }

    // The picture, moved to where the drawing stands now.
    void show(QPainter& painter, const QTransform& toScreen, const QColor& ground) const;

private:
    struct Next {
        Next(const DisplayList& list, const PaintStyle& style, const Place& where);

        Place place;
        QImage image;
        QPainter painter;
        FigurePainting figures;
    };
    bool goOn(int milliseconds);

    QImage shown_;
    Place place_;
    std::unique_ptr<Next> next_;
};
