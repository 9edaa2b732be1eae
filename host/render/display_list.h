// A drawing as simple figures in world coordinates: what every painter paints,
// what picking hits, what tests look at. Recorded by the one walker.
#pragma once

#include <nrx/database.h>

#include <QColor>
#include <QPainterPath>
#include <QPolygonF>
#include <QRectF>
#include <QTransform>
#include <memory>
#include <vector>

// One line of text. `placing` takes the text's own frame (origin where the text
// is held, x along the line, y up, capitals 1 high) to the world.
struct FigureText {
    QString text;
    int horizontal = 0; // 0 left, 1 centre, 2 right
    int vertical = 0;   // 0 base line, 1 bottom, 2 middle, 3 top
    QTransform placing;
};

struct Figure {
    enum Kind { Line, Fill, Text, Dot };

    Kind kind = Line;
    NcDbObjectId source; // the entity of the space that it belongs to
    QString layer;       // that decided whether it shows
    QColor color;
    bool foreground = false;         // colour 7: black on white, white on black
    bool background = false;         // an opaque ground in the colour of the paper
    bool thin = false;               // a line of a hatch pattern
    std::vector<QPolygonF> polygons; // Line: one open or closed; Fill: loops, even-odd; Dot: one point
    FigureText text;
    QRectF box;                            // in the world, of text too
    std::shared_ptr<const QPolygonF> clip; // a viewport's border
};

class NRX_API DisplayList {
public:
    std::vector<Figure>& figures()
    {
        boxes_.clear();
        return figures_;
    }
    const std::vector<Figure>& figures() const { return figures_; }
    // The box of each figure, one beside the other: to go over many at little cost.
    const std::vector<QRectF>& boxes() const;

    // Everything's extent; null when nothing shows.
    QRectF box() const;
    // The source of the topmost figure within `tolerance` of a point; lines and
    // texts go before fills, however they are ordered.
    NcDbObjectId hit(const QPointF& at, double tolerance) const;
    // All sources there, the one of hit() first, each once.
    NcDbObjectIdArray hits(const QPointF& at, double tolerance) const;
    // The figures of some sources.
    DisplayList only(const NcDbObjectIdArray& sources) const;
    // Sources whose figures all lie inside of a window, or, with `crossing`, of
    // which one touches it; a fill is touched at its rim.
    NcDbObjectIdArray inside(const QRectF& window, bool crossing = false) const;
    // Every source once, from bottom to top.
    NcDbObjectIdArray sources() const;

private:
    std::vector<Figure> figures_;
    mutable std::vector<QRectF> boxes_; // empty until they were asked for
};

// Of a long work that records a drawing and then paints it.
constexpr double kRecordedOfWork = 0.4;

// Records a space ("*Model_Space") or a layout ("*Paper_Space") of a drawing; a part
// of it when the work was stopped (drawing/long_work.h).
NRX_API DisplayList recordDrawing(const NcDbDatabase& drawing, const QString& space = QStringLiteral("*Model_Space"));

// The outline of a text in the world; the same on every machine.
NRX_API QPainterPath textOutline(const FigureText& text);
// Width of a line of text whose capitals are 1 high.
NRX_API double unitTextWidth(const QString& text);
