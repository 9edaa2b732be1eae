#include "active_view.h"

#include <drawing/application.h>

#include <cmath>

namespace {

constexpr double kRoom = 1.06;

NcDbViewportTableRecord* openActive(NcDbDatabase& drawing, NcOpenMode mode)
{
    NcDbViewportTable* table = nullptr;
    NcDbViewportTableRecord* record = nullptr;
    if (!isOk(drawing.getSymbolTable(table, kForRead)))
        return nullptr;
    table->getAt(QStringLiteral("*Active"), record, mode);
    table->close();
    return record;
}

}  // namespace

ActiveView activeView(NcDbDatabase& drawing)
{
    ActiveView view;
    if (NcDbViewportTableRecord* record = openActive(drawing, kForRead)) {
        view.center = {record->centerPoint().x, record->centerPoint().y};
        view.height = record->height();
        view.width = record->width();
        record->close();
    }
    return view;
}

bool setActiveView(NcDbDatabase& drawing, const ActiveView& view)
{
    const bool sound = view.height > 0.0 && view.width > 0.0 && std::isfinite(view.height) && std::isfinite(view.width);
    NcDbViewportTableRecord* record = sound ? openActive(drawing, kForWrite) : nullptr;
    if (!record)
        return false;
    record->setCenterPoint({view.center.x(), view.center.y()});
    record->setHeight(view.height);
    record->setWidth(view.width);
    record->close();
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
