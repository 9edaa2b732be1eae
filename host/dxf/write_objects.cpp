// The section of objects.
#include "writer_parts.h"

#include <algorithm>

namespace {

void writeEntries(const NcDbDictionary& dictionary, DxfRecordWriter& out)
{
    for (const auto& entry : HostAccess::entries(dictionary)) {
        const NcDbObject* object = HostAccess::object(entry.second);
        const auto* group = HostAccess::objectAs<NcDbGroup>(entry.second);
        // Other programs take a group of nothing for a fault.
        if (!object || object->isErased() || (group && group->numEntities() == 0))
            continue;
        out.text(3, entry.first);
        out.handle(350, entry.second.handle());
    }
}

void writeDictionary(NcDbObjectId id, quint64 owner, const DxfGroups& more, FileParts& parts)
{
    const auto* dictionary = HostAccess::objectAs<NcDbDictionary>(id);
    if (!dictionary)
        return;
    DxfRecordWriter out(parts.context.out, QStringLiteral("DICTIONARY"), id.handle(), owner,
                        &HostAccess::data(*dictionary), parts.context.isDead);
    out.subclass("AcDbDictionary");
    out.groups({{281, out.takeKept(281).value_or(QStringLiteral("1"))}});
    writeEntries(*dictionary, out);
    out.groups(more);
    out.finish();
}

void writeGroup(const NcDbGroup& group, FileParts& parts)
{
    if (group.numEntities() == 0)
        return;
    DxfRecordWriter out(parts.context.out, QStringLiteral("GROUP"), group.objectId().handle(), group.ownerId().handle(),
                        &HostAccess::data(group), parts.context.isDead);
    out.subclass("AcDbGroup");
    out.text(300, group.description());
    const QString unnamed = out.takeKept(70).value_or(QStringLiteral("0"));
    const QString selectable = out.takeKept(71).value_or(QStringLiteral("1"));
    out.groups({{70, unnamed}, {71, selectable}});
    for (NcDbObjectId id : group.allEntityIds())
        out.handle(340, id.handle());
    out.finish();
}

// The handle that stands for an entity's place is that of the entity which lies
// there by creation.
void writeDrawOrder(const NcDbSortentsTable& table, FileParts& parts)
{
    const NcDbObjectId block = HostAccess::block(table);
    const quint64 owner = parts.completion.orderDictionaryOf(block.handle());
    if (!owner)
        return;
    const NcDbObjectIdArray order = table.getFullDrawOrder();
    NcDbObjectIdArray places = order;
    std::sort(places.begin(), places.end());
    DxfRecordWriter out(parts.context.out, QStringLiteral("SORTENTSTABLE"), table.objectId().handle(), owner,
                        &HostAccess::data(table), parts.context.isDead);
    out.subclass("AcDbSortentsTable");
    out.handle(330, block.handle());
    for (size_t i = 0; i < order.size(); ++i) {
        out.handle(331, order[i].handle());
        out.handle(5, places[i].handle());
    }
    out.finish();
}

void writeOwn(const NcDbObject& object, FileParts& parts)
{
    if (object.isErased())
        return;
    if (object.isA() == NcDbGroup::desc())
        writeGroup(static_cast<const NcDbGroup&>(object), parts);
    else if (object.isA() == NcDbSortentsTable::desc())
        writeDrawOrder(static_cast<const NcDbSortentsTable&>(object), parts);
}

// Their dictionary is entered among the root's entries.
DxfRecords longRecords(FileParts& parts, DxfGroups& entries)
{
    if (parts.longData.empty())
        return {};
    std::vector<quint64> handles;
    for (size_t i = 0; i <= parts.longData.size(); ++i)
        handles.push_back(parts.context.newHandle());
    entries.push_back({3, longDataKey()});
    entries.push_back({350, handleText(handles.front())});
    return longDataRecords(parts.longData, parts.drawing.namedObjects.handle(), handles);
}

} // namespace

void writeObjects(FileParts& parts, DxfWriter& out)
{
    const NcDatabaseData& drawing = parts.drawing;
    DxfGroups entries = parts.completion.rootEntries();
    const DxfRecords longData = longRecords(parts, entries);
    beginSection(parts.context.out, "OBJECTS");
    writeDictionary(drawing.namedObjects, 0, entries, parts);
    writeDictionary(drawing.groupDictionary, drawing.namedObjects.handle(), {}, parts);
    for (const auto& entry : drawing.objects)
        writeOwn(*entry.second, parts);
    for (const DxfRecord& record : parts.completion.objects())
        parts.context.out.record(record);
    for (const DxfRecord& record : longData)
        parts.context.out.record(record);
    endSection(parts.context.out);
    out = std::move(parts.context.out);
    parts.context.out = {};
}
