#include "groups.h"

#include "host_access.h"

#include <algorithm>

NcDbObjectIdArray groupAround(const NcDbDatabase& database, NcDbObjectId entity)
{
    NcDbObjectIdArray around{entity};
    const auto* groups = HostAccess::objectAs<NcDbDictionary>(HostAccess::data(database).groupDictionary);
    if (!groups)
        return around;
    for (const auto& entry : HostAccess::entries(*groups)) {
        const auto* group = HostAccess::objectAs<NcDbGroup>(entry.second);
        if (!group || group->isErased())
            continue;
        const NcDbObjectIdArray& members = HostAccess::members(*group);
        if (std::find(members.begin(), members.end(), entity) == members.end())
            continue;
        for (NcDbObjectId id : group->allEntityIds())
            if (id != entity)
                around.push_back(id);
    }
    std::sort(around.begin(), around.end());
    around.erase(std::unique(around.begin(), around.end()), around.end());
    return around;
}
