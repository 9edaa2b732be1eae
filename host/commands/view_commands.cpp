#include "host_commands.h"

#include <drawing/application.h>
#include <nrx/application.h>
#include <render/active_view.h>
#include <render/display_list.h>
#include <render/picture_export.h>

namespace {

void zoomExtents(NcDbDatabase& drawing)
{
    const QRectF box = recordDrawing(drawing).box();
    if (!box.isNull())
        setActiveView(drawing, viewOf(box, activeView(drawing)));
}

void zoomCenter(NcDbDatabase& drawing)
{
    NcGePoint3d center;
    ActiveView view = activeView(drawing);
    double height = view.height;
    if (!askPoint(QStringLiteral("\nЦентр вида: "), center))
        return;
    if (ncedGetReal(QStringLiteral("\nВысота вида <") + QString::number(view.height, 'f', 2) + QStringLiteral(">: "),
                    height)
        == kPromptCancel)
        return;
    if (!(height > 0.0))
        return sayLine(QStringLiteral("Высота вида должна быть больше нуля."));
    view.center = {center.x, center.y};
    view.width *= height / view.height;
    view.height = height;
    setActiveView(drawing, view);
}

void zoomWindow(NcDbDatabase& drawing)
{
    NcGePoint3d first, second;
    if (!askPoint(QStringLiteral("\nПервый угол: "), first)
        || !askPoint(QStringLiteral("\nВторой угол: "), second, &first))
        return;
    const QRectF window = QRectF(QPointF(first.x, first.y), QPointF(second.x, second.y)).normalized();
    setActiveView(drawing, viewOf(window, activeView(drawing)));
}

void zoom()
{
    NcDbDatabase* drawing = currentDrawing();
    const QString word = drawing ? askKeyword(QStringLiteral("\nПоказать [Границы/Центр/Рамка] <Границы>: "),
                                              QStringLiteral("Границы Центр Рамка _ Extents Center Window"))
                                 : QString();
    if (word.isNull())
        return;
    if (word == QLatin1String("Center"))
        zoomCenter(*drawing);
    else if (word == QLatin1String("Window"))
        zoomWindow(*drawing);
    else
        zoomExtents(*drawing);
}

void regenerate() { emit HostEvents::instance()->viewChanged(); }

// Gives the current system a name of the drawing.
void nameUcs()
{
    NcDbDatabase* drawing = currentDrawing();
    QString name;
    NcDbUCSTable* table = nullptr;
    if (!drawing || !askText(QStringLiteral("\nИмя системы координат: "), name)
        || !isOk(drawing->getSymbolTable(table, kForWrite)))
        return;
    NcGeMatrix3d matrix;
    NcGePoint3d origin;
    NcGeVector3d x, y, z;
    ncedGetCurrentUCS(matrix);
    matrix.getCoordSystem(origin, x, y, z);
    auto record = std::make_unique<NcDbUCSTableRecord>();
    record->setName(name);
    record->setOrigin(origin);
    record->setXAxis(x);
    record->setYAxis(y);
    NcDbObjectId id;
    if (isOk(table->add(id, record.get())))
        record.release()->close();
    else
        sayLine(QStringLiteral("Имя не принято: ") + name);
    table->close();
}

void setUcs()
{
    const QString word = askKeyword(QStringLiteral("\nСистема координат [Мировая/Точки/Сохранить] <Мировая>: "),
                                    QStringLiteral("Мировая Точки Сохранить _ World Points Save"));
    NcGeMatrix3d matrix;
    if (word.isNull())
        return;
    if (word == QLatin1String("Save"))
        return nameUcs();
    if (word == QLatin1String("Points")) {
        NcGePoint3d origin, along;
        if (!askPoint(QStringLiteral("\nНачало координат: "), origin)
            || !askPoint(QStringLiteral("\nТочка на оси X: "), along, &origin))
            return;
        const NcGeVector3d x = (along - origin).normal();
        if (x.length() == 0.0)
            return sayLine(QStringLiteral("Точки совпадают."));
        matrix.setCoordSystem(origin, x, NcGeVector3d::kZAxis.crossProduct(x), NcGeVector3d::kZAxis);
    }
    ncedSetCurrentUCS(matrix);
}

void screenshot()
{
    QString path;
    QWidget* window = ndsw_ncadMainWnd();
    if (!window)
        return sayLine(QStringLiteral("Снимка окна нет: работа без окна."));
    if (!askText(QStringLiteral("\nИмя файла снимка: "), path))
        return;
    const QString wrong = saveWindowPicture(*window, path);
    if (!wrong.isEmpty())
        sayFailure(wrong);
}

} // namespace

const std::vector<HostCommandRow>& viewCommands()
{
    static const std::vector<HostCommandRow> rows = {
        {"ZOOM", zoom, "Z|ПОКАЗАТЬ"},
        {"REGEN", regenerate, "RE|РЕГЕН"},
        {"UCS", setUcs},
        {"SCREENSHOT", screenshot},
    };
    return rows;
}
