// A sheet to scale, as a PDF.
#include "plot_command.h"

#include <drawing/host_access.h>
#include <drawing/long_work.h>
#include <render/map_legend.h>

#include <QDate>
#include <QFileInfo>

namespace {

bool askPaper(Sheet& sheet)
{
    const QString names = paperNames().join(QLatin1Char(' '));
    const QString word = askKeyword(QStringLiteral("\nФормат [A4/A3/A2/A1/A0] <A3>: "), names + " _ " + names);
    if (!word.isEmpty())
        sheet.paper = word;
    return !word.isNull();
}

// Enter takes the scale at which everything fits.
bool askScale(Sheet& sheet, const QRectF& all)
{
    QString text;
    const int status = ncedGetString(false, QStringLiteral("\nМасштаб (1:500) <подобрать>: "), text);
    if (status != kPromptNormal && status != kPromptEmpty)
        return false;
    sheet.scale = text.trimmed().isEmpty() ? fittingScale(sheet, all) : readScale(text);
    if (!(sheet.scale > 0.0))
        sayLine(QStringLiteral("Масштаб пишется так: 1:500."));
    return sheet.scale > 0.0;
}

bool askCenter(Sheet& sheet)
{
    NcGePoint3d point;
    const int status = ncedGetPoint(nullptr, QStringLiteral("\nСередина листа <середина чертежа>: "), point);
    NcGePoint3d world;
    if (status == kPromptNormal && ncdbUcs2Wcs(point, world))
        sheet.center = {world.x, world.y};
    return status == kPromptNormal || status == kPromptEmpty;
}

void plot()
{
    NcDbDatabase* drawing = currentDrawing();
    QString path;
    if (!drawing || !askText(QStringLiteral("\nИмя файла листа (pdf): "), path))
        return;
    Sheet sheet;
    sheet.millimetres = drawing->currentSpaceId() == HostAccess::data(*drawing).paperSpace;
    const DisplayList list =
        recordDrawing(*drawing, sheet.millimetres ? QStringLiteral("*Paper_Space") : QStringLiteral("*Model_Space"));
    const QRectF all = list.box();
    sheet.landscape = all.width() >= all.height();
    sheet.center = all.center();
    if (!askPaper(sheet) || !askScale(sheet, all) || !askCenter(sheet))
        return;
    const int status = ncedGetString(true, QStringLiteral("\nНазвание чертежа: "), sheet.title);
    if (status != kPromptNormal && status != kPromptEmpty)
        return;
    sheet.date = QDate::currentDate().toString(QStringLiteral("dd.MM.yyyy"));
    tellMap(*drawing, list, sheet);
    sheet.signs = legendOf(*drawing, list, sheet);
    if (QFileInfo(path).suffix().isEmpty())
        path += QStringLiteral(".pdf");
    const auto shown = showWork(QStringLiteral("Лист в PDF"));
    const QString wrong = writeSheet(sheet, list, path);
    if (!wrong.isEmpty())
        return sayFailure(wrong);
    sayLine(QStringLiteral("Записан лист %1, 1:%2, файл %3")
                .arg(sheet.paper, QString::number(sheet.scale, 'g', 8), QFileInfo(path).fileName()));
}

} // namespace

const std::vector<HostCommandRow>& plotCommands()
{
    static const std::vector<HostCommandRow> rows = {{"PLOT", plot, "ПЕЧАТЬ", 0}};
    return rows;
}
