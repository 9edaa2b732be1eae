// The drawing's own record, and clones by id.
#include "host_access.h"

#include <algorithm>

namespace {

template <class Entries>
auto findKey(Entries& entries, const QString& key)
{
    return std::find_if(entries.begin(), entries.end(), [&](const auto& entry) { return entry.first == key; });
}

} // namespace

NcStatus NcDbDatabaseSummaryInfo::getCustomSummaryInfo(const QString& key, QString& value) const
{
    const auto found = findKey(entries_, key);
    if (found == entries_.end())
        return NcStatus::NotFound;
    value = found->second;
    return NcStatus::Ok;
}

NcStatus NcDbDatabaseSummaryInfo::setCustomSummaryInfo(const QString& key, const QString& value)
{
    const auto found = findKey(entries_, key);
    if (found == entries_.end())
        return NcStatus::NotFound;
    found->second = value;
    return NcStatus::Ok;
}

NcStatus NcDbDatabaseSummaryInfo::addCustomSummaryInfo(const QString& key, const QString& value)
{
    if (key.isEmpty())
        return NcStatus::InvalidInput;
    if (findKey(entries_, key) != entries_.end())
        return NcStatus::Duplicate;
    entries_.emplace_back(key, value);
    return NcStatus::Ok;
}

NcStatus ncdbGetSummaryInfo(NcDbDatabase* database, NcDbDatabaseSummaryInfo& info)
{
    if (!database)
        return NcStatus::InvalidInput;
    info = HostAccess::data(*database).summary;
    return NcStatus::Ok;
}

NcStatus ncdbPutSummaryInfo(NcDbDatabase* database, const NcDbDatabaseSummaryInfo& info)
{
    if (!database)
        return NcStatus::InvalidInput;
    NcDatabaseData& drawing = HostAccess::data(*database);
    HostAccess::noteDrawing(*database);
    drawing.summary = info;
    ++drawing.changeCount;
    return NcStatus::Ok;
}

NcDbObjectId NcDbIdMapping::cloneOf(NcDbObjectId source) const
{
    const auto found = map_.find(source);
    return found == map_.end() ? NcDbObjectId() : found->second;
}
