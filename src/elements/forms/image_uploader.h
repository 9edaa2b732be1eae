#pragma once
// Takes a picture from the clipboard or a file and cuts out what is wanted.

#include <QDialog>
#include <QPixmap>
#include <optional>

class ImageCropper;
class QLabelClickable;
class QPushButton;

class ImageUploader : public QDialog {
    Q_OBJECT

public:
    explicit ImageUploader(const QPixmap& present, QWidget* parent = nullptr);

    QPixmap pixmap() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void paste();
    void openFile();
    void crop();

    ImageCropper* cropper_;
    QPushButton* ok_;
};

/// Opens the uploader at the size of the label, with its picture; nothing when
/// the user leaves it.
std::optional<QPixmap> askForPicture(QLabelClickable* target);
