// A hatch as a picture: of a geology layer on a chart, of an entry in the
// geology catalogue.
#pragma once

#include "charts/hatch/hatch_pattern.h"

#include <QColor>
#include <QImage>
#include <QSize>

struct HatchLook {
    double scale = 1.0;
    QColor background = Qt::transparent;
    QColor lines = Qt::black;
    double ratio = 1.0; ///< device pixels in one pixel, for sharp screens
};

/// The background with the pattern's lines on it, the pattern's origin in the
/// lower left corner, y upward, a millimetre of the pattern 96/25.4 pixels
/// times the scale. The picture has size * ratio pixels and no device ratio of
/// its own. The background alone for an empty pattern, a scale that is not
/// above 0 and a pattern too fine to be seen (lines closer than half a pixel);
/// a null picture for a size without pixels. Sides end at 8192 pixels.
QImage hatchPicture(const HatchPattern& pattern, const QSize& size, const HatchLook& look = {});
