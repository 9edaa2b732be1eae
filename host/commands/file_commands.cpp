#include "host_commands.h"

#include <drawing/application.h>
#include <drawing/documents.h>
#include <drawing/edit_operations.h>
#include <drawing/host_access.h>
#include <drawing/long_work.h>
#include <dxf/drawing_file.h>
#include <render/dark_texts.h>
#include <render/picture_export.h>

#include <QFileInfo>

namespace {

void sayFailed(const QString& what, const QString& path) { sayLine(what + QStringLiteral(": ") + path); }

void newDrawing()
{
    QString path;
    const int status = ncedGetString(true, QStringLiteral("\nШаблон <Default.dwt>: "), path);
    if (status != kPromptNormal && status != kPromptEmpty)
        return;
    const QString name = path.isEmpty() ? QStringLiteral("Default.dwt") : path;
    if (isOk(ncDocManagerPtr()->appContextNewDocument(name)))
        return;
    // A drawing without a template is better than none; a named one must be there.
    if (!path.isEmpty() || !isOk(ncDocManagerPtr()->appContextNewDocument(QString())))
        sayFailed(QStringLiteral("Шаблон не открывается"), name);
}

void openDrawing()
{
    QString path;
    if (!askText(QStringLiteral("\nИмя файла чертежа: "), path))
        return;
    const auto shown = showWork(QStringLiteral("Открытие чертежа"));
    if (!isOk(ncDocManagerPtr()->appContextOpenDocument(path))) {
        sayFailed(QStringLiteral("Чертёж не открывается"), path);
        sayLine(drawingFault());
    }
}

void saveUnder(const QString& path)
{
    QString problem;
    const auto shown = showWork(QStringLiteral("Сохранение чертежа"));
    if (!isOk(Documents::instance().saveAs(ncDocManagerPtr()->curDocument(), path, &problem)))
        sayFailure(QStringLiteral("Чертёж не записан: ") + path + QStringLiteral(": ") + problem);
}

void saveDrawingAs()
{
    QString path;
    if (ncDocManagerPtr()->curDocument() && askText(QStringLiteral("\nИмя файла чертежа: "), path))
        saveUnder(path);
}

void saveDrawing()
{
    const auto* document = dynamic_cast<Document*>(ncDocManagerPtr()->curDocument());
    if (!document)
        return;
    if (document->isUntitled())
        saveDrawingAs();
    else
        saveUnder(document->fileName());
}

void closeDrawing()
{
    if (NcApDocument* document = ncDocManagerPtr()->curDocument())
        ncDocManagerPtr()->closeDocument(document);
}

bool askWindow(QRectF& window)
{
    NcGePoint3d first, second;
    if (!askPoint(QStringLiteral("\nПервый угол: "), first)
        || !askPoint(QStringLiteral("\nВторой угол: "), second, &first))
        return false;
    window = QRectF(QPointF(first.x, first.y), QPointF(second.x, second.y)).normalized();
    return window.width() > 0.0 && window.height() > 0.0;
}

bool askPixels(QSize& pixels)
{
    int width = 0, height = 0;
    if (ncedGetInt(QStringLiteral("\nШирина в точках: "), width) != kPromptNormal
        || ncedGetInt(QStringLiteral("\nВысота в точках: "), height) != kPromptNormal)
        return false;
    pixels = QSize(width, height);
    return true;
}

// A copy, so that the drawing itself keeps its attributes.
QString exportWithTexts(const NcDbDatabase& drawing, const QString& path)
{
    NcDbDatabase copy(false);
    HostAccess::beginLoading(copy);
    const NcStatus status = readDrawingBytes(copy, drawingBytes(drawing));
    HostAccess::finishLoading(copy);
    if (!isOk(status))
        return drawingFault();
    attributesToTexts(copy);
    darkenTextsOnFills(copy);
    return isOk(copy.saveAs(path)) ? QString() : QStringLiteral("Файл не записан: ") + path;
}

void exportDrawing()
{
    const QString prompt =
        QStringLiteral("\nВыполнить или [Рамка/Точек/Белый/Черный/Лист/Маленький/ТЕксты] <Выполнить>: ");
    const QString words =
        QStringLiteral("Рамка Точек Белый Черный Лист Маленький ТЕксты _ Window Size White Black Layout Small Texts");
    QString path;
    PictureOptions options;
    bool texts = false; // attributes as texts, in a DXF
    NcDbDatabase* drawing = currentDrawing();
    if (!drawing || !askText(QStringLiteral("\nИмя файла (png, svg, pdf, dxf): "), path))
        return;
    for (;;) {
        const QString word = askKeyword(prompt, words);
        if (word.isNull())
            return;
        if (word.isEmpty())
            break;
        if ((word == QLatin1String("Window") && !askWindow(options.window))
            || (word == QLatin1String("Size") && !askPixels(options.pixels)))
            return;
        if (word == QLatin1String("White") || word == QLatin1String("Black"))
            options.whitePaper = word == QLatin1String("White");
        if (word == QLatin1String("Layout"))
            options.space = QStringLiteral("*Paper_Space");
        if (word == QLatin1String("Small"))
            options.largeSheet = false;
        texts = texts || word == QLatin1String("Texts");
    }
    const auto shown = showWork(QStringLiteral("Экспорт рисунка"));
    const bool isDxf = path.endsWith(QLatin1String(".dxf"), Qt::CaseInsensitive);
    const QString wrong = texts && isDxf ? exportWithTexts(*drawing, path) : exportPicture(*drawing, path, options);
    if (!wrong.isEmpty())
        return sayFailure(wrong);
    sayLine(QStringLiteral("Записан файл ") + QFileInfo(path).fileName());
}

} // namespace

const std::vector<HostCommandRow>& fileCommands()
{
    static const std::vector<HostCommandRow> rows = {
        {"NEW", newDrawing},       {"OPEN", openDrawing},   {"SAVE", saveDrawing},
        {"SAVEAS", saveDrawingAs}, {"CLOSE", closeDrawing}, {"EXPORT", exportDrawing},
    };
    return rows;
}
