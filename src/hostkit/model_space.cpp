#include "hostkit/model_space.h"

NcDbDatabase* workingDatabase() { return ncdbHostApplicationServices()->workingDatabase(); }

Opened<NcDbBlockTableRecord> openModelSpace(NcOpenMode mode)
{
    NcDbBlockTable* table = nullptr;
    if (!isOk(workingDatabase()->getSymbolTable(table, kForRead)))
        return {};
    const Opened<NcDbBlockTable> blocks(table);
    NcDbBlockTableRecord* space = nullptr;
    if (!isOk(blocks->getAt(QStringLiteral("*Model_Space"), space, mode)))
        return {};
    return Opened<NcDbBlockTableRecord>(space);
}

std::optional<NcDbObjectIdArray> entitiesOfModelSpace()
{
    const Opened<NcDbBlockTableRecord> space = openModelSpace(kForRead);
    if (!space)
        return {};
    NcDbObjectIdArray ids;
    const std::unique_ptr<NcDbBlockTableRecordIterator> entities(space->newIterator());
    for (entities->start(); !entities->done(); entities->step()) {
        NcDbObjectId id;
        if (isOk(entities->getEntityId(id)))
            ids.push_back(id);
    }
    return ids;
}

NcDbObjectId appendToModelSpace(std::unique_ptr<NcDbEntity> entity)
{
    const Opened<NcDbBlockTableRecord> space = openModelSpace(kForWrite);
    NcDbObjectId id;
    if (!space || !isOk(space->appendNcDbEntity(id, entity.get())))
        return {};
    entity.release()->close();
    return id;
}

NcDbObjectId findBlockReference(const QString& blockName, const QString& tag, const QString& value)
{
    const NcDbObjectIdArray found = workingDatabase()->findBlockReferences(blockName, tag, value);
    return found.empty() ? NcDbObjectId() : found.front();
}
