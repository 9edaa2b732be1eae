// Paints a display list onto anything that Qt paints on: window, picture, SVG, PDF.
#pragma once

#include "display_list.h"

#include <QPainter>
#include <memory>
#include <unordered_set>

struct IdHash {
    size_t operator()(const NcDbObjectId& id) const { return std::hash<quint64>()(id.handle()); }
};

struct PaintStyle {
    QColor paper = Qt::white; // colour 7 is black on light paper and white on dark
    double lineWidth = 1.0;   // in the painter's units (pixels, or dots of a page)
    double thinWidth = 0.5;   // lines of hatch patterns
    bool liveText = false;    // texts as texts that can be searched, not as their outlines
    // On a screen: what is too small to be told apart is shown as a dot, texts too
    // small to be read as bars, lines as thin as they cost least.
    bool quick = false;
    std::unordered_set<NcDbObjectId, IdHash> selected; // shown as picked out
    QColor selection = QColor(0, 120, 215);
};

// The transformation that shows `window` of the world, y upwards, in the middle
// of `target`, as large as fits.
NRX_API QTransform fitWindow(const QRectF& window, const QRectF& target);

// Paints the figures; those outside of `visible` (in the world; null for all)
// are passed over. The paper itself is not painted.
NRX_API void paintFigures(const DisplayList& list, QPainter& painter, const QTransform& toDevice,
                          const PaintStyle& style, const QRectF& visible = {});

// The same as the second half of a long work, which may be stopped: false then.
NRX_API bool paintFiguresOn(const DisplayList& list, QPainter& painter, const QTransform& toDevice,
                            const PaintStyle& style, const QRectF& visible = {});

// The same piece by piece; list and painter outlive it and stay as they are.
class NRX_API FigurePainting {
public:
    FigurePainting(const DisplayList& list, QPainter& painter, const QTransform& toDevice, const PaintStyle& style,
                   const QRectF& visible = {});
    ~FigurePainting();

    // Goes on for about that long; true when all is painted.
    bool paint(int milliseconds);
    double share() const; // of the figures that are painted

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};
