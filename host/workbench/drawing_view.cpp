#include "drawing_view.h"

#include "drawing_aids.h"

#include <drawing/host_access.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

const QColor kDarkGround(30, 36, 42), kLightGround(252, 252, 250);
const QColor kDarkCursor(200, 205, 210), kLightCursor(70, 75, 80);
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
    connect(HostEvents::instance(), &HostEvents::pickfirstModified, this, &DrawingView::takePicked);
    later_.setSingleShot(true);
    connect(&later_, &QTimer::timeout, this, &DrawingView::paintLater);
    connect(&DrawingAids::instance(), &DrawingAids::changed, this, QOverload<>::of(&QWidget::update));
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
    pressAt_.reset();
    snap_.reset();
    hover_ = NcDbObjectId();
    grips_.drop();
    const FollowedEntities* followed = mode == PickPoint ? FollowedEntities::present() : nullptr;
    followed_ = followed ? figuresOf(followed->entities()) : DisplayList();
    if (cursor_)
        aim(*cursor_);
    update();
}

// What is pasted follows the point while it lies in the clipboard's drawing.
DisplayList DrawingView::figuresOf(const NcDbObjectIdArray& entities)
{
    const NcDbDatabase* drawing = entities.empty() ? nullptr : entities.front().database();
    if (drawing && drawing != document_.database())
        return recordDrawing(*drawing).only(entities);
    updateList();
    return list_.only(entities);
}

void DrawingView::setLightGround(bool light)
{
    ground_ = light ? kLightGround : kDarkGround;
    cursorColor_ = light ? kLightCursor : kDarkCursor;
    redraw();
}

void DrawingView::objectChanged(NcDbObjectId id)
{
    const NcDbObject* changed = HostAccess::object(id);
    if (changed && (changed->isKindOf(NcDbEntity::desc()) || changed->isKindOf(NcDbLayerTableRecord::desc())))
        drawn_ = true;
    listOld_ = true;
    redraw();
}

void DrawingView::drawingReplaced()
{
    listOld_ = true;
    grips_.clear();
    takeView();
}

void DrawingView::redraw()
{
    sceneOld_ = true;
    update();
}

void DrawingView::takePicked()
{
    grips_.drop();
    redraw();
}

// --- the view

void DrawingView::takeView()
{
    view_ = activeView(*document_.database());
    update();
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
    updateList();
    const QRectF box = list_.box();
    if (box.isNull())
        return;
    ActiveView present = view_;
    present.width = present.height * width() / std::max(1, height());
    const ActiveView all = viewOf(box, present);
    setView(all.center, all.height);
}

void DrawingView::zoomIfEmpty()
{
    updateList();
    const QRectF box = list_.box();
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

void DrawingView::updateList()
{
    if (!listOld_)
        return;
    scene_.dropNext();
    list_ = recordDrawing(*document_.database());
    listOld_ = false;
    sceneOld_ = true;
}
