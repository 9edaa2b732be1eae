// Paints a display list onto anything that Qt paints on: window, picture, SVG, PDF.
#pragma once

#include "display_list.h"

#include <QPainter>
#include <set>

struct PaintStyle {
    QColor paper = Qt::white;        // colour 7 is black on light paper and white on dark
    double lineWidth = 1.0;          // in the painter's units (pixels, or dots of a page)
    double thinWidth = 0.5;          // lines of hatch patterns
    bool liveText = false;           // texts as texts that can be searched, not as their outlines
    std::set<NcDbObjectId> selected; // shown as picked out
    QColor selection = QColor(0, 120, 215);
};

// The transformation that shows `window` of the world, y upwards, in the middle
// of `target`, as large as fits.
NRX_API QTransform fitWindow(const QRectF& window, const QRectF& target);

// Paints the figures; those outside of `visible` (in the world; null for all)
// are passed over. The paper itself is not painted.
NRX_API void paintFigures(const DisplayList& list, QPainter& painter, const QTransform& toDevice,
                          const PaintStyle& style, const QRectF& visible = {});
