// The window onto one drawing: model space, panned with the middle button, zoomed
// with the wheel, picked with the left button.
#pragma once

#include <drawing/application.h>
#include <drawing/database_data.h>
#include <render/active_view.h>
#include <render/display_list.h>

#include <QPixmap>
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
    // `base` (in the world): a line is drawn from it to the cursor.
    void setMode(Mode mode, const std::optional<NcGePoint3d>& base = {});
    // Dark at first; on a light ground the drawing looks as on paper.
    void setLightGround(bool light);
    void zoomExtents();
    // Shows the whole drawing when the view that came with it shows nothing of it.
    void zoomIfEmpty();

signals:
    void cursorMoved(const NcGePoint3d& world);
    void pointPicked(const NcGePoint3d& world);
    void entityPicked(NcDbObjectId entity, const NcGePoint3d& world);
    void entitiesPicked(const NcDbObjectIdArray& entities);
    void finished();  // the right button: Enter
    void cancelled(); // Esc
    void typed(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void objectChanged(NcDbObjectId id) override;
    void drawingReplaced() override;
    void redraw();
    void takeView();
    void setView(const QPointF& center, double height);
    void paintScene();
    void paintAxes(QPainter& painter) const;
    void paintCursor(QPainter& painter) const;
    void clickAt(const QPoint& at, Qt::KeyboardModifiers modifiers);
    void changeSelection(const NcDbObjectIdArray& entities, bool remove);
    void finishWindow(const QPoint& to, Qt::KeyboardModifiers modifiers);
    QTransform toScreen() const;
    QPointF toWorld(const QPointF& at) const;
    NcGePoint3d worldPoint(const QPoint& at) const;

    Document& document_;
    QColor ground_, cursorColor_;
    DisplayList list_;
    QPixmap scene_;
    bool listOld_ = true, sceneOld_ = true;
    bool placed_ = false; // the widget has had its first size
    ActiveView view_;
    Mode mode_ = Select;
    std::optional<NcGePoint3d> base_;
    std::optional<QPoint> cursor_, panFrom_, windowFrom_;
};
