// Questions about the drawing: distances, coordinates, areas.
#include "host_commands.h"

#include <drawing/edit_operations.h>

#include <cmath>

namespace {

QString figure(double value) { return QString::number(value, 'f', 3); }

void distance()
{
    NcGePoint3d from, to;
    if (!currentDrawing() || !askPoint(QStringLiteral("\nПервая точка: "), from)
        || !askPoint(QStringLiteral("\nВторая точка: "), to, &from))
        return;
    // Angle and differences as the user's axes lie.
    NcGePoint3d a, b;
    ncdbWcs2Ucs(from, a);
    ncdbWcs2Ucs(to, b);
    double degrees = std::atan2(b.y - a.y, b.x - a.x) * 180.0 / M_PI;
    if (degrees < 0.0)
        degrees += 360.0;
    sayLine(QStringLiteral("Расстояние ") + figure(from.distanceTo(to)) + QStringLiteral(", угол ")
            + QString::number(degrees, 'f', 2) + QStringLiteral("°, dX ") + figure(b.x - a.x) + QStringLiteral(", dY ")
            + figure(b.y - a.y) + QStringLiteral(", dZ ") + figure(b.z - a.z));
}

void coordinates()
{
    NcGePoint3d world, p;
    if (!currentDrawing() || !askPoint(QStringLiteral("\nТочка: "), world))
        return;
    ncdbWcs2Ucs(world, p);
    sayLine(QStringLiteral("X ") + figure(p.x) + QStringLiteral("   Y ") + figure(p.y) + QStringLiteral("   Z ")
            + figure(p.z));
}

void sayArea(const AreaFigures& figures)
{
    sayLine(QStringLiteral("Площадь ") + figure(figures.area) + QStringLiteral(", периметр ") + figure(figures.length));
}

void areaOfObject()
{
    NcSelectionName name;
    NcGePoint3d picked;
    NcDbObjectId id;
    NcDbEntity* entity = nullptr;
    if (ncedEntSel(QStringLiteral("\nОбъект: "), name, picked) != kPromptNormal || !isOk(ncdbGetObjectId(id, name))
        || !isOk(ncdbOpenObject(entity, id, kForRead)))
        return;
    AreaFigures figures;
    const bool has = areaOf(*entity, figures);
    entity->close();
    if (has)
        sayArea(figures);
    else
        sayLine(QStringLiteral("У этого объекта нет площади."));
}

void areaOfPoints()
{
    std::vector<NcGePoint3d> corners;
    NcGePoint3d p;
    while (askPoint(corners.empty() ? QStringLiteral("\nПервая вершина: ") : QStringLiteral("\nСледующая вершина: "), p,
                    corners.empty() ? nullptr : &corners.back()))
        corners.push_back(p);
    if (corners.size() < 3)
        return sayLine(QStringLiteral("Нужно не меньше трёх вершин."));
    sayArea(areaOf(corners));
}

void area()
{
    const QString word = currentDrawing() ? askKeyword(QStringLiteral("\nПлощадь [Точки/Объект] <Точки>: "),
                                                       QStringLiteral("Точки Объект _ Points Object"))
                                          : QString();
    if (word.isNull())
        return;
    if (word == QLatin1String("Object"))
        areaOfObject();
    else
        areaOfPoints();
}

} // namespace

const std::vector<HostCommandRow>& measureCommands()
{
    static const std::vector<HostCommandRow> rows = {
        {"DIST", distance, "DI|РАССТОЯНИЕ"},
        {"ID", coordinates, "КООРДИНАТЫ"},
        {"AREA", area, "AA|ПЛОЩАДЬ"},
    };
    return rows;
}
