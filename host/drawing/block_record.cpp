#include "append.h"
#include "class_table.h"
#include "host_access.h"

NCRX_DEFINE(NcDbBlockTableRecord, NcDbSymbolTableRecord)

NcDbBlockTableRecord::NcDbBlockTableRecord() = default;

NcDbBlockTableRecord::~NcDbBlockTableRecord() = default;

NcStatus NcDbBlockTableRecord::appendNcDbEntity(NcDbObjectId& id, NcDbEntity* entity)
{
    if (!entity || entity->isKindOf(NcDbAttribute::desc()))
        return NcStatus::InvalidInput;
    const NcStatus status = mayAppend(*this, *entity);
    if (!isOk(status))
        return status;
    const NcDbObjectId layerId =
        HostAccess::recordId(*database(), HostAccess::data(*database()).layerTable, entity->layer());
    const auto* layer = HostAccess::objectAs<NcDbLayerTableRecord>(layerId);
    if (!layer)
        return NcStatus::NotFound;
    if (layer->isLocked())
        return NcStatus::OnLockedLayer;
    id = HostAccess::addEntity(*this, std::unique_ptr<NcDbEntity>(entity));
    openAppended(*entity);
    return NcStatus::Ok;
}

NcStatus NcDbBlockTableRecord::appendNcDbEntity(NcDbEntity* entity)
{
    NcDbObjectId id;
    return appendNcDbEntity(id, entity);
}

NcDbBlockTableRecordIterator* NcDbBlockTableRecord::newIterator() const
{
    auto* iterator = new NcDbBlockTableRecordIterator(entities_);
    iterator->start();
    return iterator;
}

bool NcDbBlockTableRecord::isAnonymous() const { return name_.startsWith(QLatin1Char('*')) && !layout_; }

NcDbObjectIdArray NcDbBlockTableRecord::getBlockReferenceIds() const
{
    NcDbObjectIdArray ids;
    if (database())
        for (quint64 handle : HostAccess::data(*database()).index.references(objectId().handle()))
            ids.emplace_back(database(), handle);
    return ids;
}

NcStatus NcDbBlockTableRecord::getSortentsTable(NcDbSortentsTable*& table)
{
    table = nullptr;
    if (!database())
        return NcStatus::NotInDatabase;
    if (!HostAccess::objectAs<NcDbSortentsTable>(sortents_)) {
        HostAccess::noteChange(*this);
        sortents_ = HostAccess::adopt(*database(), std::make_unique<NcDbSortentsTable>(), objectId());
        HostAccess::block(*HostAccess::objectAs<NcDbSortentsTable>(sortents_)) = objectId();
        changed();
    }
    return ncdbOpenObject(table, sortents_, kForWrite);
}

void NcDbBlockTableRecordIterator::start()
{
    at_ = 0;
    while (!done() && !HostAccess::isLiving(ids_[at_]))
        ++at_;
}

void NcDbBlockTableRecordIterator::step()
{
    if (done())
        return;
    do
        ++at_;
    while (!done() && !HostAccess::isLiving(ids_[at_]));
}

NcStatus NcDbBlockTableRecordIterator::getEntity(NcDbEntity*& entity, NcOpenMode mode) const
{
    entity = nullptr;
    return done() ? NcStatus::InvalidInput : ncdbOpenObject(entity, ids_[at_], mode);
}

NcStatus NcDbBlockTableRecordIterator::getEntityId(NcDbObjectId& id) const
{
    if (done())
        return NcStatus::InvalidInput;
    id = ids_[at_];
    return NcStatus::Ok;
}
