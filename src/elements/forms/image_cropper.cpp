#include "elements/forms/image_cropper.h"

#include <QGraphicsPixmapItem>
#include <QGraphicsRectItem>
#include <QMouseEvent>
#include <QWheelEvent>

namespace {

constexpr double kZoomStep = 1.25;
constexpr double kLineWidth = 2.0; // pixels of the screen

} // namespace

ImageCropper::ImageCropper(QWidget* parent) : QGraphicsView(parent)
{
    setScene(new QGraphicsScene(this));
    picture_ = scene()->addPixmap(QPixmap());
    picture_->setTransformationMode(Qt::SmoothTransformation);
    QPen line(Qt::yellow, kLineWidth, Qt::DashLine);
    line.setCosmetic(true); // as thick in a large picture
    rectangle_ = scene()->addRect(QRectF(), line);
    setBackgroundBrush(palette().dark());
    setTransformationAnchor(QGraphicsView::AnchorUnderMouse);
}

QPixmap ImageCropper::pixmap() const { return picture_->pixmap(); }

void ImageCropper::setPixmap(const QPixmap& pixmap)
{
    picture_->setPixmap(pixmap);
    rectangle_->setRect(picture_->boundingRect());
    rectangle_->setVisible(!pixmap.isNull());
    scene()->setSceneRect(picture_->boundingRect());
    fitted_ = true;
    fit();
}

QRect ImageCropper::selection() const { return rectangle_->rect().toAlignedRect().intersected(pixmap().rect()); }

bool ImageCropper::crop()
{
    const QRect chosen = selection();
    if (chosen.isEmpty())
        return false;
    setPixmap(pixmap().copy(chosen));
    return true;
}

void ImageCropper::fit()
{
    if (fitted_ && !picture_->pixmap().isNull())
        fitInView(picture_, Qt::KeepAspectRatio);
}

void ImageCropper::mousePressEvent(QMouseEvent* event)
{
    drawing_ = event->button() == Qt::LeftButton && !pixmap().isNull();
    if (!drawing_)
        return;
    corner_ = mapToScene(event->pos());
    rectangle_->setRect(QRectF(corner_, QSizeF()));
}

void ImageCropper::mouseMoveEvent(QMouseEvent* event)
{
    if (drawing_)
        rectangle_->setRect(QRectF(corner_, mapToScene(event->pos())).normalized());
}

void ImageCropper::mouseReleaseEvent(QMouseEvent* event)
{
    mouseMoveEvent(event);
    drawing_ = false;
}

void ImageCropper::wheelEvent(QWheelEvent* event)
{
    const double factor = event->angleDelta().y() > 0 ? kZoomStep : 1.0 / kZoomStep;
    scale(factor, factor);
    fitted_ = false;
    event->accept();
}

void ImageCropper::resizeEvent(QResizeEvent* event)
{
    QGraphicsView::resizeEvent(event);
    fit();
}

void ImageCropper::showEvent(QShowEvent* event)
{
    QGraphicsView::showEvent(event);
    fit();
}
