#include "elements/forms/label_clickable.h"

namespace {

constexpr int kLeastWidth = 240;
constexpr int kLeastHeight = 180;

} // namespace

QLabelClickable::QLabelClickable(const QString& words, QWidget* parent) : QLabel(parent), words_(words)
{
    setMinimumSize(kLeastWidth, kLeastHeight);
    setAlignment(Qt::AlignCenter);
    setFrameShape(QFrame::StyledPanel);
    showPhoto();
}

void QLabelClickable::setPhoto(const QPixmap& photo)
{
    photo_ = photo;
    showPhoto();
}

void QLabelClickable::showPhoto()
{
    if (photo_.isNull())
        setText(words_);
    else
        setPixmap(photo_.scaled(contentsRect().size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

void QLabelClickable::mouseDoubleClickEvent(QMouseEvent*) { emit doubleClicked(); }

void QLabelClickable::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    if (!photo_.isNull())
        showPhoto();
}
