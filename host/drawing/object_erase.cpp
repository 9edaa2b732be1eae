// Erasing and bringing back, and what has to follow.
#include "host_access.h"
#include "undo.h"

namespace {

// Names of erased records are free again.
void updateNames(NcDbSymbolTableRecord& record)
{
    const NcObjectData& data = HostAccess::data(record);
    if (auto* table = HostAccess::objectAs<NcDbSymbolTable>(data.owner))
        HostAccess::updateName(*table, record);
}

// Attributes of a reference, entities of a block.
NcDbObjectIdArray ownedBy(const NcDbObject& owner)
{
    if (owner.isKindOf(NcDbBlockReference::desc()))
        return HostAccess::attributes(static_cast<const NcDbBlockReference&>(owner));
    if (owner.isKindOf(NcDbBlockTableRecord::desc()))
        return HostAccess::entities(static_cast<const NcDbBlockTableRecord&>(owner));
    return {};
}

// What was erased with its owner comes back with it; what was erased before stays away.
void eraseOwned(const NcDbObject& owner, bool erasing)
{
    for (NcDbObjectId id : ownedBy(owner)) {
        NcDbObject* owned = HostAccess::object(id);
        if (!owned)
            continue;
        NcObjectData& data = HostAccess::data(*owned);
        if (erasing ? data.erased : !data.erasedWithOwner)
            continue;
        HostAccess::noteChange(*owned);
        data.erased = data.erasedWithOwner = erasing;
        eraseOwned(*owned, erasing);
        HostAccess::touch(*owned);
    }
}

bool isLastResort(const NcDbObject& object)
{
    const NcDatabaseData& drawing = HostAccess::data(*object.database());
    const NcDbObjectId id = object.objectId();
    const bool table =
        object.isKindOf(NcDbSymbolTable::desc()) || id == drawing.namedObjects || id == drawing.groupDictionary;
    return table || id == drawing.modelSpace || id == drawing.paperSpace || id == drawing.currentLayer
        || (object.isKindOf(NcDbLayerTableRecord::desc())
            && static_cast<const NcDbLayerTableRecord&>(object).getName() == QLatin1String("0"));
}

// Whether another record took the name while this one was erased.
bool nameTaken(const NcDbObject& object)
{
    if (!object.isKindOf(NcDbSymbolTableRecord::desc()))
        return false;
    const auto& record = static_cast<const NcDbSymbolTableRecord&>(object);
    return !HostAccess::recordId(*object.database(), object.ownerId(), record.getName()).isNull();
}

NcStatus mayChange(const NcDbObject& object, bool erasing)
{
    const NcObjectData& data = HostAccess::data(object);
    if (!data.database)
        return NcStatus::NotInDatabase;
    if (!data.openForWrite)
        return NcStatus::NotOpenForWrite;
    if (!erasing && data.owner.isErased())
        return NcStatus::WasErased;
    if (object.isKindOf(NcDbEntity::desc())) {
        const NcDbLayerTableRecord* layer = HostAccess::layerOf(static_cast<const NcDbEntity&>(object));
        return layer && layer->isLocked() ? NcStatus::OnLockedLayer : NcStatus::Ok;
    }
    if (erasing && isLastResort(object))
        return NcStatus::InvalidInput;
    return !erasing && data.erased && nameTaken(object) ? NcStatus::Duplicate : NcStatus::Ok;
}

} // namespace

NcStatus NcDbObject::erase(bool erasing)
{
    const NcStatus status = mayChange(*this, erasing);
    if (!isOk(status) || data_->erased == erasing)
        return status;
    data_->erased = erasing;
    data_->erasedWithOwner = false;
    eraseOwned(*this, erasing);
    if (isKindOf(NcDbSymbolTableRecord::desc()))
        updateNames(static_cast<NcDbSymbolTableRecord&>(*this));
    changed();
    return NcStatus::Ok;
}

void NcDbObject::changed()
{
    if (!data_->database)
        return;
    NcDatabaseData& drawing = HostAccess::data(*data_->database);
    ++drawing.changeCount;
    if (drawing.loading)
        return;
    if (drawing.journal)
        drawing.journal->noteTouched(*this);
    if (isKindOf(NcDbBlockReference::desc()))
        drawing.index.refresh(static_cast<NcDbBlockReference&>(*this));
    else if (isKindOf(NcDbAttribute::desc()))
        if (auto* reference = HostAccess::objectAs<NcDbBlockReference>(data_->owner))
            drawing.index.refresh(*reference);
    for (DrawingListener* listener : drawing.listeners)
        listener->objectChanged(data_->id());
}
