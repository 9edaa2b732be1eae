// The sheet of a drawing and its windows onto the model.
#include "host_commands.h"

#include <drawing/application.h>
#include <drawing/host_access.h>
#include <render/sheet.h>

#include <cmath>

namespace {

bool isOnSheet(const NcDbDatabase& drawing) { return drawing.currentSpaceId() != HostAccess::data(drawing).modelSpace; }

void turnToSpace()
{
    NcDbDatabase* drawing = currentDrawing();
    const QString word = drawing ? askKeyword(QStringLiteral("\nПространство [Модель/Лист] <Модель>: "),
                                              QStringLiteral("Модель Лист _ Model Paper"))
                                 : QString();
    if (word.isNull())
        return;
    NcDatabaseData& data = HostAccess::data(*drawing);
    HostAccess::noteDrawing(*drawing);
    data.currentSpace = word == QLatin1String("Paper") ? data.paperSpace : data.modelSpace;
    ++data.changeCount;
    setCurrentViewport(*drawing, {});
    // The window goes on showing the model: what is drawn meanwhile is seen on the sheet alone.
    sayLine(word == QLatin1String("Paper")
                ? QStringLiteral("Чертите на листе; окно показывает модель, лист виден в окне печати.")
                : QStringLiteral("Чертите в модели."));
}

// The window takes the current coordinate system, and its X axis runs along the sheet.
NcDbViewport* makeWindow(const NcGePoint3d& from, const NcGePoint3d& to, const NcGePoint3d& seen, double scale)
{
    NcGeMatrix3d ucs;
    ncedGetCurrentUCS(ucs);
    NcGePoint3d origin;
    NcGeVector3d x, y, z;
    ucs.getCoordSystem(origin, x, y, z);
    const double angle = std::atan2(x.y, x.x);
    const double height = std::fabs(to.y - from.y);
    auto* window = new NcDbViewport;
    window->setGeometry({(from.x + to.x) / 2, (from.y + to.y) / 2, 0}, std::fabs(to.x - from.x), height);
    window->setTwistAngle(-angle);
    window->setView(
        {seen.x * std::cos(angle) + seen.y * std::sin(angle), -seen.x * std::sin(angle) + seen.y * std::cos(angle)},
        height / scale);
    window->setUcs(origin, x, y);
    return window;
}

bool askScaleText(QString& text)
{
    const int status = ncedGetString(false, QStringLiteral("\nМасштаб (1:500) <1 мм = 1 м>: "), text);
    return status == kPromptNormal || status == kPromptEmpty;
}

// Millimetres of the sheet to a unit of the model, which is a metre: "1:500" is
// 2. A plain number is taken as it stands. 0 for what is no scale.
double viewScale(const QString& text)
{
    if (text.trimmed().isEmpty())
        return 1.0;
    const double scale = readScale(text);
    return text.contains(QLatin1Char(':')) && scale > 0.0 ? 1000.0 / scale : scale;
}

void addWindow()
{
    NcDbDatabase* drawing = currentDrawing();
    if (!drawing)
        return;
    if (!isOnSheet(*drawing))
        return sayLine(QStringLiteral("Видовой экран создаётся на листе."));
    // The sheet is not drawn in the user's coordinate system.
    NcGePoint3d from, to, seen;
    QString text;
    if (ncedGetPoint(nullptr, QStringLiteral("\nПервый угол: "), from) != kPromptNormal
        || ncedGetPoint(&from, QStringLiteral("\nВторой угол: "), to) != kPromptNormal
        || !askPoint(QStringLiteral("\nТочка модели в центре: "), seen) || !askScaleText(text))
        return;
    const double scale = viewScale(text);
    if (from.x == to.x || from.y == to.y || !(scale > 0.0))
        return sayLine(QStringLiteral("Размеры и масштаб должны быть больше нуля."));
    appendToSpace(makeWindow(from, to, seen, scale));
}

} // namespace

const std::vector<HostCommandRow>& sheetCommands()
{
    static const std::vector<HostCommandRow> rows = {{"SPACE", turnToSpace}, {"MVIEW", addWindow}};
    return rows;
}
