#include "entity_picker.h"

#include <nrx/application.h>
#include <render/display_list.h>

namespace {

NcDbDatabase* workingDrawing() { return ncdbHostApplicationServices()->workingDatabase(); }

// The active view's height, for tolerances.
double viewHeight(NcDbDatabase& drawing)
{
    double height = 100.0;
    NcDbViewportTable* table = nullptr;
    NcDbViewportTableRecord* view = nullptr;
    if (isOk(drawing.getSymbolTable(table, kForRead))) {
        if (isOk(table->getAt(QStringLiteral("*Active"), view, kForRead))) {
            height = view->height();
            view->close();
        }
        table->close();
    }
    return height;
}

// What is on screen: model space, or the sheet that the user turned to.
DisplayList currentSpace(const NcDbDatabase& drawing)
{
    NcDbBlockTableRecord* space = nullptr;
    if (!isOk(ncdbOpenObject(space, drawing.currentSpaceId(), kForRead)))
        return recordDrawing(drawing);
    const QString name = space->getName();
    space->close();
    return recordDrawing(drawing, name);
}

QString definitionName(NcDbObjectId reference)
{
    NcDbBlockTableRecord* block = nullptr;
    QString name;
    if (isOk(ncdbOpenObject(block, NcDbDynBlockReference(reference).dynamicBlockTableRecord(), kForRead))) {
        name = block->getName();
        block->close();
    }
    return name;
}

bool fits(const NcDbEntity& entity, const EntityQuery& query)
{
    if (query.handle != 0 && entity.objectId().handle() != query.handle)
        return false;
    if (!query.layer.isEmpty() && entity.layer().compare(query.layer, Qt::CaseInsensitive) != 0)
        return false;
    return query.className.isEmpty() || query.className == QLatin1String(entity.isA()->name());
}

bool fitsBlock(NcDbObjectId id, const EntityQuery& query)
{
    if (!query.block.isEmpty() && definitionName(id).compare(query.block, Qt::CaseInsensitive) != 0)
        return false;
    QString text;
    return query.tag.isEmpty() || (attributeText(id, query.tag, text) && text == query.value);
}

NcDbObjectIdArray spaceEntities(const QString& space)
{
    NcDbObjectIdArray ids;
    NcDbBlockTable* table = nullptr;
    NcDbBlockTableRecord* block = nullptr;
    NcDbDatabase* drawing = workingDrawing();
    if (!drawing || !isOk(drawing->getSymbolTable(table, kForRead)))
        return ids;
    if (isOk(table->getAt(space, block, kForRead))) {
        const std::unique_ptr<NcDbBlockTableRecordIterator> at(block->newIterator());
        for (at->start(); !at->done(); at->step()) {
            NcDbObjectId id;
            if (isOk(at->getEntityId(id)))
                ids.push_back(id);
        }
        block->close();
    }
    table->close();
    return ids;
}

} // namespace

NcDbObjectId pickEntityAt(const NcGePoint3d& world, double tolerance)
{
    NcDbDatabase* drawing = workingDrawing();
    if (!drawing)
        return {};
    const DisplayList list = currentSpace(*drawing);
    return list.hit({world.x, world.y}, tolerance > 0.0 ? tolerance : viewHeight(*drawing) / 200.0);
}

NcDbObjectId pickEntityByText(const QString& text)
{
    EntityQuery query;
    QString error;
    if (!text.startsWith(QLatin1String("handle:")))
        return {};
    if (!parseEntityQuery({QStringLiteral("handle=") + text.mid(7)}, query, error))
        return {};
    const NcDbObjectIdArray found = findEntities(query);
    return found.empty() ? NcDbObjectId() : found.front();
}

NcDbObjectIdArray pickAll()
{
    NcDbDatabase* drawing = workingDrawing();
    return drawing ? currentSpace(*drawing).sources() : NcDbObjectIdArray();
}

NcDbObjectIdArray pickInWindow(const NcGePoint3d& from, const NcGePoint3d& to)
{
    NcGePoint3d first, second;
    NcDbDatabase* drawing = workingDrawing();
    if (!drawing || !ncdbUcs2Wcs(from, first) || !ncdbUcs2Wcs(to, second))
        return {};
    return currentSpace(*drawing).inside(QRectF(QPointF(first.x, first.y), QPointF(second.x, second.y)).normalized());
}

bool parseEntityQuery(const QStringList& words, EntityQuery& query, QString& error)
{
    for (const QString& word : words) {
        const int at = word.indexOf(QLatin1Char('='));
        const QString name = word.left(at), value = word.mid(at + 1);
        bool good = at > 0;
        if (name == QLatin1String("block"))
            query.block = value;
        else if (name == QLatin1String("layer"))
            query.layer = value;
        else if (name == QLatin1String("class"))
            query.className = value;
        else if (name == QLatin1String("handle"))
            query.handle = value.toULongLong(&good, 16);
        else if (query.tag.isEmpty()) {
            query.tag = name;
            query.value = value;
        } else {
            good = false;
        }
        if (!good) {
            error = QStringLiteral("непонятное условие «") + word + QStringLiteral("»");
            return false;
        }
    }
    return true;
}

NcDbObjectIdArray findEntities(const EntityQuery& query)
{
    NcDbObjectIdArray found;
    const bool ofBlock = !query.block.isEmpty() || !query.tag.isEmpty();
    for (const NcDbObjectId id : spaceEntities(QStringLiteral("*Model_Space"))) {
        NcDbEntity* entity = nullptr;
        if (!isOk(ncdbOpenObject(entity, id, kForRead)))
            continue;
        const bool good = fits(*entity, query);
        entity->close();
        if (good && (!ofBlock || fitsBlock(id, query)))
            found.push_back(id);
    }
    return found;
}

bool attributeText(NcDbObjectId reference, const QString& tag, QString& text)
{
    NcDbBlockReference* block = nullptr;
    if (!isOk(ncdbOpenObject(block, reference, kForRead)))
        return false;
    bool found = false;
    const std::unique_ptr<NcDbObjectIterator> at(block->attributeIterator());
    for (; !at->done() && !found; at->step()) {
        NcDbAttribute* attribute = nullptr;
        if (!isOk(ncdbOpenObject(attribute, at->objectId(), kForRead)))
            continue;
        found = attribute->tag() == tag;
        if (found)
            text = attribute->textString();
        attribute->close();
    }
    block->close();
    return found;
}
