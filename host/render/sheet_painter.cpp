// What stands on a sheet beside the drawing.
#include "figure_painter.h"
#include "files/written_file.h"
#include "sheet.h"

#include <drawing/long_work.h>

#include <QBuffer>
#include <QLocale>
#include <QPdfWriter>

namespace {

constexpr double kThick = 0.5, kThin = 0.18, kDrawn = 0.25; // widths of lines
constexpr double kBlockWidth = 185.0, kRow = 8.0, kNarrowBlock = 120.0;
constexpr int kDotsPerInch = 600;
constexpr double kInch = 25.4;

// Painting in millimetres, with texts of a height in millimetres.
class SheetPainter {
public:
    SheetPainter(QPainter& painter, const Sheet& sheet, double dots) : painter_(painter), sheet_(sheet), dots_(dots) { }

    void paint(const DisplayList& list)
    {
        painter_.fillRect(scaled(QRectF(QPointF(0, 0), paperSize(sheet_))), Qt::white);
        paintDrawing(list);
        if (sheet_.frame)
            rectangle(fieldOf(sheet_), kThick);
        double top = fieldOf(sheet_).top() + 5.0;
        if (sheet_.northArrow)
            top = paintArrow(top);
        if (sheet_.scaleBar)
            paintBar();
        if (sheet_.legend && !sheet_.signs.empty())
            paintLegend(top);
        if (sheet_.titleBlock)
            paintBlock();
    }

private:
    QPointF scaled(const QPointF& p) const { return p * dots_; }
    QRectF scaled(const QRectF& r) const { return {r.topLeft() * dots_, r.size() * dots_}; }
    QPen pen(double width, const QColor& color = Qt::black) const
    {
        return QPen(color, width * dots_, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin);
    }

    void paintDrawing(const DisplayList& list)
    {
        const QRectF field = fieldOf(sheet_);
        const double k = millimetresOfUnit(sheet_) * dots_;
        QTransform toDevice;
        toDevice.translate(field.center().x() * dots_, field.center().y() * dots_);
        toDevice.scale(k, -k);
        toDevice.translate(-sheet_.center.x(), -sheet_.center.y());
        PaintStyle style;
        style.lineWidth = kDrawn * dots_;
        style.thinWidth = 0.5 * style.lineWidth;
        style.liveText = true;
        painter_.save();
        painter_.setClipRect(scaled(field));
        paintFiguresOn(list, painter_, toDevice, style, shownWorld(sheet_));
        painter_.restore();
    }

    void rectangle(const QRectF& r, double width, const QBrush& brush = Qt::NoBrush)
    {
        painter_.setPen(pen(width));
        painter_.setBrush(brush);
        painter_.drawRect(scaled(r));
    }

    void line(const QPointF& a, const QPointF& b, double width)
    {
        painter_.setPen(pen(width));
        painter_.drawLine(scaled(a), scaled(b));
    }

    // Made smaller until it fits; what is too long even then is cut with dots.
    void text(const QRectF& place, const QString& words, double height, int flags)
    {
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(qMax(1, qRound(height * 1.35 * dots_)));
        const double wide = QFontMetricsF(font).horizontalAdvance(words), room = place.width() * dots_;
        if (wide > room)
            font.setPixelSize(qMax(qRound(1.8 * dots_), int(font.pixelSize() * room / wide)));
        painter_.setFont(font);
        painter_.setPen(Qt::black);
        painter_.drawText(scaled(place), flags, QFontMetricsF(font).elidedText(words, Qt::ElideRight, room));
    }

    // Over what lies below. Returns how far down it reaches.
    double paintArrow(double top)
    {
        const double x = fieldOf(sheet_).right() - 10.0;
        const QPolygonF left({scaled({x, top + 5.0}), scaled({x, top + 17.0}), scaled({x - 3.5, top + 20.0})});
        const QPolygonF right({scaled({x, top + 5.0}), scaled({x, top + 17.0}), scaled({x + 3.5, top + 20.0})});
        painter_.setPen(pen(kThin));
        painter_.setBrush(Qt::black);
        painter_.drawPolygon(left);
        painter_.setBrush(Qt::white);
        painter_.drawPolygon(right);
        text({x - 5.0, top - 1.0, 10.0, 5.5}, QStringLiteral("С"), 3.5, Qt::AlignCenter);
        return top + 24.0;
    }

    void paintBar()
    {
        const QRectF field = fieldOf(sheet_);
        const double length = barLength(sheet_), part = 0.25 * length * millimetresOfUnit(sheet_);
        const QPointF at(field.left() + 8.0, field.bottom() - 8.0);
        painter_.fillRect(scaled(QRectF(at.x() - 4.0, at.y() - 9.0, 4 * part + 22.0, 14.0)), Qt::white);
        for (int i = 0; i < 4; ++i)
            rectangle({at.x() + i * part, at.y(), part, 2.0}, kThin, i % 2 ? Qt::white : Qt::black);
        const QLocale locale;
        const QString unit = sheet_.millimetres ? QStringLiteral(" мм") : QStringLiteral(" м");
        text({at.x() - 10.0, at.y() - 4.5, 20.0, 4.0}, QStringLiteral("0"), 2.5, Qt::AlignCenter);
        text({at.x() + 2 * part - 10.0, at.y() - 4.5, 20.0, 4.0}, locale.toString(0.5 * length), 2.5, Qt::AlignCenter);
        text({at.x() + 4 * part - 10.0, at.y() - 4.5, 24.0, 4.0}, locale.toString(length) + unit, 2.5, Qt::AlignCenter);
    }

    // In as many columns as it takes, from the right to the left.
    void paintLegend(double top)
    {
        const double width = 55.0, row = 6.0, head = 8.0;
        const QRectF field = fieldOf(sheet_);
        const double bottom = field.bottom() - (sheet_.titleBlock ? 5 * kRow : 0.0) - 2.0;
        const int room = std::max(1, int((bottom - top - head) / row));
        const int count = int(sheet_.signs.size()), columns = (count + room - 1) / room;
        const int rows = (count + columns - 1) / columns;
        const QRectF place(field.right() - columns * width - 3.0, top, columns * width, head + row * rows);
        rectangle(place, kThin, Qt::white);
        text({place.left() + 2.0, place.top() + 1.0, width - 4.0, 5.0}, QStringLiteral("Условные обозначения"), 2.5,
             Qt::AlignVCenter);
        for (int i = 0; i < count; ++i) {
            const int column = i / rows;
            paintSign(sheet_.signs[size_t(i)],
                      {place.left() + column * width, place.top() + head - 1.0 + (i % rows) * row, width, row});
        }
    }

    void paintSign(const Sheet::Sign& sign, const QRectF& place)
    {
        const QRectF patch(place.left() + 2.0, place.top() + 1.0, 9.0, 4.0);
        const bool words = sign.kind == Sheet::Sign::Heading || sign.kind == Sheet::Sign::Note;
        if (sign.kind == Sheet::Sign::Patch) {
            rectangle(patch, kThin, sign.color);
        } else if (sign.kind == Sheet::Sign::Line) {
            painter_.setPen(pen(2 * kDrawn, sign.color));
            painter_.drawLine(scaled({patch.left(), patch.center().y()}), scaled({patch.right(), patch.center().y()}));
        }
        const double left = words ? patch.left() : patch.right() + 2.0;
        text({left, place.top(), place.right() - left - 2.0, place.height()}, sign.text,
             sign.kind == Sheet::Sign::Heading ? 2.5 : 2.2, Qt::AlignVCenter);
    }

    void cell(const QRectF& place, const QString& caption, const QString& words, double height)
    {
        rectangle(place, kThin);
        text({place.left() + 1.0, place.top() + 0.4, place.width() - 2.0, 2.6}, caption, 1.6, Qt::AlignVCenter);
        text({place.left() + 1.5, place.top() + 2.6, place.width() - 3.0, place.height() - 3.0}, words, height,
             Qt::AlignVCenter);
    }

    // Two columns: what is drawn, and how.
    void paintBlock()
    {
        const QRectF field = fieldOf(sheet_);
        const double width = std::min(kBlockWidth, field.width()), right = width * 0.35;
        const bool low = width < kNarrowBlock;
        const QRectF place(field.right() - width, field.bottom() - 5 * kRow, width, 5 * kRow);
        rectangle(place, kThick, Qt::white);
        const double left = place.left(), wide = width - right, second = place.left() + wide;
        cell({left, place.top(), wide, kRow}, QStringLiteral("Организация"), sheet_.organisation, 2.5);
        cell({left, place.top() + kRow, wide, kRow}, QStringLiteral("Объект"), sheet_.project, 2.5);
        cell({left, place.top() + 2 * kRow, wide, 2 * kRow}, QStringLiteral("Чертёж"), sheet_.title, low ? 2.5 : 4.0);
        cell({left, place.top() + 4 * kRow, wide, kRow}, QStringLiteral("Исполнитель"), sheet_.author, 2.5);
        const QString scale = sheet_.millimetres && sheet_.scale == 1.0
            ? QStringLiteral("1:1")
            : QStringLiteral("1:") + QLocale::c().toString(sheet_.scale, 'g', 8).remove(QLatin1Char(','));
        cell({second, place.top(), right / 2, kRow}, QStringLiteral("Масштаб"), scale, 2.8);
        cell({second + right / 2, place.top(), right / 2, kRow}, QStringLiteral("Формат"), sheet_.paper, 2.8);
        cell({second, place.top() + kRow, right, kRow}, QStringLiteral("Цикл"), sheet_.cycle, 2.5);
        cell({second, place.top() + 2 * kRow, right, kRow}, QStringLiteral("Глубина, отметка"), sheet_.depth, 2.5);
        cell({second, place.top() + 3 * kRow, right, 2 * kRow}, QStringLiteral("Дата"), sheet_.date, 2.8);
        rectangle(place, kThick);
    }

    QPainter& painter_;
    const Sheet& sheet_;
    const double dots_;
};

} // namespace

void paintSheet(QPainter& painter, const Sheet& sheet, const DisplayList& list, double dots)
{
    painter.setRenderHint(QPainter::Antialiasing);
    SheetPainter(painter, sheet, dots).paint(list);
}

QString writeSheet(const Sheet& sheet, const DisplayList& list, const QString& path)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    const QSizeF standing = paperSize([&] {
        Sheet upright = sheet;
        upright.landscape = false;
        return upright;
    }());
    writer.setTitle(sheet.title.isEmpty() ? QStringLiteral("Чертёж") : sheet.title);
    writer.setCreator(QStringLiteral("Терва"));
    writer.setResolution(kDotsPerInch);
    writer.setPageSize(QPageSize(standing, QPageSize::Millimeter, sheet.paper, QPageSize::ExactMatch));
    writer.setPageOrientation(sheet.landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    writer.setPageMargins(QMarginsF());
    {
        QPainter painter;
        if (!painter.begin(&writer))
            return QStringLiteral("лист не построен");
        paintSheet(painter, sheet, list, kDotsPerInch / kInch);
    }
    if (LongWork::isStopped())
        return QStringLiteral("Запись отменена.");
    QString problem;
    if (!saveFile(path, bytes, &problem))
        return QStringLiteral("файл «") + path + QStringLiteral("» не записан: ") + problem;
    return {};
}
