#pragma once
// A picture with a rectangle drawn over it by the mouse; the wheel zooms.

#include <QGraphicsView>

class ImageCropper : public QGraphicsView {
    Q_OBJECT

public:
    explicit ImageCropper(QWidget* parent = nullptr);

    QPixmap pixmap() const;
    /// Shows another picture, fitted into the view; the rectangle becomes the whole of it.
    void setPixmap(const QPixmap& pixmap);
    /// In the picture's pixels.
    QRect selection() const;
    /// The picture becomes what the rectangle holds; false when there is nothing in it.
    bool crop();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void fit();

    QGraphicsPixmapItem* picture_;
    QGraphicsRectItem* rectangle_;
    QPointF corner_;
    bool drawing_ = false;
    bool fitted_ = true; // until the wheel zooms
};
