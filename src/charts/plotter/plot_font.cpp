#include "charts/plotter/plot_font.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QHash>
#include <cmath>

namespace {

QString cyrillicFamily()
{
    const QStringList families = QFontDatabase().families(QFontDatabase::Cyrillic);
    QString wanted = QStringLiteral("DejaVu Sans");
    if (families.contains(wanted) || families.isEmpty())
        return wanted;
    const QString own = QGuiApplication::font().family();
    return families.contains(own) ? own : families.first();
}

QFont made(int pixels)
{
    static const QString family = cyrillicFamily();
    QFont font(family);
    font.setPixelSize(pixels);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::PreferAntialias);
    return font;
}

} // namespace

QFont plotFont(double points)
{
    static QHash<int, QFont> fonts;
    const int pixels = qBound(4, int(std::lround(pixelsOfPoints(points))), 200);
    auto found = fonts.find(pixels);
    if (found == fonts.end())
        found = fonts.insert(pixels, made(pixels));
    return *found;
}
