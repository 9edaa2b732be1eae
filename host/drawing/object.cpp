#include "host_access.h"

bool NcRxClass::isDerivedFrom(const NcRxClass* other) const
{
    for (const NcRxClass* cls = this; cls; cls = cls->parent_)
        if (cls == other)
            return true;
    return false;
}

bool NcDbObjectId::isValid() const { return HostAccess::object(*this) != nullptr; }

bool NcDbObjectId::isErased() const
{
    const NcDbObject* object = HostAccess::object(*this);
    return object && HostAccess::data(*object).erased;
}

NcDbObject::NcDbObject() : data_(std::make_unique<NcObjectData>()) { }

NcDbObject::~NcDbObject() = default;

const NcRxClass* NcDbObject::desc()
{
    static const NcRxClass described("NcDbObject", nullptr);
    return &described;
}

const NcRxClass* NcDbObject::isA() const { return desc(); }

NcDbObjectId NcDbObject::objectId() const { return data_->handle ? data_->id() : NcDbObjectId(); }

NcDbObjectId NcDbObject::ownerId() const { return data_->owner; }

NcDbDatabase* NcDbObject::database() const { return data_->database; }

bool NcDbObject::isErased() const { return data_->erased; }

bool NcDbObject::writable() const { return !data_->database || data_->openForWrite; }

NcStatus NcDbObject::close()
{
    if (!data_->database)
        return NcStatus::NotInDatabase;
    if (!data_->isOpen())
        return NcStatus::InvalidInput;
    if (data_->openForWrite)
        data_->openForWrite = false;
    else
        --data_->readers;
    --HostAccess::data(*data_->database).openObjects;
    return NcStatus::Ok;
}

namespace {

NcStatus openState(const NcObjectData& data, NcOpenMode mode, bool openErased)
{
    if (data.erased && !openErased)
        return NcStatus::WasErased;
    if (data.openForWrite)
        return NcStatus::WasOpenForWrite;
    if (mode == kForWrite && data.readers > 0)
        return NcStatus::WasOpenForRead;
    return NcStatus::Ok;
}

} // namespace

NcStatus ncdbOpenNcDbObject(NcDbObject*& object, NcDbObjectId id, NcOpenMode mode, const NcRxClass* cls,
                            bool openErased)
{
    object = nullptr;
    NcDbObject* found = HostAccess::object(id);
    if (!found)
        return id.isNull() ? NcStatus::InvalidInput : NcStatus::NotFound;
    if (!found->isKindOf(cls))
        return NcStatus::NotThatClass;
    NcObjectData& data = HostAccess::data(*found);
    const NcStatus status = openState(data, mode, openErased);
    if (!isOk(status))
        return status;
    if (mode == kForWrite) {
        HostAccess::noteChange(*found);
        data.openForWrite = true;
    } else {
        ++data.readers;
    }
    ++HostAccess::data(*id.database()).openObjects;
    object = found;
    return NcStatus::Ok;
}

// A selection name holds the drawing's address and the handle.
NcStatus ncdbGetObjectId(NcDbObjectId& id, const NcSelectionName& name)
{
    const NcDbObjectId candidate(reinterpret_cast<NcDbDatabase*>(qintptr(name.part[0])), quint64(name.part[1]));
    if (!candidate.isValid()) {
        id = NcDbObjectId();
        return NcStatus::NotFound;
    }
    id = candidate;
    return NcStatus::Ok;
}

NcStatus ncdbGetAdsName(NcSelectionName& name, NcDbObjectId id)
{
    if (!id.isValid())
        return NcStatus::NotFound;
    name.part[0] = qint64(reinterpret_cast<qintptr>(id.database()));
    name.part[1] = qint64(id.handle());
    return NcStatus::Ok;
}
