#include "entity_figures.h"
#include "text_codes.h"

#include <cmath>

namespace {

// Baselines of a multi-line text stand this far apart, in heights of capitals.
constexpr double kLineStep = 5.0 / 3.0;

QTransform placingAt(const NcGePoint3d& at, double rotation, double xHeight, double height)
{
    QTransform placing;
    placing.translate(at.x, at.y);
    placing.rotateRadians(rotation);
    placing.scale(xHeight, height);
    return placing;
}

// Text stretched between its two points: the whole of it, or its width alone.
void makeFittedText(const NcDbText& text, const QString& line, const FigureFrame& frame)
{
    const NcGeVector3d span = text.alignmentPoint() - text.position();
    const double unit = unitTextWidth(line);
    if (unit <= 0.0)
        return;
    const double xHeight = std::hypot(span.x, span.y) / unit;
    const double height = text.horizontalMode() == NcDbText::kTextAlign ? xHeight : text.height();
    frame.text({line, 0, 0, placingAt(text.position(), std::atan2(span.y, span.x), xHeight, height)});
}

void makeText(const NcDbText& text, const FigureFrame& frame)
{
    const QString line = plainLine(text.textString());
    int horizontal = text.horizontalMode(), vertical = text.verticalMode();
    if (horizontal == NcDbText::kTextAlign || horizontal == NcDbText::kTextFit)
        return makeFittedText(text, line, frame);
    const bool held = horizontal != NcDbText::kTextLeft || vertical != NcDbText::kTextBase;
    if (horizontal == NcDbText::kTextMiddle) {
        horizontal = NcDbText::kTextCenter;
        vertical = NcDbText::kTextVertMid;
    }
    frame.text({line, horizontal, vertical,
                placingAt(held ? text.alignmentPoint() : text.position(), text.rotation(),
                          text.height() * text.widthFactor(), text.height())});
}

// Left and top edge of a block held by its attachment, in units of height.
QPointF blockCorner(const QSizeF& size, int attachment)
{
    const int column = (attachment - 1) % 3, row = (attachment - 1) / 3;
    return {-0.5 * column * size.width(), 0.5 * row * size.height()};
}

void makeMText(const NcDbMText& text, const FigureFrame& frame)
{
    const double height = text.textHeight();
    if (height <= 0.0)
        return;
    const QStringList lines = wrapLines(plainParagraphs(text.contents()), text.width() / height);
    const QTransform placing = placingAt(text.location(), text.rotation(), height, height);
    const QSizeF size = textBlockSize(lines);
    if (text.backgroundFillOn()) {
        const QPointF corner = blockCorner(size, text.attachment());
        const double margin = std::max(0.0, text.backgroundScaleFactor() - 1.0);
        const QRectF box(corner.x(), corner.y() - size.height(), size.width(), size.height());
        frame.ground(placing.map(QPolygonF(box.adjusted(-margin, -margin, margin, margin))));
    }
    makeTextBlock(lines, text.attachment(), placing, frame);
}

} // namespace

QSizeF textBlockSize(const QStringList& lines)
{
    double width = 0.0;
    for (const QString& line : lines)
        width = std::max(width, unitTextWidth(line));
    return {width, 1.0 + kLineStep * (lines.size() - 1)};
}

void makeTextBlock(const QStringList& lines, int attachment, const QTransform& placing, const FigureFrame& frame)
{
    const QPointF corner = blockCorner(textBlockSize(lines), attachment);
    for (int i = 0; i < lines.size(); ++i) {
        FigureText line{lines[i], (attachment - 1) % 3, 0, {}};
        QTransform shift;
        shift.translate(0.0, corner.y() - 1.0 - kLineStep * i);
        line.placing = shift * placing;
        frame.text(line);
    }
}

bool makeTextFigures(const NcDbEntity& entity, const FigureFrame& frame)
{
    if (entity.isKindOf(NcDbAttribute::desc())) {
        const auto& attribute = static_cast<const NcDbAttribute&>(entity);
        if (const std::unique_ptr<NcDbMText> text(attribute.getMTextAttribute()); text)
            makeMText(*text, frame);
        else
            makeText(attribute, frame);
    } else if (entity.isKindOf(NcDbText::desc())) {
        makeText(static_cast<const NcDbText&>(entity), frame);
    } else if (entity.isKindOf(NcDbMText::desc())) {
        makeMText(static_cast<const NcDbMText&>(entity), frame);
    } else {
        return false;
    }
    return true;
}
