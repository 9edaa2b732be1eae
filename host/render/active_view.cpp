#include "active_view.h"

#include <drawing/application.h>
#include <drawing/host_access.h>

#include <cmath>

namespace {

constexpr double kRoom = 1.06;

// Looked at and set past the openings: what is on the screen is no change of
// the drawing, and a command may hold the record just now.
NcDbViewportTableRecord* activeRecord(NcDbDatabase& drawing)
{
    return HostAccess::objectAs<NcDbViewportTableRecord>(
        HostAccess::recordId(drawing, HostAccess::data(drawing).viewportTable, QStringLiteral("*Active")));
}

} // namespace

ActiveView activeView(NcDbDatabase& drawing)
{
    ActiveView view;
    if (const NcDbViewportTableRecord* record = activeRecord(drawing)) {
        view.center = {record->centerPoint().x, record->centerPoint().y};
        view.height = record->height();
        view.width = record->width();
    }
    return view;
}

bool setActiveView(NcDbDatabase& drawing, const ActiveView& view)
{
    const bool sound = view.height > 0.0 && view.width > 0.0 && std::isfinite(view.height) && std::isfinite(view.width)
        && std::isfinite(view.center.x()) && std::isfinite(view.center.y());
    NcDbViewportTableRecord* record = sound ? activeRecord(drawing) : nullptr;
    if (!record)
        return false;
    HostAccess::center(*record) = {view.center.x(), view.center.y()};
    HostAccess::height(*record) = view.height;
    HostAccess::width(*record) = view.width;
    emit HostEvents::instance()->viewChanged();
    return true;
}

ActiveView viewOf(const QRectF& window, const ActiveView& present)
{
    ActiveView view;
    const double proportion = present.height > 0.0 ? present.width / present.height : 1.6;
    view.center = window.center();
    view.height = kRoom * std::max({window.height(), window.width() / proportion, 1e-6});
    view.width = view.height * proportion;
    return view;
}
