#include "append.h"

#include "host_access.h"

NcStatus mayAppend(const NcDbObject& owner, const NcDbObject& object)
{
    const NcObjectData& data = HostAccess::data(owner);
    if (!data.database)
        return NcStatus::NotInDatabase;
    if (!data.openForWrite)
        return NcStatus::NotOpenForWrite;
    return object.database() ? NcStatus::AlreadyInDatabase : NcStatus::Ok;
}

void openAppended(NcDbObject& object)
{
    HostAccess::data(object).openForWrite = true;
    ++HostAccess::data(*object.database()).openObjects;
    HostAccess::touch(object);
}
