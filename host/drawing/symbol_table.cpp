#include "append.h"
#include "class_table.h"
#include "host_access.h"
#include "host_faults.h"

NCRX_DEFINE(NcDbSymbolTableRecord, NcDbObject)
NCRX_DEFINE(NcDbSymbolTable, NcDbObject)
NCRX_DEFINE(NcDbLayerTableRecord, NcDbSymbolTableRecord)
NCRX_DEFINE(NcDbLayerTable, NcDbSymbolTable)
NCRX_DEFINE(NcDbBlockTable, NcDbSymbolTable)
NCRX_DEFINE(NcDbUCSTable, NcDbSymbolTable)
NCRX_DEFINE(NcDbViewportTable, NcDbSymbolTable)

namespace {

// Entities know their layer by name.
void renameLayer(NcDbDatabase& database, const QString& from, const QString& to)
{
    for (const auto& entry : HostAccess::data(database).objects) {
        if (!entry.second->isKindOf(NcDbEntity::desc()))
            continue;
        auto& entity = static_cast<NcDbEntity&>(*entry.second);
        if (entity.layer().compare(from, Qt::CaseInsensitive) == 0) {
            HostAccess::noteChange(entity);
            HostAccess::layer(entity) = to;
            HostAccess::touch(entity);
        }
    }
}

// What kind of record a table takes.
const NcRxClass* recordClass(const NcDbSymbolTable& table)
{
    if (table.isKindOf(NcDbLayerTable::desc()))
        return NcDbLayerTableRecord::desc();
    if (table.isKindOf(NcDbBlockTable::desc()))
        return NcDbBlockTableRecord::desc();
    if (table.isKindOf(NcDbUCSTable::desc()))
        return NcDbUCSTableRecord::desc();
    if (table.isKindOf(NcDbViewportTable::desc()))
        return NcDbViewportTableRecord::desc();
    return NcDbSymbolTableRecord::desc();
}

} // namespace

NcStatus NcDbSymbolTableRecord::setName(const QString& name)
{
    if (!writable())
        return NcStatus::NotOpenForWrite;
    if (name.isEmpty())
        return NcStatus::InvalidInput;
    if (!database()) {
        name_ = name;
        return NcStatus::Ok;
    }
    const NcDbObjectId known = HostAccess::recordId(*database(), ownerId(), name);
    if (!known.isNull() && known != objectId())
        return NcStatus::Duplicate;
    if (isKindOf(NcDbLayerTableRecord::desc()))
        renameLayer(*database(), name_, name);
    HostAccess::setName(*this, name);
    changed();
    return NcStatus::Ok;
}

NcStatus NcDbSymbolTableIterator::getRecordId(NcDbObjectId& id) const
{
    if (done())
        return NcStatus::InvalidInput;
    id = ids_[at_];
    return NcStatus::Ok;
}

bool NcDbSymbolTable::has(const QString& name) const { return byName_.contains(name.toCaseFolded()); }

NcStatus NcDbSymbolTable::getAt(const QString& name, NcDbObjectId& id) const
{
    id = byName_.value(name.toCaseFolded());
    return id.isNull() ? NcStatus::NotFound : NcStatus::Ok;
}

NcDbSymbolTableIterator* NcDbSymbolTable::newIterator() const
{
    if (hostFaults().tableIterators)
        return nullptr;
    NcDbObjectIdArray living;
    for (NcDbObjectId id : records_)
        if (HostAccess::isLiving(id))
            living.push_back(id);
    return new NcDbSymbolTableIterator(std::move(living));
}

NcStatus NcDbSymbolTable::add(NcDbObjectId& id, NcDbSymbolTableRecord* record)
{
    if (!record || record->getName().isEmpty() || !record->isKindOf(recordClass(*this)))
        return NcStatus::InvalidInput;
    const NcStatus status = mayAppend(*this, *record);
    if (!isOk(status))
        return status;
    if (has(record->getName()))
        return NcStatus::Duplicate;
    id = HostAccess::addRecord(*this, std::unique_ptr<NcDbSymbolTableRecord>(record), record->getName());
    openAppended(*record);
    changed();
    return NcStatus::Ok;
}

NcDbLayerTableRecord::NcDbLayerTableRecord() : color_(NcCmColor::fromIndex(7)) { }

void NcDbLayerTableRecord::setColor(const NcCmColor& color) { assign(color_, color); }

void NcDbLayerTableRecord::setLinetype(const QString& name)
{
    if (!name.isEmpty())
        assign(linetype_, name);
}

void NcDbLayerTableRecord::setIsLocked(bool locked) { assign(locked_, locked); }

void NcDbLayerTableRecord::setIsOff(bool off) { assign(off_, off); }

void NcDbLayerTableRecord::setIsFrozen(bool frozen) { assign(frozen_, frozen); }
