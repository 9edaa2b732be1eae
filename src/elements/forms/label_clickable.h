#pragma once
// A label with a picture, or with words in its place; a double click asks for another.

#include <QLabel>
#include <QPixmap>

class QLabelClickable : public QLabel {
    Q_OBJECT

public:
    /// The words of a label without a picture.
    explicit QLabelClickable(const QString& words, QWidget* parent = nullptr);

    /// As it is kept, not as it is shown.
    const QPixmap& photo() const { return photo_; }
    void setPhoto(const QPixmap& photo);

signals:
    void doubleClicked();

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void showPhoto();

    QString words_;
    QPixmap photo_;
};
