#include "elements/forms/image_uploader.h"

#include "base/placeholders.h"
#include "elements/forms/image_cropper.h"
#include "elements/forms/label_clickable.h"
#include "formkit/boxes.h"
#include "formkit/end_buttons.h"
#include "formkit/file_questions.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImageReader>
#include <QKeyEvent>

using namespace formkit;

ImageUploader::ImageUploader(const QPixmap& present, QWidget* parent)
    : QDialog(parent), cropper_(named<ImageCropper>("Cropper"))
{
    nameForm(this, "ImageUploader", "Загрузка изображения");
    layOut(this).column({
        growing(cropper_),
        note("Hint", "Ctrl+O — открыть файл, Ctrl+V — вставить из буфера. Обведите нужное мышью и нажмите Enter."),
        endButtons(this, {ok(), cancel()}),
    });
    ok_ = disabled(findChild<QPushButton*>("OkBtn"));
    cropper_->setPixmap(present);
    cropper_->setFocus();
}

QPixmap ImageUploader::pixmap() const { return cropper_->pixmap(); }

void ImageUploader::keyPressEvent(QKeyEvent* event)
{
    const bool control = event->modifiers() & Qt::ControlModifier;
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        crop();
    else if (control && (event->key() == Qt::Key_V || event->key() == Qt::Key_Insert))
        paste();
    else if (control && event->key() == Qt::Key_O)
        openFile();
    else
        QDialog::keyPressEvent(event);
}

void ImageUploader::paste()
{
    const QPixmap pasted = QGuiApplication::clipboard()->pixmap();
    if (!pasted.isNull())
        cropper_->setPixmap(pasted);
}

void ImageUploader::openFile()
{
    const QString path = askFileToOpen(this, {"Open Image", "Image Files (*.png *.jpg *.bmp)"});
    if (path.isEmpty())
        return;
    QImageReader reader(path);
    reader.setAutoTransform(true);
    reader.setDecideFormatFromContent(true);
    const QImage image = reader.read();
    if (image.isNull())
        return warn(this, fill("Файл '%1' не удалось прочитать как изображение.", path));
    cropper_->setPixmap(QPixmap::fromImage(image));
}

void ImageUploader::crop()
{
    if (cropper_->crop())
        ok_->setEnabled(true);
}

std::optional<QPixmap> askForPicture(QLabelClickable* target)
{
    ImageUploader uploader(target->photo(), target->window());
    uploader.resize(target->size());
    if (uploader.exec() != QDialog::Accepted)
        return {};
    return uploader.pixmap();
}
