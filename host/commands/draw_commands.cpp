#include "host_commands.h"

#include <drawing/application.h>
#include <nrx/application.h>

#include <QRegularExpression>

#include <cmath>

namespace {

void drawLine()
{
    NcGePoint3d from, to;
    if (!currentDrawing() || !askPoint(QStringLiteral("\nПервая точка: "), from))
        return;
    while (askPoint(QStringLiteral("\nСледующая точка: "), to, &from)) {
        if (!appendToSpace(new NcDbLine(from, to)))
            return;
        from = to;
    }
}

void drawPolyline()
{
    NcGePoint3d point;
    auto line = std::make_unique<NcDbPolyline>();
    if (!currentDrawing() || !askPoint(QStringLiteral("\nПервая точка: "), point))
        return;
    line->addVertexAt(0, {point.x, point.y});
    line->setElevation(point.z);
    const NcGePoint3d first = point;
    NcGePoint3d next;
    while (askPoint(QStringLiteral("\nСледующая точка (первая точка замыкает): "), next, &point)) {
        if (next == first && line->numVerts() > 2) {
            line->setClosed(true);
            break;
        }
        line->addVertexAt(line->numVerts(), {next.x, next.y});
        point = next;
    }
    if (line->numVerts() > 1)
        appendToSpace(line.release());
}

void drawCircle()
{
    NcGePoint3d center;
    double radius = 0.0;
    if (!currentDrawing() || !askPoint(QStringLiteral("\nЦентр окружности: "), center)
        || !askNumber(QStringLiteral("\nРадиус: "), radius))
        return;
    if (!(radius > 0.0))
        return sayLine(QStringLiteral("Радиус должен быть больше нуля."));
    appendToSpace(new NcDbCircle(center, NcGeVector3d::kZAxis, radius));
}

void drawText()
{
    NcGePoint3d at;
    double height = 0.0, degrees = 0.0;
    QString text;
    if (!currentDrawing() || !askPoint(QStringLiteral("\nНачало текста: "), at)
        || !askNumber(QStringLiteral("\nВысота: "), height))
        return;
    if (ncedGetReal(QStringLiteral("\nПоворот в градусах <0>: "), degrees) == kPromptCancel)
        return;
    if (!(height > 0.0))
        return sayLine(QStringLiteral("Высота должна быть больше нуля."));
    if (askText(QStringLiteral("\nТекст: "), text))
        appendToSpace(new NcDbText(at, text, height, degrees * M_PI / 180.0));
}

int eraseAll(const NcDbObjectIdArray& ids)
{
    int erased = 0;
    for (const NcDbObjectId& id : ids) {
        NcDbEntity* entity = nullptr;
        if (!isOk(ncdbOpenObject(entity, id, kForWrite)))
            continue;
        erased += isOk(entity->erase());
        entity->close();
    }
    return erased;
}

NcDbObjectIdArray membersOf(const NcDbDictionary& groups, const QString& name)
{
    NcDbObjectId id;
    NcDbGroup* group = nullptr;
    if (!isOk(groups.getAt(name, id)) || !isOk(ncdbOpenObject(group, id, kForRead)))
        return {};
    NcDbObjectIdArray members = group->allEntityIds();
    group->close();
    return members;
}

// Groups go with what they hold; one of which something stays, as on a locked
// layer, stays too.
void eraseGroups()
{
    QString mask;
    NcDbDictionary* groups = nullptr;
    if (!currentDrawing() || !askText(QStringLiteral("\nИмя группы (* - любые знаки): "), mask)
        || !isOk(currentDrawing()->getGroupDictionary(groups, kForWrite)))
        return;
    const QRegularExpression wanted(QRegularExpression::wildcardToRegularExpression(mask),
                                    QRegularExpression::CaseInsensitiveOption);
    int gone = 0, kept = 0, entities = 0;
    for (const QString& name : groups->keys()) {
        if (!wanted.match(name).hasMatch())
            continue;
        const NcDbObjectIdArray members = membersOf(*groups, name);
        const int erased = eraseAll(members);
        const bool whole = erased == int(members.size()) && isOk(groups->remove(name));
        entities += erased;
        ++(whole ? gone : kept);
    }
    groups->close();
    sayLine(QStringLiteral("Удалено групп: %1, объектов: %2").arg(gone).arg(entities));
    if (kept > 0)
        sayLine(QStringLiteral("Осталось групп, слой которых закрыт: %1").arg(kept));
}

void select()
{
    NcSelectionSet set;
    const int status = ncedSSGet(QString(), {}, set);
    if (status != kPromptNormal)
        set.ids.clear();
    setPickfirst(set.ids);
    sayLine(QStringLiteral("Выбрано объектов: ") + QString::number(set.ids.size()));
}

} // namespace

const std::vector<HostCommandRow>& drawCommands()
{
    static const std::vector<HostCommandRow> rows = {
        {"LINE", drawLine, "L|ОТРЕЗОК"}, {"PLINE", drawPolyline, "PL|ПЛИНИЯ"}, {"CIRCLE", drawCircle, "C|КРУГ"},
        {"TEXT", drawText, "ТЕКСТ"},     {"SELECT", select, "ВЫБРАТЬ"},        {"ERASEGROUP", eraseGroups, ""},
    };
    return rows;
}
