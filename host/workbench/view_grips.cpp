#include "view_grips.h"

#include <drawing/host_access.h>

namespace {

constexpr size_t kMostEntities = 100;
constexpr double kHalf = 4.5; // of a grip's side, in pixels
const QColor kCold(0, 120, 215), kWarm(230, 120, 0), kRim(255, 255, 255);

QPointF placeOf(const Grip& grip, const QTransform& toScreen) { return toScreen.map(QPointF(grip.at.x, grip.at.y)); }

bool isOver(const QPointF& place, const QPointF& cursor)
{
    return std::abs(place.x() - cursor.x()) <= kHalf + 1.0 && std::abs(place.y() - cursor.y()) <= kHalf + 1.0;
}

// Each kind by its shape: squares are pulled, arrows flip, triangles offer a choice.
QPolygonF shapeOf(Grip::Kind kind, const QPointF& p)
{
    switch (kind) {
    case Grip::Flip: return {{p + QPointF(-kHalf, kHalf), p + QPointF(kHalf, 0), p + QPointF(-kHalf, -kHalf)}};
    case Grip::Choice: return {{p + QPointF(-kHalf, -kHalf), p + QPointF(kHalf, -kHalf), p + QPointF(0, kHalf)}};
    case Grip::Angle:
    case Grip::Length:
    case Grip::Pair:
        return {{p + QPointF(0, -kHalf), p + QPointF(kHalf, 0), p + QPointF(0, kHalf), p + QPointF(-kHalf, 0)}};
    default: return QPolygonF(QRectF(p.x() - kHalf, p.y() - kHalf, 2.0 * kHalf, 2.0 * kHalf));
    }
}

} // namespace

void ViewGrips::take(const NcDbObjectIdArray& picked)
{
    grips_.clear();
    if (picked.size() > kMostEntities)
        return;
    for (NcDbObjectId id : picked)
        if (const auto* entity = HostAccess::objectAs<NcDbEntity>(id); entity && !entity->isErased())
            for (const Grip& grip : gripsOf(*entity))
                grips_.push_back({id, grip});
}

void ViewGrips::clear()
{
    grips_.clear();
    held_.reset();
}

std::optional<ViewGrips::Held> ViewGrips::at(const QPointF& place, const QTransform& toScreen) const
{
    for (auto held = grips_.rbegin(); held != grips_.rend(); ++held)
        if (isOver(placeOf(held->grip, toScreen), place))
            return *held;
    return {};
}

void ViewGrips::paint(QPainter& painter, const QTransform& toScreen, const std::optional<QPointF>& cursor) const
{
    painter.setPen(QPen(kRim, 1));
    for (const Held& held : grips_) {
        const QPointF place = placeOf(held.grip, toScreen);
        painter.setBrush(cursor && isOver(place, *cursor) ? kWarm : kCold);
        painter.drawPolygon(shapeOf(held.grip.kind, place));
    }
}
