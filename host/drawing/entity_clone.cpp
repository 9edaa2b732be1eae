#include "entity_clone.h"

void copyCommon(const NcDbEntity& from, NcDbEntity& to)
{
    HostAccess::color(to) = from.color();
    HostAccess::layer(to) = from.layer();
    HostAccess::linetype(to) = from.linetype();
    HostAccess::visible(to) = from.isVisible();
    const NcObjectData& source = HostAccess::data(from);
    HostAccess::data(to).foreignGroups = source.foreignGroups;
    HostAccess::data(to).xdata = source.xdata;
}
