// Outlines of text: from one font file and without hinting, so that a picture
// is the same on every machine and in every language.
#include "text_painting.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>

namespace {

// Size at which outlines are taken; large, so that rounding does not show.
constexpr int kOutlinePixels = 200;

struct OutlineFont {
    QFont font;
    double capHeight, descent;
};

// The delivered font beside the program, else the system's DejaVu Sans.
QString fontFamily()
{
    const QStringList files = {QStringLiteral("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf")};
    QString wanted = QStringLiteral("DejaVu Sans");
    if (QFontDatabase().families().contains(wanted))
        return wanted;
    for (const QString& file : files) {
        const QStringList families = QFontDatabase::applicationFontFamilies(QFontDatabase::addApplicationFont(file));
        if (!families.isEmpty())
            return families.first();
    }
    return QFont().family();
}

const OutlineFont& outlineFont()
{
    static const OutlineFont made = [] {
        OutlineFont outline;
        outline.font.setFamily(fontFamily());
        outline.font.setPixelSize(kOutlinePixels);
        outline.font.setHintingPreference(QFont::PreferNoHinting);
        outline.font.setStyleStrategy(QFont::ForceOutline);
        const QFontMetricsF metrics(outline.font);
        outline.capHeight = metrics.capHeight();
        outline.descent = metrics.descent();
        return outline;
    }();
    return made;
}

} // namespace

double unitTextWidth(const QString& text)
{
    return QFontMetricsF(outlineFont().font).horizontalAdvance(text) / outlineFont().capHeight;
}

namespace {

// From the font's own frame, y downwards, to the text's: capitals 1 high.
QTransform unitFrame(const FigureText& text)
{
    const OutlineFont& outline = outlineFont();
    const double width = QFontMetricsF(outline.font).horizontalAdvance(text.text);
    const double left[] = {0.0, -0.5 * width, -width};
    const double base[] = {0.0, outline.descent, -0.5 * outline.capHeight, -outline.capHeight};
    QTransform unit;
    unit.scale(1.0 / outline.capHeight, 1.0 / outline.capHeight);
    unit.translate(left[qBound(0, text.horizontal, 2)], base[qBound(0, text.vertical, 3)]);
    unit.scale(1.0, -1.0);
    return unit;
}

} // namespace

QPainterPath textOutline(const FigureText& text)
{
    QPainterPath path;
    path.addText(0.0, 0.0, outlineFont().font, text.text);
    path.setFillRule(Qt::WindingFill);
    return (unitFrame(text) * text.placing).map(path);
}

void paintTextLine(QPainter& painter, const FigureText& text, const QTransform& toDevice, const QColor& color)
{
    painter.save();
    painter.setTransform(unitFrame(text) * text.placing * toDevice, true);
    painter.setFont(outlineFont().font);
    painter.setPen(color);
    painter.drawText(QPointF(0.0, 0.0), text.text);
    painter.restore();
}
