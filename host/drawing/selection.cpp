// Selection sets.
#include "documents.h"
#include "host_access.h"

#include <algorithm>

namespace {

// Names of classes as drawing files and filters write them.
const std::pair<const char*, const char*> kClassNames[] = {
    {"INSERT", "NcDbBlockReference"}, {"CIRCLE", "NcDbCircle"},       {"LINE", "NcDbLine"},
    {"LWPOLYLINE", "NcDbPolyline"},   {"POLYLINE", "NcDb2dPolyline"}, {"ARC", "NcDbArc"},
    {"POINT", "NcDbPoint"},           {"TEXT", "NcDbText"},           {"MTEXT", "NcDbMText"},
    {"HATCH", "NcDbHatch"},           {"ACAD_TABLE", "NcDbTable"},    {"VIEWPORT", "NcDbViewport"}};

bool isOfClass(const NcDbEntity& entity, const QString& wanted)
{
    for (const auto& entry : kClassNames)
        if (wanted.compare(QLatin1String(entry.first), Qt::CaseInsensitive) == 0)
            return qstrcmp(entity.isA()->name(), entry.second) == 0;
    return false;
}

bool passes(const NcDbEntity& entity, const std::vector<NcSelectionFilter>& filter)
{
    return std::all_of(filter.begin(), filter.end(), [&](const NcSelectionFilter& condition) {
        if (condition.code == 8)
            return entity.layer().compare(condition.value, Qt::CaseInsensitive) == 0;
        return condition.code == 0 && isOfClass(entity, condition.value);
    });
}

// The whole drawing: model space, then the layouts; never block definitions.
NcDbObjectIdArray wholeDrawing(const NcDbDatabase& database)
{
    NcDbObjectIdArray ids;
    const auto* table = HostAccess::objectAs<NcDbSymbolTable>(database.blockTableId());
    for (NcDbObjectId blockId : HostAccess::records(*table)) {
        const auto* block = HostAccess::objectAs<NcDbBlockTableRecord>(blockId);
        if (block && block->isLayout())
            ids.insert(ids.end(), HostAccess::entities(*block).begin(), HostAccess::entities(*block).end());
    }
    return ids;
}

void keepLiving(NcDbObjectIdArray& ids, const std::vector<NcSelectionFilter>& filter)
{
    const auto isOut = [&filter](NcDbObjectId id) {
        const auto* entity = HostAccess::objectAs<NcDbEntity>(id);
        return !entity || entity->isErased() || !passes(*entity, filter);
    };
    ids.erase(std::remove_if(ids.begin(), ids.end(), isOut), ids.end());
}

bool isImplied(const QString& mode)
{
    return mode.compare(QLatin1String("_I"), Qt::CaseInsensitive) == 0
        || mode.compare(QLatin1String("I"), Qt::CaseInsensitive) == 0;
}

int candidates(const QString& mode, NcDbObjectIdArray& ids)
{
    const NcDbDatabase* database = ncdbHostApplicationServices()->workingDatabase();
    if (!database)
        return kPromptError;
    if (mode.compare(QLatin1String("X"), Qt::CaseInsensitive) == 0
        || mode.compare(QLatin1String("_X"), Qt::CaseInsensitive) == 0) {
        ids = wholeDrawing(*database);
        return kPromptNormal;
    }
    if (isImplied(mode)) {
        Document* document = Documents::instance().current();
        ids = document ? document->livingPickfirst() : NcDbObjectIdArray();
        return kPromptNormal;
    }
    if (!mode.isEmpty())
        return kPromptError;
    const PromptReply reply = askSelection(QStringLiteral("\nВыберите объекты: "));
    ids = reply.entities;
    return reply.status;
}

} // namespace

NcDbObjectIdArray Document::livingPickfirst()
{
    const quint64 change = HostAccess::data(*database_).changeCount;
    if (walkedAt_ == change)
        return pickfirst_;
    NcDbObjectIdArray ids = pickfirst_;
    keepLiving(ids, {});
    // Another drawing's changes are not counted here.
    const auto isOwn = [this](NcDbObjectId id) { return id.database() == database_.get(); };
    if (ids.size() == pickfirst_.size() && std::all_of(ids.begin(), ids.end(), isOwn))
        walkedAt_ = change;
    return ids;
}

int ncedSSGet(const QString& mode, const std::vector<NcSelectionFilter>& filter, NcSelectionSet& set)
{
    set.ids.clear();
    NcDbObjectIdArray ids;
    const int status = candidates(mode, ids);
    if (status != kPromptNormal)
        return status == kPromptEmpty ? kPromptError : status;
    if (!filter.empty() || !isImplied(mode))
        keepLiving(ids, filter);
    set.ids = std::move(ids);
    return set.ids.empty() ? kPromptError : kPromptNormal;
}

int ncedSSLength(const NcSelectionSet& set) { return int(set.ids.size()); }

int ncedSSName(const NcSelectionSet& set, int index, NcSelectionName& name)
{
    if (index < 0 || size_t(index) >= set.ids.size())
        return kPromptError;
    return isOk(ncdbGetAdsName(name, set.ids[size_t(index)])) ? kPromptNormal : kPromptError;
}

int ncedSSAdd(const NcSelectionName& name, NcSelectionSet& set)
{
    NcDbObjectId id;
    if (!isOk(ncdbGetObjectId(id, name)))
        return kPromptError;
    if (std::find(set.ids.begin(), set.ids.end(), id) == set.ids.end())
        set.ids.push_back(id);
    return kPromptNormal;
}

int ncedSSFree(NcSelectionSet& set)
{
    set.ids.clear();
    return kPromptNormal;
}

int ncedSSSetFirst(const NcSelectionSet& set)
{
    if (!Documents::instance().current())
        return kPromptError;
    setPickfirst(set.ids);
    return kPromptNormal;
}
