#pragma once
// A picture of a chart that is made anew for every size of its label. The right
// mouse button saves or copies it.

#include <QLabel>
#include <functional>

class ChartLabel : public QLabel {
    Q_OBJECT

public:
    /// Null where there is nothing to show.
    using Render = std::function<QPixmap(const QSize& size, double ratio)>;

    /// The words of a label without a picture.
    explicit ChartLabel(const QString& words, QWidget* parent = nullptr);

    /// Made once the label is seen, and again at every new size.
    void setRender(Render render);
    /// The data became others.
    void refresh();
    /// The name that a saved picture is proposed with.
    void setFileName(const QString& name) { fileName_ = name; }

    /// As large as reports take it, or null.
    QPixmap pictureForFile() const;
    /// Asks where; a failure is told.
    void savePicture();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void renderNow();

    QString words_;
    QString fileName_ = QStringLiteral("График");
    Render render_;
};
