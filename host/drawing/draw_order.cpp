#include "class_table.h"
#include "host_access.h"

#include <algorithm>
#include <set>

NCRX_DEFINE(NcDbSortentsTable, NcDbObject)

namespace {

NcDbObjectIdArray livingEntities(NcDbObjectId block)
{
    NcDbObjectIdArray living;
    if (const auto* record = HostAccess::objectAs<NcDbBlockTableRecord>(block))
        for (NcDbObjectId id : HostAccess::entities(*record))
            if (HostAccess::isLiving(id))
                living.push_back(id);
    return living;
}

// The present order with the chosen ids put first or last.
NcDbObjectIdArray reordered(const NcDbObjectIdArray& present, const std::set<NcDbObjectId>& chosen, bool bottom)
{
    NcDbObjectIdArray order = present;
    std::stable_partition(order.begin(), order.end(),
                          [&](NcDbObjectId id) { return (chosen.count(id) > 0) == bottom; });
    return order;
}

} // namespace

NcDbObjectIdArray NcDbSortentsTable::getFullDrawOrder() const
{
    const NcDbObjectIdArray living = livingEntities(block_);
    const std::set<NcDbObjectId> inBlock(living.begin(), living.end());
    std::set<NcDbObjectId> placed;
    NcDbObjectIdArray order;
    const auto place = [&](NcDbObjectId id) {
        if (placed.insert(id).second)
            order.push_back(id);
    };
    for (NcDbObjectId id : order_)
        if (inBlock.count(id))
            place(id);
    for (NcDbObjectId id : living)
        place(id);
    return order;
}

NcStatus NcDbSortentsTable::move(const NcDbObjectIdArray& ids, bool bottom)
{
    if (!writable())
        return NcStatus::NotOpenForWrite;
    for (NcDbObjectId id : ids) {
        const auto* entity = HostAccess::objectAs<NcDbEntity>(id);
        if (!entity || entity->ownerId() != block_)
            return NcStatus::InvalidInput;
    }
    return assign(order_, reordered(getFullDrawOrder(), {ids.begin(), ids.end()}, bottom));
}

NcStatus NcDbSortentsTable::moveToBottom(const NcDbObjectIdArray& ids) { return move(ids, true); }

NcStatus NcDbSortentsTable::moveToTop(const NcDbObjectIdArray& ids) { return move(ids, false); }
