#include "picture_export.h"

#include "figure_painter.h"
#include "files/written_file.h"
#include "text_painting.h"
#include "web_font.h"

#include <drawing/long_work.h>
#include <dxf/drawing_file.h>

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QRawFont>
#include <QSvgGenerator>
#include <QWidget>

namespace {

const QString kStopped = QStringLiteral("Запись отменена.");
constexpr int kPdfDotsPerInch = 600;
// Part of the picture left free on each side.
constexpr double kPictureMargin = 0.03;
constexpr double kLineMillimetres = 0.25;

// Files of lines and texts keep their texts; a picture of dots is the same on
// every machine only by outlines.
enum class Texts { Outlines, Live };

PaintStyle styleOf(const PictureOptions& options, double lineWidth, Texts texts)
{
    PaintStyle style;
    style.liveText = texts == Texts::Live;
    style.paper = options.whitePaper ? Qt::white : Qt::black;
    style.lineWidth = lineWidth;
    style.thinWidth = 0.5 * lineWidth;
    return style;
}

void paintPage(const DisplayList& list, QPainter& painter, const QRectF& page, const QRectF& target,
               const PictureOptions& options, double lineWidth, Texts texts)
{
    painter.fillRect(page, options.whitePaper ? Qt::white : Qt::black);
    const QRectF window = options.window.isNull() ? list.box() : options.window;
    if (!options.window.isNull())
        painter.setClipRect(target);
    paintFiguresOn(list, painter, fitWindow(window, target), styleOf(options, lineWidth, texts));
}

QByteArray pngBytes(const DisplayList& list, const PictureOptions& options)
{
    QImage image(options.pixels, QImage::Format_RGB32);
    const QRectF page(QPointF(0, 0), QSizeF(options.pixels));
    const double margin = kPictureMargin * std::min(page.width(), page.height());
    {
        QPainter painter(&image);
        paintPage(list, painter, page, page.adjusted(margin, margin, -margin, -margin), options,
                  std::max(1.0, page.width() / 900.0), Texts::Outlines);
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    return image.save(&buffer, "PNG") ? bytes : QByteArray();
}

// The font goes along, for machines that lack it: its glyphs of the drawing's texts.
void embedFont(const DisplayList& list, QByteArray& svg)
{
    QString characters;
    for (const Figure& figure : list.figures())
        if (figure.kind == Figure::Text)
            characters += figure.text.text;
    const QByteArray font = characters.isEmpty() ? QByteArray() : webFont(textFont(), characters);
    const int at = svg.indexOf("<defs>");
    if (font.isEmpty() || at < 0)
        return;
    svg.insert(at + int(qstrlen("<defs>")),
               "\n<style type=\"text/css\">@font-face { font-family: '" + textFontName().toUtf8()
                   + "'; src: url(data:font/woff;base64," + font.toBase64() + ") format('woff'); }</style>");
}

QByteArray svgBytes(const DisplayList& list, const PictureOptions& options)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setTitle(options.title);
    generator.setSize(options.pixels);
    generator.setViewBox(QRect(QPoint(0, 0), options.pixels));
    const QRectF page(QPointF(0, 0), QSizeF(options.pixels));
    const double margin = kPictureMargin * std::min(page.width(), page.height());
    QPainter painter;
    if (!painter.begin(&generator))
        return {};
    paintPage(list, painter, page, page.adjusted(margin, margin, -margin, -margin), options,
              std::max(1.0, page.width() / 900.0), Texts::Live);
    painter.end();
    embedFont(list, bytes);
    return bytes;
}

QByteArray pdfBytes(const DisplayList& list, const PictureOptions& options)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    const QRectF window = options.window.isNull() ? list.box() : options.window;
    writer.setTitle(options.title);
    writer.setCreator(QStringLiteral("Терва"));
    writer.setResolution(kPdfDotsPerInch);
    writer.setPageSize(QPageSize(options.largeSheet ? QPageSize::A3 : QPageSize::A4));
    writer.setPageOrientation(window.width() >= window.height() ? QPageLayout::Landscape : QPageLayout::Portrait);
    writer.setPageMargins(QMarginsF());
    const QRectF page(0, 0, writer.width(), writer.height());
    const double dots = kPdfDotsPerInch / 25.4, margin = options.marginMillimetres * dots;
    QPainter painter;
    if (!painter.begin(&writer))
        return {};
    paintPage(list, painter, page, page.adjusted(margin, margin, -margin, -margin), options, kLineMillimetres * dots,
              Texts::Live);
    painter.end();
    return bytes;
}

QString saveBytes(const QString& path, const QByteArray& bytes)
{
    QString problem = QStringLiteral("картинка не построена");
    if (!bytes.isEmpty() && saveFile(path, bytes, &problem))
        return {};
    return QStringLiteral("файл «") + path + QStringLiteral("» не записан: ") + problem;
}

} // namespace

QString saveWindowPicture(QWidget& window, const QString& path)
{
    const QFileInfo file(path);
    if (!QDir().mkpath(file.absolutePath()))
        return QStringLiteral("папка «") + file.absolutePath() + QStringLiteral("» не создана");
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!window.grab().save(&buffer, file.suffix().toLatin1().constData()))
        bytes.clear();
    return saveBytes(file.absoluteFilePath(), bytes);
}

QString exportPicture(NcDbDatabase& drawing, const QString& path, const PictureOptions& given)
{
    PictureOptions options = given;
    if (options.title.isEmpty())
        options.title = QFileInfo(path).completeBaseName();
    const QFileInfo file(path);
    const QString ending = file.suffix().toLower();
    if (!QDir().mkpath(file.absolutePath()))
        return QStringLiteral("папка «") + file.absolutePath() + QStringLiteral("» не создана");
    if (ending == QLatin1String("dxf")) {
        const QByteArray text = drawingBytes(drawing);
        return LongWork::isStopped() ? kStopped : saveBytes(file.absoluteFilePath(), text);
    }
    if (ending != QLatin1String("png") && ending != QLatin1String("svg") && ending != QLatin1String("pdf"))
        return QStringLiteral("окончание «") + ending + QStringLiteral("» не png, svg, pdf или dxf");
    if (options.pixels.width() < 16 || options.pixels.height() < 16 || options.pixels.width() > 20000
        || options.pixels.height() > 20000)
        return QStringLiteral("размер картинки должен быть от 16 до 20000 точек");
    const DisplayList list = recordDrawing(drawing, options.space);
    const QByteArray bytes = ending == QLatin1String("png") ? pngBytes(list, options)
        : ending == QLatin1String("svg")                    ? svgBytes(list, options)
                                                            : pdfBytes(list, options);
    if (LongWork::isStopped())
        return kStopped;
    return saveBytes(file.absoluteFilePath(), bytes);
}
