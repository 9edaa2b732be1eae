// The window onto one drawing: model space, panned with the middle button, zoomed
// with the wheel, picked with the left button.
#pragma once

#include "view_grips.h"
#include "view_scene.h"

#include <drawing/application.h>
#include <drawing/database_data.h>
#include <render/active_view.h>
#include <render/display_list.h>
#include <render/figure_painter.h>
#include <render/snapping.h>

#include <QTimer>
#include <QWidget>

class DrawingView : public QWidget, private DrawingListener {
    Q_OBJECT
public:
    explicit DrawingView(Document& document, QWidget* parent = nullptr);
    ~DrawingView() override;

    Document& document() const { return document_; }

    // What a left click means.
    enum Mode { Select, PickPoint, PickEntity, PickEntities };
    // `base` (in the world): a line is drawn from it to the cursor, and ortho and
    // polar hold to it. What follows the point is asked of FollowedEntities.
    void setMode(Mode mode, const std::optional<NcGePoint3d>& base = {});
    // Dark at first; on a light ground the drawing looks as on paper.
    void setLightGround(bool light);
    void zoomExtents();
    // Shows the whole drawing when the view that came with it shows nothing of it.
    void zoomIfEmpty();
    // Whether closing the drawing now would lose what was drawn or changed in it;
    // what commands note in the drawing's properties is no work of the user's.
    bool holdsUnsavedWork() const { return drawn_ && document_.isModified(); }
    void setDrawn(bool drawn) { drawn_ = drawn; } // since it was opened or saved
    // What of the drawing is on the screen.
    QRectF visibleWorld() const { return toScreen().inverted().mapRect(QRectF(rect())); }
    // Lets go of a grip that is being pulled; false when none is.
    bool dropGrip();

    // Whether the picture is that of the drawing as it is and where it is; else the
    // last one stands moved, until the next one is painted.
    bool isSharp() const { return !listOld_ && !sceneOld_ && scene_.isOf(place()); }

    // How long a frame may paint before it shows what there is; a test takes that time away.
    void setPieceTime(int milliseconds) { pieceTime_ = milliseconds; }
    static constexpr int kPieceMilliseconds = 9;

    // What the cursor is on, for tips and tests.
    NcDbObjectId hovered() const { return hover_; }
    const std::optional<SnapPoint>& snap() const { return snap_; }

signals:
    void cursorMoved(const NcGePoint3d& world);
    void pointPicked(const NcGePoint3d& world);
    void entityPicked(NcDbObjectId entity, const NcGePoint3d& world);
    void entitiesPicked(const NcDbObjectIdArray& entities);
    void editRequested(NcDbObjectId entity); // a double click
    void finished();                         // the right button: Enter
    void cancelled();                        // Esc
    void typed(const QString& text);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool) override { return false; } // Tab turns through what lies here

private:
    void objectChanged(NcDbObjectId id) override;
    void drawingReplaced() override;
    void redraw();
    void takeView();
    void takePicked();
    void setView(const QPointF& center, double height);
    void updateList();
    DisplayList figuresOf(const NcDbObjectIdArray& entities);
    PaintStyle style() const;
    PaintStyle sceneStyle() const;
    ViewScene::Place place() const { return {toScreen(), size(), devicePixelRatioF()}; }
    bool isGrabbed() const;
    void paintScene();
    bool paintPiece();
    void paintLater();
    void paintAxes(QPainter& painter) const;
    void paintCursor(QPainter& painter) const;
    void paintWindow(QPainter& painter) const;
    void paintFollowed(QPainter& painter) const;
    void paintSnap(QPainter& painter) const;
    void paintHover(QPainter& painter) const;

    void pickAt(const QPoint& at, Qt::KeyboardModifiers modifiers);
    void changeSelection(const NcDbObjectIdArray& entities, bool remove);
    void finishWindow(const QPoint& to, Qt::KeyboardModifiers modifiers);
    bool pressGrip(const QPoint& at);
    void chooseGripValue(const ViewGrips::Held& held, const QPoint& at);
    void pullHeld(const NcGePoint3d& to);
    void aim(const QPoint& at);
    void hoverAt(const QPoint& at);
    void turnHover(int step);
    double pixels(double count) const { return count * view_.height / std::max(1, height()); }
    std::optional<NcGePoint3d> base() const;
    QTransform toScreen() const;
    QPointF toWorld(const QPointF& at) const;
    NcGePoint3d worldPoint(const QPoint& at) const;

    Document& document_;
    QColor ground_, cursorColor_;
    DisplayList list_;
    ViewScene scene_;
    bool listOld_ = true, sceneOld_ = true;
    QTimer later_; // the next piece of the next picture
    int pieceTime_ = kPieceMilliseconds;
    bool drawn_ = false;  // on, since the drawing was opened or saved
    bool placed_ = false; // the widget has had its first size
    ActiveView view_;
    Mode mode_ = Select;
    std::optional<NcGePoint3d> base_;
    std::optional<QPoint> cursor_, panFrom_, pressAt_, gripFrom_;
    ViewGrips grips_;
    DisplayList followed_; // figures of what follows the point
    NcGePoint3d aimed_;    // where a click would put the point
    std::optional<SnapPoint> snap_;
    NcDbObjectId hover_;
    NcDbObjectIdArray under_; // all that lies under the cursor
    int turned_ = 0;          // which of them is meant
};
