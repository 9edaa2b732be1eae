#include "hostkit/model_space.h"

#include "hostkit/layers.h"
#include "hostkit/symbol_tables.h"

namespace {

NcDbObjectId append(Opened<NcDbBlockTableRecord> space, std::unique_ptr<NcDbEntity> entity)
{
    const LayerUnlock unlock(entity->layer());
    NcDbObjectId id;
    if (!space || !isOk(space->appendNcDbEntity(id, entity.get())))
        return {};
    entity.release()->close();
    return id;
}

} // namespace

NcDbDatabase* workingDatabase() { return ncdbHostApplicationServices()->workingDatabase(); }

Opened<NcDbBlockTableRecord> openModelSpace(NcOpenMode mode)
{
    return openRecord<NcDbBlockTableRecord, NcDbBlockTable>(QStringLiteral("*Model_Space"), mode);
}

std::optional<NcDbObjectIdArray> entitiesOfModelSpace()
{
    const Opened<NcDbBlockTableRecord> space = openModelSpace(kForRead);
    return space ? std::optional<NcDbObjectIdArray>(entityIds(*space)) : std::nullopt;
}

QString modelSpaceError() { return QStringLiteral("\nerror opening model_space"); }

NcDbObjectIdArray entityIds(const NcDbBlockTableRecord& block)
{
    NcDbObjectIdArray ids;
    const std::unique_ptr<NcDbBlockTableRecordIterator> entities(block.newIterator());
    for (entities->start(); !entities->done(); entities->step()) {
        NcDbObjectId id;
        if (isOk(entities->getEntityId(id)))
            ids.push_back(id);
    }
    return ids;
}

NcDbObjectId appendToModelSpace(std::unique_ptr<NcDbEntity> entity)
{
    return append(openModelSpace(kForWrite), std::move(entity));
}

NcDbObjectId appendToCurrentSpace(std::unique_ptr<NcDbEntity> entity)
{
    return append(Opened<NcDbBlockTableRecord>(workingDatabase()->currentSpaceId(), kForWrite), std::move(entity));
}

NcDbObjectId findBlockReference(const QString& blockName, const QString& tag, const QString& value)
{
    const NcDbObjectIdArray found = workingDatabase()->findBlockReferences(blockName, tag, value);
    return found.empty() ? NcDbObjectId() : found.front();
}
