// The grips of what is picked in a view: where they stand, which is pulled.
#pragma once

#include <drawing/grips.h>

#include <QPainter>
#include <QTransform>

class ViewGrips {
public:
    struct Held {
        NcDbObjectId entity;
        Grip grip;
    };

    // Of these entities; none when they are too many to be told apart.
    void take(const NcDbObjectIdArray& picked);
    void clear();

    // The grip at a place of the widget, or nothing.
    std::optional<Held> at(const QPointF& place, const QTransform& toScreen) const;
    void paint(QPainter& painter, const QTransform& toScreen, const std::optional<QPointF>& cursor) const;

    // The grip that is being pulled.
    void hold(const Held& held) { held_ = held; }
    void drop() { held_.reset(); }
    const std::optional<Held>& held() const { return held_; }

private:
    std::vector<Held> grips_;
    std::optional<Held> held_;
};
