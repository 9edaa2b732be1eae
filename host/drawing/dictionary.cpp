// Dictionaries and the groups that stand in one of them.
#include "append.h"
#include "class_table.h"
#include "host_access.h"

#include <algorithm>

NCRX_DEFINE(NcDbDictionary, NcDbObject)
NCRX_DEFINE(NcDbGroup, NcDbObject)

NcStatus NcDbDictionary::setAt(const QString& key, NcDbObject* object, NcDbObjectId& id)
{
    if (!object || key.isEmpty())
        return NcStatus::InvalidInput;
    const NcStatus status = mayAppend(*this, *object);
    if (!isOk(status))
        return status;
    remove(key);
    id = HostAccess::adopt(*database(), std::unique_ptr<NcDbObject>(object), objectId());
    entries_.emplace_back(key, id);
    openAppended(*object);
    changed();
    return NcStatus::Ok;
}

NcStatus NcDbDictionary::getAt(const QString& key, NcDbObjectId& id) const
{
    for (const auto& entry : entries_) {
        if (entry.first == key && !entry.second.isErased()) {
            id = entry.second;
            return NcStatus::Ok;
        }
    }
    id = NcDbObjectId();
    return NcStatus::NotFound;
}

bool NcDbDictionary::has(const QString& key) const
{
    NcDbObjectId id;
    return isOk(getAt(key, id));
}

NcStatus NcDbDictionary::remove(const QString& key)
{
    if (!writable())
        return NcStatus::NotOpenForWrite;
    const auto found =
        std::find_if(entries_.begin(), entries_.end(), [&](const auto& entry) { return entry.first == key; });
    if (found == entries_.end())
        return NcStatus::NotFound;
    if (NcDbObject* object = HostAccess::object(found->second)) {
        HostAccess::noteChange(*object);
        HostAccess::data(*object).erased = true;
        HostAccess::touch(*object);
    }
    entries_.erase(found);
    changed();
    return NcStatus::Ok;
}

std::vector<QString> NcDbDictionary::keys() const
{
    std::vector<QString> names;
    for (const auto& entry : entries_)
        if (!entry.second.isErased())
            names.push_back(entry.first);
    return names;
}

NcStatus NcDbGroup::append(NcDbObjectId id)
{
    if (!writable())
        return NcStatus::NotOpenForWrite;
    if (!HostAccess::objectAs<NcDbEntity>(id) || (database() && id.database() != database()))
        return NcStatus::InvalidInput;
    if (std::find(members_.begin(), members_.end(), id) == members_.end())
        members_.push_back(id);
    changed();
    return NcStatus::Ok;
}

NcStatus NcDbGroup::append(const NcDbObjectIdArray& ids)
{
    NcStatus worst = NcStatus::Ok;
    for (NcDbObjectId id : ids) {
        const NcStatus status = append(id);
        worst = isOk(worst) ? status : worst;
    }
    return worst;
}

NcDbObjectIdArray NcDbGroup::allEntityIds() const
{
    NcDbObjectIdArray living;
    for (NcDbObjectId id : members_)
        if (HostAccess::isLiving(id))
            living.push_back(id);
    return living;
}
