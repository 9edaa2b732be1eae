// What part of model space is on the screen: the record "*Active" of the drawing.
#pragma once

#include <nrx/database.h>

#include <QPointF>
#include <QRectF>

struct ActiveView {
    QPointF center;
    double height = 100.0;
    double width = 160.0;
};

NRX_API ActiveView activeView(NcDbDatabase& drawing);
// Also tells the windows that the view changed; the drawing does not count as
// changed. A height or width that is not
// above 0 is refused.
NRX_API bool setActiveView(NcDbDatabase& drawing, const ActiveView& view);
// The view that shows a part of the world, with a little room around it; the
// proportion of the present view stays.
NRX_API ActiveView viewOf(const QRectF& window, const ActiveView& present);
