// Dictionaries, groups and draw orders; all other objects are kept.
#include "reader_parts.h"

#include "text_coding.h"

#include <algorithm>

namespace {

struct Entry {
    QString key;
    quint64 handle;
    DxfGroup keyGroup, handleGroup;
};

// The entries of a dictionary; its other groups stay with `fields`.
std::vector<Entry> takeEntries(DxfFields& fields)
{
    std::vector<Entry> entries;
    fields.enter("AcDbDictionary");
    const DxfGroups groups = fields.sequence(3, [](int code) { return code == 3 || code == 350 || code == 360; });
    for (size_t i = 0; i + 1 < groups.size(); ++i) {
        if (groups[i].code == 3 && groups[i + 1].code != 3)
            entries.push_back(
                {fromCaretCoding(groups[i].value), handleOf(groups[i + 1].value), groups[i], groups[i + 1]});
    }
    return entries;
}

const DxfRecord* objectOf(const DxfDocument& document, quint64 handle)
{
    const auto found = std::find_if(document.objects.begin(), document.objects.end(),
                                    [&](const DxfRecord& record) { return recordHandle(record) == handle; });
    return handle && found != document.objects.end() ? &*found : nullptr;
}

// The first dictionary names all others.
const DxfRecord* rootOf(const DxfDocument& document)
{
    const bool there = !document.objects.empty() && document.objects.front().type == QLatin1String("DICTIONARY");
    return there ? &document.objects.front() : nullptr;
}

quint64 groupDictionaryOf(const DxfDocument& document)
{
    const DxfRecord* root = rootOf(document);
    if (!root)
        return 0;
    DxfFields fields(root->groups);
    for (const Entry& entry : takeEntries(fields)) {
        if (entry.key == QLatin1String("ACAD_GROUP") && objectOf(document, entry.handle))
            return entry.handle;
    }
    return 0;
}

// Entries of the root that are not ours stay among its groups.
void readRoot(const DxfRecord& record, quint64 groups, NcDbDatabase& database)
{
    auto& root = *HostAccess::objectAs<NcDbDictionary>(HostAccess::data(database).namedObjects);
    DxfFields fields(record.groups);
    takeHandles(fields, HostAccess::data(root));
    std::vector<Entry> entries = takeEntries(fields);
    keepRest(fields, HostAccess::data(root));
    DxfGroups& kept = HostAccess::data(root).foreignGroups;
    kept.push_back({100, QStringLiteral("AcDbDictionary")});
    for (const Entry& entry : entries) {
        if (entry.handle != groups)
            kept.insert(kept.end(), {entry.keyGroup, entry.handleGroup});
    }
}

void readGroup(const QString& name, const DxfRecord& record, NcDbDatabase& database)
{
    auto& dictionary = *HostAccess::objectAs<NcDbDictionary>(HostAccess::data(database).groupDictionary);
    auto group = std::make_unique<NcDbGroup>();
    DxfFields fields(record.groups);
    takeHandles(fields, HostAccess::data(*group));
    fields.enter("AcDbGroup");
    HostAccess::description(*group) = fields.text(300);
    for (const QString& member : fields.values(340)) {
        const NcDbObjectId id(&database, handleOf(member));
        if (HostAccess::objectAs<NcDbEntity>(id))
            HostAccess::members(*group).push_back(id);
    }
    keepRest(fields, HostAccess::data(*group));
    const NcDbObjectId id = HostAccess::adopt(database, std::move(group), dictionary.objectId(), recordHandle(record));
    HostAccess::entries(dictionary).emplace_back(name, id);
}

QSet<quint64> readGroups(const DxfDocument& document, NcDbDatabase& database)
{
    const DxfRecord* record = objectOf(document, groupDictionaryOf(document));
    if (!record)
        return {};
    auto& dictionary = *HostAccess::objectAs<NcDbDictionary>(HostAccess::data(database).groupDictionary);
    QSet<quint64> done{recordHandle(*record)};
    QHash<quint64, const DxfRecord*> groups;
    for (const DxfRecord& object : document.objects) {
        if (object.type == QLatin1String("GROUP"))
            groups.insert(recordHandle(object), &object);
    }
    DxfFields fields(record->groups);
    takeHandles(fields, HostAccess::data(dictionary));
    for (const Entry& entry : takeEntries(fields)) {
        const DxfRecord* group = groups.value(entry.handle);
        if (!group || done.contains(entry.handle))
            continue;
        readGroup(entry.key, *group, database);
        done.insert(entry.handle);
    }
    keepRest(fields, HostAccess::data(dictionary));
    return done;
}

// Entities from bottom to top: by the handle that the table gives an entity in
// place of its own.
NcDbObjectIdArray drawOrder(const NcDbBlockTableRecord& block, const DxfGroups& pairs)
{
    QHash<quint64, quint64> places;
    for (size_t i = 0; i + 1 < pairs.size(); ++i) {
        if (pairs[i].code == 331 && pairs[i + 1].code == 5)
            places.insert(handleOf(pairs[i].value), handleOf(pairs[i + 1].value));
    }
    NcDbObjectIdArray order = HostAccess::entities(block);
    std::stable_sort(order.begin(), order.end(), [&](NcDbObjectId a, NcDbObjectId b) {
        return places.value(a.handle(), a.handle()) < places.value(b.handle(), b.handle());
    });
    return order;
}

bool readSortents(const DxfRecord& record, NcDbDatabase& database)
{
    DxfFields fields(record.groups);
    NcObjectData data;
    takeHandles(fields, data);
    fields.enter("AcDbSortentsTable");
    auto* block = HostAccess::objectAs<NcDbBlockTableRecord>({&database, fields.handle(330)});
    if (!block || !HostAccess::sortents(*block).isNull())
        return false;
    auto table = std::make_unique<NcDbSortentsTable>();
    HostAccess::block(*table) = block->objectId();
    HostAccess::order(*table) =
        drawOrder(*block, fields.sequence(331, [](int code) { return code == 331 || code == 5; }));
    keepRest(fields, HostAccess::data(*table));
    HostAccess::sortents(*block) =
        HostAccess::adopt(database, std::move(table), block->objectId(), recordHandle(record));
    return true;
}

} // namespace

void readDictionaryHandles(const DxfDocument& document, NcDbDatabase& database)
{
    NcDatabaseData& drawing = HostAccess::data(database);
    const DxfRecord* root = rootOf(document);
    if (!root)
        return;
    // The entry in the root follows while its owner still is what it says.
    NcDbObject& groups = *HostAccess::object(drawing.groupDictionary);
    HostAccess::setHandle(groups, groupDictionaryOf(document));
    HostAccess::setHandle(*HostAccess::object(drawing.namedObjects), recordHandle(*root));
    HostAccess::data(groups).owner = drawing.namedObjects;
}

void readObjects(const DxfDocument& document, NcDbDatabase& database)
{
    const DxfRecord* root = rootOf(document);
    if (root)
        readRoot(*root, groupDictionaryOf(document), database);
    const QSet<quint64> done = readGroups(document, database);
    for (const DxfRecord& record : document.objects) {
        if (&record == root || done.contains(recordHandle(record)))
            continue;
        if (record.type == QLatin1String("SORTENTSTABLE") && readSortents(record, database))
            continue;
        HostAccess::reserveHandle(database, recordHandle(record));
        HostAccess::data(database).foreignObjects.push_back(record);
    }
}
