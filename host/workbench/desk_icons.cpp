#include "desk_icons.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

namespace {

const QByteArray kInk = "#37474f", kInkOnDark = "#cfd8dc", kPaper = "#e0f2f1", kPaperOnDark = "#37525a";
const QByteArray kAccent = "#00838f", kAccentOnDark = "#4dd0e1";

bool isDark() { return QApplication::palette().color(QPalette::Window).lightness() < 128; }

// Drawn anew at every size, so that no scale of the screen blurs it.
class DrawnIcon : public QIconEngine {
public:
    explicit DrawnIcon(const QByteArray& drawing) : drawing_(drawing) { }

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State) override
    {
        QByteArray drawing = drawing_;
        if (isDark())
            drawing.replace(kInk, kInkOnDark).replace(kPaper, kPaperOnDark).replace(kAccent, kAccentOnDark);
        painter->save();
        if (mode == QIcon::Disabled)
            painter->setOpacity(0.35);
        QSvgRenderer(drawing).render(painter, place);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return picture;
    }

    QIconEngine* clone() const override { return new DrawnIcon(drawing_); }

private:
    QByteArray drawing_;
};

} // namespace

QIcon deskIcon(const QString& name)
{
    QFile file(QCoreApplication::applicationDirPath() + QStringLiteral("/icons/") + name + QStringLiteral(".svg"));
    return !name.isEmpty() && file.open(QIODevice::ReadOnly) ? QIcon(new DrawnIcon(file.readAll())) : QIcon();
}
