#include "view_scene.h"

#include <limits>

namespace {

// As many dots as the screen has, so that a scaled one shows it sharp. It is painted dot by dot and told its
// ratio when it is done: into a picture that has one, nothing can be copied as it is.
QImage emptyPicture(const ViewScene::Place& place, const QColor& ground)
{
    QImage image((QSizeF(place.size) * place.ratio).toSize(), QImage::Format_RGB32);
    image.fill(ground);
    return image;
}

} // namespace

ViewScene::Next::Next(const DisplayList& list, const PaintStyle& style, const Place& where)
    : place(where),
      image(emptyPicture(where, style.paper)),
      painter(&image),
      figures(list, painter, where.toScreen, style, where.visible())
{
    painter.scale(where.ratio, where.ratio);
}

bool ViewScene::goOn(int milliseconds)
{
    if (!next_->figures.paint(milliseconds))
        return false;
    next_->painter.end();
    next_->image.setDevicePixelRatio(next_->place.ratio);
    shown_ = next_->image;
    place_ = next_->place;
    next_.reset();
    return true;
}

void ViewScene::paint(const DisplayList& list, const PaintStyle& style, const Place& place)
{
    next_ = std::make_unique<Next>(list, style, place);
    goOn(std::numeric_limits<int>::max());
}

bool ViewScene::paintOn(const DisplayList& list, const PaintStyle& style, const Place& place, int milliseconds)
{
    if (!next_)
        next_ = std::make_unique<Next>(list, style, place);
    return goOn(milliseconds);
}

void ViewScene::show(QPainter& painter, const QTransform& toScreen, const QColor& ground) const
{
    const QRectF screen(QPointF(0, 0), place_.size);
    if (place_.toScreen == toScreen)
        return painter.drawImage(0, 0, shown_);
    painter.fillRect(screen, ground);
    // Of a picture that is much enlarged the painter gets what is seen of it alone.
    const QTransform moved = place_.toScreen.inverted() * toScreen;
    const QRectF part = moved.inverted().mapRect(screen).intersected(screen);
    if (!part.isEmpty())
        painter.drawImage(moved.mapRect(part), shown_, {part.topLeft() * place_.ratio, part.size() * place_.ratio});
}
