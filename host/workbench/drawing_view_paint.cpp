// What the view shows.
#include "drawing_aids.h"
#include "drawing_view.h"

#include <drawing/host_access.h>
#include <render/figure_painter.h>

#include <QBackingStore>
#include <QPainter>

#include <utility>

namespace {

constexpr int kPickPixels = 6;
constexpr double kSnapHalf = 6.0;
const QColor kSnapColor(0, 160, 60), kHoverColor(255, 150, 30), kFollowedColor(230, 120, 0);

QTransform flatTransform(const NcGeMatrix3d& m)
{
    return QTransform(m.entry[0][0], m.entry[1][0], m.entry[0][1], m.entry[1][1], m.entry[0][3], m.entry[1][3]);
}

// Each kind of point by its usual sign.
void drawSnapSign(QPainter& painter, SnapPoint::Kind kind, const QPointF& p)
{
    const double h = kSnapHalf;
    switch (kind) {
    case SnapPoint::End: painter.drawRect(QRectF(p.x() - h, p.y() - h, 2 * h, 2 * h)); break;
    case SnapPoint::Middle:
        painter.drawPolygon(QPolygonF({p + QPointF(-h, h), p + QPointF(h, h), p + QPointF(0, -h)}));
        break;
    case SnapPoint::Intersection:
        painter.drawLine(p + QPointF(-h, -h), p + QPointF(h, h));
        painter.drawLine(p + QPointF(-h, h), p + QPointF(h, -h));
        break;
    case SnapPoint::Node:
    case SnapPoint::Center: painter.drawEllipse(p, h, h); break;
    case SnapPoint::Insertion:
        painter.drawPolygon(QPolygonF({p + QPointF(0, -h), p + QPointF(h, 0), p + QPointF(0, h), p + QPointF(-h, 0)}));
        break;
    }
}

} // namespace

PaintStyle DrawingView::style() const
{
    PaintStyle style;
    style.paper = ground_;
    style.lineWidth = 1.2;
    style.thinWidth = 0.8;
    return style;
}

PaintStyle DrawingView::sceneStyle() const
{
    PaintStyle look = style();
    look.quick = true;
    look.selected.insert(document_.pickfirst().begin(), document_.pickfirst().end());
    return look;
}

void DrawingView::paintScene()
{
    updateList();
    scene_.paint(list_, sceneStyle(), place());
    if (std::exchange(sceneOld_, false))
        grips_.take(document_.pickfirst());
}

// A piece in each frame and pieces between the frames, each for a part of the time
// that a smooth movement leaves.
bool DrawingView::paintPiece()
{
    const bool fresh = scene_.paintOn(list_, sceneStyle(), place(), pieceTime_);
    if (!isSharp())
        later_.start();
    return fresh;
}

void DrawingView::paintLater()
{
    if (!listOld_ && !sceneOld_ && paintPiece())
        update();
}

// A picture of the window for a file is to be sharp.
bool DrawingView::isGrabbed() const
{
    QPoint offset;
    QBackingStore* screen = backingStore();
    return !screen || redirected(&offset) != screen->paintDevice();
}

// The directions of the user coordinate system, in the lower left corner.
void DrawingView::paintAxes(QPainter& painter) const
{
    NcGePoint3d origin;
    NcGeVector3d axes[3];
    HostAccess::data(*document_.database()).ucs.getCoordSystem(origin, axes[0], axes[1], axes[2]);
    const QPointF corner(28, height() - 28);
    const char* names[] = {"X", "Y"};
    painter.setPen(QPen(cursorColor_, 1.4));
    for (int i = 0; i < 2; ++i) {
        const QPointF end = corner + 34.0 * QPointF(axes[i].x, -axes[i].y);
        painter.drawLine(corner, end);
        painter.drawText(QRectF(end.x() - 8 + 9 * axes[i].x, end.y() - 8 - 9 * axes[i].y, 16, 16), Qt::AlignCenter,
                         QString::fromLatin1(names[i]));
    }
}

void DrawingView::paintCursor(QPainter& painter) const
{
    if (!cursor_)
        return;
    const QPoint at = *cursor_;
    painter.setPen(QPen(cursorColor_, 1));
    if (mode_ != PickEntity && mode_ != PickEntities) {
        painter.drawLine(0, at.y(), width(), at.y());
        painter.drawLine(at.x(), 0, at.x(), height());
    }
    if (mode_ != PickPoint)
        painter.drawRect(QRect(at - QPoint(kPickPixels, kPickPixels), QSize(2 * kPickPixels, 2 * kPickPixels)));
    if (const auto from = base()) {
        painter.setPen(QPen(cursorColor_, 1, Qt::DashLine));
        painter.drawLine(toScreen().map(QPointF(from->x, from->y)), toScreen().map(QPointF(aimed_.x, aimed_.y)));
    }
    paintWindow(painter);
}

// Blue from left to right, green from right to left.
void DrawingView::paintWindow(QPainter& painter) const
{
    if (!pressAt_ || !cursor_)
        return;
    const bool crossing = cursor_->x() < pressAt_->x();
    painter.setPen(
        QPen(crossing ? QColor(90, 200, 120) : QColor(90, 160, 255), 1, crossing ? Qt::DashLine : Qt::SolidLine));
    painter.setBrush(crossing ? QColor(90, 200, 120, 30) : QColor(120, 170, 255, 30));
    painter.drawRect(QRect(*pressAt_, *cursor_).normalized());
    painter.setBrush(Qt::NoBrush);
}

void DrawingView::paintFollowed(QPainter& painter) const
{
    const FollowedEntities* followed = FollowedEntities::present();
    if (mode_ != PickPoint || !followed || !cursor_ || followed_.figures().empty())
        return;
    PaintStyle look = style();
    look.selection = kFollowedColor;
    look.selected.insert(followed->entities().begin(), followed->entities().end());
    paintFigures(followed_, painter, flatTransform(followed->placing(aimed_)) * toScreen(), look);
}

void DrawingView::paintHover(QPainter& painter) const
{
    if (hover_.isNull() || !cursor_)
        return;
    PaintStyle look = style();
    look.selection = kHoverColor;
    look.selected.insert(hover_);
    paintFigures(list_.only({hover_}), painter, toScreen(), look);
    if (under_.size() < 2)
        return;
    painter.setPen(cursorColor_);
    painter.drawText(*cursor_ + QPoint(12, 24),
                     QString::number(turned_ + 1) + QStringLiteral(" из ") + QString::number(under_.size())
                         + QStringLiteral(" (Tab)"));
}

void DrawingView::paintSnap(QPainter& painter) const
{
    if (!snap_ || !cursor_)
        return;
    const QPointF place = toScreen().map(QPointF(snap_->at.x, snap_->at.y));
    painter.setPen(QPen(kSnapColor, 2));
    painter.setBrush(Qt::NoBrush);
    drawSnapSign(painter, snap_->kind, place);
    const QString name = snapName(snap_->kind);
    const QRectF box = QRectF(painter.fontMetrics().boundingRect(name)).adjusted(-4, -2, 4, 2);
    const QRectF tip = box.translated(place + QPointF(14, 26) - box.topLeft());
    painter.fillRect(tip, QColor(255, 255, 225));
    painter.setPen(QColor(40, 40, 40));
    painter.drawText(tip, Qt::AlignCenter, name);
}

void DrawingView::paintEvent(QPaintEvent*)
{
    const bool changed = listOld_ || sceneOld_ || !scene_.isOfSize(place());
    if (changed || (!isSharp() && isGrabbed()))
        paintScene();
    else if (!isSharp())
        paintPiece();
    QPainter painter(this);
    scene_.show(painter, toScreen(), ground_);
    paintAxes(painter);
    paintHover(painter);
    if (mode_ == Select)
        grips_.paint(painter, toScreen(), cursor_ ? std::optional<QPointF>(*cursor_) : std::nullopt);
    paintFollowed(painter);
    paintCursor(painter);
    paintSnap(painter);
}
