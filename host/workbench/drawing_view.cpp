#include "drawing_view.h"

#include <drawing/host_access.h>
#include <render/figure_painter.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

namespace {

const QColor kDarkGround(30, 36, 42), kLightGround(252, 252, 250);
const QColor kDarkCursor(200, 205, 210), kLightCursor(70, 75, 80);
constexpr int kPickPixels = 6;
constexpr int kDragPixels = 4;
constexpr double kWheelStep = 1.25;
constexpr double kLeastHeight = 1e-6, kGreatestHeight = 1e12;

} // namespace

DrawingView::DrawingView(Document& document, QWidget* parent) : QWidget(parent), document_(document)
{
    setObjectName(QStringLiteral("drawingView"));
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::BlankCursor);
    setMinimumSize(200, 150);
    setLightGround(false);
    HostAccess::data(*document.database()).listeners.push_back(this);
    connect(HostEvents::instance(), &HostEvents::viewChanged, this, &DrawingView::takeView);
    connect(HostEvents::instance(), &HostEvents::pickfirstModified, this, &DrawingView::redraw);
    takeView();
}

DrawingView::~DrawingView()
{
    auto& listeners = HostAccess::data(*document_.database()).listeners;
    listeners.erase(std::remove(listeners.begin(), listeners.end(), static_cast<DrawingListener*>(this)),
                    listeners.end());
}

void DrawingView::setMode(Mode mode, const std::optional<NcGePoint3d>& base)
{
    mode_ = mode;
    base_ = base;
    windowFrom_.reset();
    update();
}

void DrawingView::setLightGround(bool light)
{
    ground_ = light ? kLightGround : kDarkGround;
    cursorColor_ = light ? kLightCursor : kDarkCursor;
    redraw();
}

void DrawingView::objectChanged(NcDbObjectId)
{
    listOld_ = true;
    redraw();
}

void DrawingView::drawingReplaced()
{
    listOld_ = true;
    takeView();
}

void DrawingView::redraw()
{
    sceneOld_ = true;
    update();
}

// --- the view

void DrawingView::takeView()
{
    view_ = activeView(*document_.database());
    redraw();
}

void DrawingView::setView(const QPointF& center, double height)
{
    ActiveView view;
    view.center = center;
    view.height = qBound(kLeastHeight, height, kGreatestHeight);
    view.width = view.height * width() / std::max(1, this->height());
    setActiveView(*document_.database(), view);
}

void DrawingView::zoomExtents()
{
    const QRectF box = recordDrawing(*document_.database()).box();
    if (box.isNull())
        return;
    ActiveView present = view_;
    present.width = present.height * width() / std::max(1, height());
    const ActiveView all = viewOf(box, present);
    setView(all.center, all.height);
}

void DrawingView::zoomIfEmpty()
{
    const QRectF box = recordDrawing(*document_.database()).box();
    const QRectF visible = toScreen().inverted().mapRect(QRectF(rect()));
    const bool meet = box.left() <= visible.right() && visible.left() <= box.right() && box.top() <= visible.bottom()
        && visible.top() <= box.bottom();
    if (!box.isNull() && !meet)
        zoomExtents();
}

void DrawingView::resizeEvent(QResizeEvent*)
{
    setView(view_.center, view_.height);
    if (!std::exchange(placed_, true))
        zoomIfEmpty();
}

QTransform DrawingView::toScreen() const
{
    const double scale = height() / view_.height;
    QTransform screen;
    screen.translate(0.5 * width(), 0.5 * height());
    screen.scale(scale, -scale);
    screen.translate(-view_.center.x(), -view_.center.y());
    return screen;
}

QPointF DrawingView::toWorld(const QPointF& at) const { return toScreen().inverted().map(at); }

NcGePoint3d DrawingView::worldPoint(const QPoint& at) const
{
    const QPointF p = toWorld(at);
    return {p.x(), p.y(), 0.0};
}

void DrawingView::wheelEvent(QWheelEvent* event)
{
    const QPointF fixed = toWorld(event->position());
    const double factor = std::pow(kWheelStep, -event->angleDelta().y() / 120.0);
    setView(fixed + factor * (view_.center - fixed), view_.height * factor);
}

// --- painting

void DrawingView::paintScene()
{
    if (listOld_) {
        list_ = recordDrawing(*document_.database());
        listOld_ = false;
    }
    if (scene_.size() != size())
        scene_ = QPixmap(size());
    scene_.fill(ground_);
    QPainter painter(&scene_);
    PaintStyle style;
    style.paper = ground_;
    style.lineWidth = 1.2;
    style.thinWidth = 0.8;
    style.selected.insert(document_.pickfirst().begin(), document_.pickfirst().end());
    const QRectF visible = toScreen().inverted().mapRect(QRectF(rect()));
    paintFigures(list_, painter, toScreen(), style, visible);
    paintAxes(painter);
    sceneOld_ = false;
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
    if (mode_ == PickPoint && base_) {
        painter.setPen(QPen(cursorColor_, 1, Qt::DashLine));
        painter.drawLine(toScreen().map(QPointF(base_->x, base_->y)), QPointF(at));
    }
    if (windowFrom_) {
        const bool crossing = at.x() < windowFrom_->x();
        painter.setPen(
            QPen(crossing ? QColor(90, 200, 120) : QColor(90, 160, 255), 1, crossing ? Qt::DashLine : Qt::SolidLine));
        painter.setBrush(QColor(120, 170, 255, 30));
        painter.drawRect(QRect(*windowFrom_, at).normalized());
    }
}

void DrawingView::paintEvent(QPaintEvent*)
{
    if (sceneOld_ || scene_.size() != size())
        paintScene();
    QPainter painter(this);
    painter.drawPixmap(0, 0, scene_);
    paintCursor(painter);
}

// --- the mouse

void DrawingView::mousePressEvent(QMouseEvent* event)
{
    cursor_ = event->pos();
    if (event->button() == Qt::MiddleButton)
        panFrom_ = event->pos();
    else if (event->button() == Qt::RightButton)
        emit finished();
    else if (event->button() == Qt::LeftButton)
        clickAt(event->pos(), event->modifiers());
}

void DrawingView::clickAt(const QPoint& at, Qt::KeyboardModifiers modifiers)
{
    const NcGePoint3d world = worldPoint(at);
    if (mode_ == PickPoint) {
        emit pointPicked(world);
        return;
    }
    const NcDbObjectId hit = list_.hit({world.x, world.y}, kPickPixels * view_.height / std::max(1, height()));
    if (hit.isNull()) {
        if (mode_ != PickEntity)
            windowFrom_ = at;
    } else if (mode_ == PickEntity) {
        emit entityPicked(hit, world);
    } else {
        changeSelection({hit}, modifiers & Qt::ShiftModifier);
    }
}

void DrawingView::changeSelection(const NcDbObjectIdArray& entities, bool remove)
{
    if (mode_ == PickEntities && !remove)
        emit entitiesPicked(entities);
    NcDbObjectIdArray picked = document_.pickfirst();
    for (const NcDbObjectId& id : entities) {
        const auto at = std::find(picked.begin(), picked.end(), id);
        if (remove && at != picked.end())
            picked.erase(at);
        else if (!remove && at == picked.end())
            picked.push_back(id);
    }
    if (mode_ == Select)
        setPickfirst(picked);
}

void DrawingView::mouseMoveEvent(QMouseEvent* event)
{
    if (panFrom_) {
        const QPointF moved = toWorld(*panFrom_) - toWorld(event->pos());
        panFrom_ = event->pos();
        setView(view_.center + moved, view_.height);
    }
    cursor_ = event->pos();
    emit cursorMoved(worldPoint(event->pos()));
    update();
}

void DrawingView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::MiddleButton)
        panFrom_.reset();
    if (event->button() == Qt::LeftButton && windowFrom_)
        finishWindow(event->pos(), event->modifiers());
}

// From left to right what lies inside, from right to left what it touches too.
void DrawingView::finishWindow(const QPoint& to, Qt::KeyboardModifiers modifiers)
{
    const QPoint from = *windowFrom_;
    windowFrom_.reset();
    update();
    if ((to - from).manhattanLength() < kDragPixels)
        return;
    const QRectF window = QRectF(toWorld(from), toWorld(to)).normalized();
    const NcDbObjectIdArray found = list_.inside(window, to.x() < from.x());
    if (!found.empty())
        changeSelection(found, modifiers & Qt::ShiftModifier);
}

void DrawingView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::MiddleButton)
        zoomExtents();
    else
        mousePressEvent(event);
}

void DrawingView::leaveEvent(QEvent*)
{
    cursor_.reset();
    update();
}

// What is typed over the drawing belongs to the command line.
void DrawingView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        emit cancelled();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        emit finished();
    else if (!event->text().isEmpty() && event->text().at(0).isPrint())
        emit typed(event->text());
    else
        QWidget::keyPressEvent(event);
}
