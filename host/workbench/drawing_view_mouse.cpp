// What mouse and keyboard do in the view.
#include "drawing_aids.h"
#include "drawing_view.h"

#include <drawing/groups.h>
#include <drawing/host_access.h>
#include <drawing/undo.h>

#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kPickPixels = 6, kSnapPixels = 12;
constexpr int kDragPixels = 4;
constexpr double kWheelStep = 1.25;

bool contains(const NcDbObjectIdArray& ids, NcDbObjectId id)
{
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

} // namespace

void DrawingView::wheelEvent(QWheelEvent* event)
{
    const QPointF fixed = toWorld(event->position());
    const double factor = std::pow(kWheelStep, -event->angleDelta().y() / 120.0);
    setView(fixed + factor * (view_.center - fixed), view_.height * factor);
}

// --- where a point would go

std::optional<NcGePoint3d> DrawingView::base() const
{
    if (grips_.held())
        return grips_.held()->grip.at;
    return mode_ == PickPoint ? base_ : std::nullopt;
}

// A point of the drawing goes before the directions of ortho and polar.
void DrawingView::aim(const QPoint& at)
{
    const DrawingAids& aids = DrawingAids::instance();
    aimed_ = worldPoint(at);
    snap_.reset();
    if (mode_ != PickPoint && !grips_.held())
        return;
    updateList();
    if (aids.snaps())
        snap_ = snapPoint(list_, {aimed_.x, aimed_.y}, pixels(kSnapPixels));
    if (snap_) {
        aimed_ = snap_->at;
        return;
    }
    const auto from = base();
    if (!from)
        return;
    NcGePoint3d origin;
    NcGeVector3d x, y, z;
    HostAccess::data(*document_.database()).ucs.getCoordSystem(origin, x, y, z);
    bool held = false;
    if (aids.ortho())
        aimed_ = orthoPoint(*from, aimed_, std::atan2(x.y, x.x));
    else if (aids.polar())
        aimed_ = polarPoint(*from, aimed_, std::atan2(x.y, x.x), aids.polarStep(), held);
}

void DrawingView::hoverAt(const QPoint& at)
{
    const NcDbObjectIdArray before = under_;
    under_.clear();
    if (mode_ != PickPoint && !pressAt_ && !panFrom_ && !listOld_) {
        const NcGePoint3d world = worldPoint(at);
        under_ = list_.hits({world.x, world.y}, pixels(kPickPixels));
    }
    if (under_ != before)
        turned_ = 0;
    hover_ = under_.empty() ? NcDbObjectId() : under_[size_t(turned_)];
}

void DrawingView::turnHover(int step)
{
    if (under_.empty())
        return;
    const int count = int(under_.size());
    turned_ = (turned_ + step + count) % count;
    hover_ = under_[size_t(turned_)];
    update();
}

// --- the mouse

void DrawingView::mousePressEvent(QMouseEvent* event)
{
    cursor_ = event->pos();
    aim(event->pos());
    if (event->button() == Qt::MiddleButton)
        panFrom_ = event->pos();
    else if (event->button() == Qt::RightButton)
        emit finished();
    else if (event->button() != Qt::LeftButton)
        return;
    else if (mode_ == PickPoint)
        emit pointPicked(aimed_);
    else if (!pressGrip(event->pos()))
        pressAt_ = event->pos();
}

// A grip is pulled with the button held, or by a click and another one.
bool DrawingView::pressGrip(const QPoint& at)
{
    if (mode_ != Select)
        return false;
    if (grips_.held()) {
        pullHeld(aimed_);
        return true;
    }
    const auto held = grips_.at(at, toScreen());
    if (!held)
        return false;
    if (held->grip.kind == Grip::Flip) {
        const UndoGroup group(*document_.database(), QStringLiteral("РУЧКА"));
        turnGrip(held->entity, held->grip);
    } else if (held->grip.kind == Grip::Choice) {
        chooseGripValue(*held, at);
    } else {
        grips_.hold(*held);
        gripFrom_ = at;
        aim(at);
    }
    return true;
}

void DrawingView::chooseGripValue(const ViewGrips::Held& held, const QPoint& at)
{
    QString present;
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("gripChoices"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const QString& value : gripChoices(held.entity, held.grip, present)) {
        QAction* action = menu->addAction(value, this, [this, held, value] {
            const UndoGroup group(*document_.database(), QStringLiteral("РУЧКА"));
            chooseGrip(held.entity, held.grip, value);
        });
        action->setCheckable(true);
        action->setChecked(value == present);
    }
    menu->popup(mapToGlobal(at));
}

void DrawingView::pullHeld(const NcGePoint3d& to)
{
    const ViewGrips::Held held = *grips_.held();
    dropGrip();
    const UndoGroup group(*document_.database(), QStringLiteral("РУЧКА"));
    pullGrip(held.entity, held.grip, to);
}

bool DrawingView::dropGrip()
{
    const bool had = bool(grips_.held());
    grips_.drop();
    gripFrom_.reset();
    snap_.reset();
    update();
    return had;
}

// A group is picked as one; Shift takes one member, or gives back what is picked.
void DrawingView::pickAt(const QPoint& at, Qt::KeyboardModifiers modifiers)
{
    updateList();
    hoverAt(at);
    if (hover_.isNull())
        return;
    if (mode_ == PickEntity) {
        emit entityPicked(hover_, worldPoint(at));
        return;
    }
    if (!(modifiers & Qt::ShiftModifier))
        return changeSelection(groupAround(*document_.database(), hover_), false);
    changeSelection({hover_}, contains(document_.pickfirst(), hover_));
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
    aim(event->pos());
    hoverAt(event->pos());
    emit cursorMoved(aimed_);
    update();
}

void DrawingView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::MiddleButton)
        panFrom_.reset();
    if (event->button() != Qt::LeftButton)
        return;
    if (gripFrom_ && grips_.held()) {
        aim(event->pos());
        if ((event->pos() - *gripFrom_).manhattanLength() >= kDragPixels)
            pullHeld(aimed_);
    } else if (pressAt_) {
        const QPoint from = *pressAt_;
        if ((event->pos() - from).manhattanLength() >= kDragPixels && mode_ != PickEntity)
            return finishWindow(event->pos(), event->modifiers());
        pressAt_.reset();
        pickAt(event->pos(), event->modifiers());
    }
}

// From left to right what lies inside, from right to left what it touches too.
void DrawingView::finishWindow(const QPoint& to, Qt::KeyboardModifiers modifiers)
{
    const QPoint from = *pressAt_;
    pressAt_.reset();
    update();
    updateList();
    const QRectF window = QRectF(toWorld(from), toWorld(to)).normalized();
    const NcDbObjectIdArray found = list_.inside(window, to.x() < from.x());
    if (!found.empty())
        changeSelection(found, modifiers & Qt::ShiftModifier);
}

void DrawingView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::MiddleButton)
        return zoomExtents();
    hoverAt(event->pos());
    if (event->button() == Qt::LeftButton && mode_ == Select && !hover_.isNull())
        emit editRequested(hover_);
    else
        mousePressEvent(event);
}

void DrawingView::leaveEvent(QEvent*)
{
    cursor_.reset();
    hover_ = NcDbObjectId();
    update();
}

// --- the keyboard

bool DrawingView::event(QEvent* event)
{
    // Else Tab would be taken for a change of the focus.
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
            turnHover(key == Qt::Key_Tab ? 1 : -1);
            return true;
        }
    }
    return QWidget::event(event);
}

// What is typed over the drawing belongs to the command line.
void DrawingView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        if (!dropGrip())
            emit cancelled();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space) {
        emit finished();
    } else if (!event->text().isEmpty() && event->text().at(0).isPrint()) {
        emit typed(event->text());
    } else {
        QWidget::keyPressEvent(event);
    }
}
