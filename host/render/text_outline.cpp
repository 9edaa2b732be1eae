// Outlines of text: from one font file and without hinting, so that a picture
// is the same on every machine and in every language.
#include "text_painting.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <QRawFont>

#include <map>
#include <unordered_map>
#include <vector>

namespace {

// Size at which outlines are taken; large, so that rounding does not show.
constexpr int kOutlinePixels = 200;
// The rim about a text, in heights of capitals.
constexpr double kRimOfHeight = 0.3;

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

QPainterPath shaped(const QString& text)
{
    const double unit = 1.0 / outlineFont().capHeight;
    QPainterPath path;
    path.addText(0.0, 0.0, outlineFont().font, text);
    return QTransform::fromScale(unit, -unit).map(path);
}

double shapedWidth(const QString& text)
{
    return QFontMetricsF(outlineFont().font).horizontalAdvance(text) / outlineFont().capHeight;
}

// A piece of text held on the left at the base line, capitals 1 high, y upwards.
struct Shape {
    explicit Shape(const QString& text)
        : id(++count()), outline(shaped(text)), box(outline.boundingRect()), width(shapedWidth(text))
    { }

    static quint64& count()
    {
        static quint64 made = 0;
        return made;
    }

    const QPainterPath& thickened()
    {
        if (rim.isEmpty() && !outline.isEmpty()) {
            const double large = outlineFont().capHeight; // the stroker's curves are made for dots
            const QPen pen(Qt::black, kRimOfHeight * large, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
            rim = QTransform::fromScale(1.0 / large, 1.0 / large)
                      .map(QPainterPathStroker(pen).createStroke(QTransform::fromScale(large, large).map(outline)));
        }
        return rim;
    }

    quint64 id;
    QPainterPath outline, rim; // the rim is empty until it was asked for
    QRectF box;
    double width;
};

// Shaping a text costs more than painting it, so it is put together of characters
// that were shaped once, each at the distance that its neighbour asks for.
class ShapedText {
public:
    explicit ShapedText(const QString& text)
    {
        if (!isPlain(text)) {
            shapes_.push_back({&wholeText(text), 0.0});
            width_ = shapes_.back().shape->width;
            return;
        }
        for (int i = 0; i < text.size(); ++i) {
            shapes_.push_back({&character(text[i]), width_});
            width_ += i + 1 < text.size() ? distance(text[i], text[i + 1]) : shapes_.back().shape->width;
        }
    }

    double width() const { return width_; }

    QPainterPath path(const QTransform& placing, bool rim) const
    {
        QPainterPath path;
        for (const Placed& placed : shapes_)
            path.addPath((QTransform::fromTranslate(placed.x, 0.0) * placing)
                             .map(rim ? placed.shape->thickened() : placed.shape->outline));
        path.setFillRule(Qt::WindingFill);
        return path;
    }

    std::vector<TextPiece> pieces(const QTransform& placing) const
    {
        std::vector<TextPiece> pieces;
        pieces.reserve(shapes_.size());
        for (const Placed& placed : shapes_)
            pieces.push_back({placed.shape->id,
                              [shape = placed.shape](bool rim) -> const QPainterPath& {
                                  return rim ? shape->thickened() : shape->outline;
                              },
                              QTransform::fromTranslate(placed.x, 0.0) * placing});
        return pieces;
    }

    QRectF box() const
    {
        QRectF box;
        for (const Placed& placed : shapes_)
            if (!placed.shape->box.isNull())
                box = box.isNull() ? placed.shape->box.translated(placed.x, 0.0)
                                   : box.united(placed.shape->box.translated(placed.x, 0.0));
        return box;
    }

private:
    struct Placed {
        Shape* shape;
        double x;
    };

    // Letters that stand by themselves: no signs above other letters, no ligatures,
    // no writing from the right.
    static bool isPlain(const QString& text)
    {
        for (int i = 0; i < text.size(); ++i) {
            const QChar c = text[i];
            const bool ligature = c == QLatin1Char('f') && i + 1 < text.size() && text[i + 1].isLower();
            const bool known = c.script() == QChar::Script_Common || c.script() == QChar::Script_Latin
                || c.script() == QChar::Script_Cyrillic || c.script() == QChar::Script_Greek;
            if (ligature || !known || c.isMark() || c.isSurrogate())
                return false;
        }
        return true;
    }

    static Shape& character(QChar c)
    {
        static std::unordered_map<ushort, Shape> known;
        return known.try_emplace(c.unicode(), QString(c)).first->second;
    }

    static Shape& wholeText(const QString& text)
    {
        constexpr int kMostKept = 2000;
        static std::map<QString, Shape> known;
        if (known.size() >= kMostKept)
            known.clear();
        return known.try_emplace(text, text).first->second;
    }

    // From the left of a character to that of the next one.
    static double distance(QChar c, QChar next)
    {
        static std::unordered_map<uint, double> known;
        const auto entry = known.try_emplace(uint(c.unicode()) << 16 | next.unicode(), 0.0);
        if (entry.second)
            entry.first->second = shapedWidth(QString(c) + next) - character(next).width;
        return entry.first->second;
    }

    std::vector<Placed> shapes_;
    double width_ = 0.0;
};

// From the text held on the left at its base line to where it is held.
QTransform heldFrame(const FigureText& text, double width)
{
    const double left[] = {0.0, -0.5 * width, -width};
    const double base[] = {0.0, outlineFont().descent / outlineFont().capHeight, -0.5, -1.0};
    return QTransform::fromTranslate(left[qBound(0, text.horizontal, 2)], base[qBound(0, text.vertical, 3)]);
}

QPainterPath placedPath(const FigureText& text, bool rim)
{
    const ShapedText shapes(text.text);
    return shapes.path(heldFrame(text, shapes.width()) * text.placing, rim);
}

} // namespace

double unitTextWidth(const QString& text) { return ShapedText(text).width(); }

QPainterPath textOutline(const FigureText& text) { return placedPath(text, false); }

QPainterPath textRim(const FigureText& text) { return placedPath(text, true); }

std::vector<TextPiece> textPieces(const FigureText& text)
{
    const ShapedText shapes(text.text);
    return shapes.pieces(heldFrame(text, shapes.width()) * text.placing);
}

QRectF textBox(const FigureText& text)
{
    // Its corners suffice where the text lies along an axis.
    const ShapedText shapes(text.text);
    const QTransform placing = heldFrame(text, shapes.width()) * text.placing;
    return placing.type() <= QTransform::TxScale ? placing.mapRect(shapes.box())
                                                 : shapes.path(placing, false).boundingRect();
}

QLineF textBar(const FigureText& text)
{
    const double width = ShapedText(text.text).width();
    return (heldFrame(text, width) * text.placing).map(QLineF(0.0, 0.5, width, 0.5));
}

void paintTextLine(QPainter& painter, const FigureText& text, const QTransform& toDevice, const QColor& color)
{
    painter.save();
    const double unit = 1.0 / outlineFont().capHeight;
    painter.setTransform(
        QTransform::fromScale(unit, -unit) * heldFrame(text, shapedWidth(text.text)) * text.placing * toDevice, true);
    painter.setFont(outlineFont().font);
    painter.setPen(color);
    painter.drawText(QPointF(0.0, 0.0), text.text);
    painter.restore();
}

QRawFont textFont() { return QRawFont::fromFont(outlineFont().font); }

QString textFontName() { return outlineFont().font.family(); }
