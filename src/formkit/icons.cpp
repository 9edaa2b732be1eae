#include "formkit/icons.h"

#include "session/project_session.h"

#include <QApplication>
#include <QFileInfo>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

namespace formkit {

namespace {

// As it would have been drawn for a dark window: what was dark is light, and the hue stays.
QImage withLightnessTurned(const QPixmap& picture)
{
    QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = QColor::fromRgba(line[x]).toHsl();
            line[x] =
                QColor::fromHsl(color.hslHue(), color.hslSaturation(), 255 - color.lightness(), color.alpha()).rgba();
        }
    }
    return image;
}

// The set is drawn in dark lines; on dark windows it is shown in light ones, also after the user has changed them.
class WindowIcon : public QIconEngine {
public:
    explicit WindowIcon(const QIcon& drawn) : drawn_(drawn) { }

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State state) override
    {
        const double ratio = painter->device()->devicePixelRatioF();
        painter->drawPixmap(place, pixmap((QSizeF(place.size()) * ratio).toSize(), mode, state));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        const bool dark = QApplication::palette().color(QPalette::Window).lightness() < 128;
        QPixmap picture = drawn_.pixmap(size, mode, state);
        picture.setDevicePixelRatio(1.0);
        return dark ? QPixmap::fromImage(withLightnessTurned(picture)) : picture;
    }

    QIconEngine* clone() const override { return new WindowIcon(drawn_); }

private:
    QIcon drawn_;
};

} // namespace

QIcon icon(const QString& name)
{
    QString path = session().moduleDir + QStringLiteral("icons/") + name + QStringLiteral(".svg");
    path.replace(QLatin1Char('\\'), QLatin1Char('/'));
    return QFileInfo::exists(path) ? QIcon(new WindowIcon(QIcon(path))) : QIcon();
}

} // namespace formkit
