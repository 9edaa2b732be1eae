// The sections of blocks and of entities.
#include "writer_parts.h"

#include <drawing/long_work.h>

#include <algorithm>

namespace {

const QString kBegin = QStringLiteral("AcDbBlockBegin");
constexpr int kAnonymous = 1, kHasDefinitions = 2;
constexpr double kWritten = 0.95; // share of the work of saving a file

struct BlockHead {
    QString name;
    quint64 handle = 0;
    NcGePoint3d origin;
    bool paper = false, anonymous = false, hasDefinitions = false;
    DxfGroups kept;
};

void writeBegin(BlockHead head, FileParts& parts)
{
    NcObjectData data;
    data.foreignGroups = {{100, kBegin}};
    data.foreignGroups.insert(data.foreignGroups.end(), head.kept.begin(), head.kept.end());
    DxfRecordWriter record(parts.context.out, QStringLiteral("BLOCK"), parts.context.newHandle(), head.handle, &data,
                           parts.context.isDead);
    record.subclass("AcDbEntity");
    if (head.paper)
        record.integer(67, 1);
    record.text(8, QStringLiteral("0"));
    record.subclass("AcDbBlockBegin");
    record.text(2, head.name);
    record.flags(70, (head.anonymous ? kAnonymous : 0) | (head.hasDefinitions ? kHasDefinitions : 0),
                 kAnonymous | kHasDefinitions);
    record.point(10, head.origin);
    record.text(3, head.name);
    if (!record.keepsCode(1))
        record.text(1, {});
    record.finish();
}

void writeEnd(const BlockHead& head, FileParts& parts)
{
    DxfRecordWriter record(parts.context.out, QStringLiteral("ENDBLK"), parts.context.newHandle(), head.handle, nullptr,
                           parts.context.isDead);
    record.subclass("AcDbEntity");
    if (head.paper)
        record.integer(67, 1);
    record.text(8, QStringLiteral("0"));
    record.subclass("AcDbBlockEnd");
    record.finish();
}

bool isPaper(const NcDbBlockTableRecord& block, const FileParts& parts)
{
    return block.isLayout() && block.objectId() != parts.drawing.modelSpace;
}

// From bottom to top: many readers draw in the order of the file and look at
// nothing else, and the hatches of a map would hide what lies on them.
NcDbObjectIdArray drawOrderOf(const NcDbBlockTableRecord& block)
{
    const auto* order = HostAccess::objectAs<NcDbSortentsTable>(HostAccess::sortents(block));
    return order && !order->isErased() ? order->getFullDrawOrder() : HostAccess::entities(block);
}

void writeContents(const NcDbBlockTableRecord& block, FileParts& parts)
{
    const NcDbObjectIdArray entities = drawOrderOf(block);
    WorkPart work(entities.size(), 0.0, kWritten);
    for (NcDbObjectId id : entities) {
        if (!work.next())
            return;
        const auto* entity = HostAccess::objectAs<NcDbEntity>(id);
        if (entity && !entity->isErased())
            writeEntity(*entity, id.handle(), block.objectId().handle(), isPaper(block, parts), parts.context);
    }
}

BlockHead headOf(const NcDbBlockTableRecord& block, const FileParts& parts)
{
    const DxfRest rest = restOf(HostAccess::data(block));
    const DxfGroups* kept = rest.body(kBegin);
    BlockHead head;
    head.name = block.getName();
    head.handle = block.objectId().handle();
    head.origin = block.origin();
    head.paper = isPaper(block, parts);
    head.anonymous = block.isAnonymous();
    head.kept = kept ? *kept : DxfGroups();
    const NcDbObjectIdArray& entities = HostAccess::entities(block);
    head.hasDefinitions = std::any_of(entities.begin(), entities.end(), [](NcDbObjectId id) {
        const auto* definition = HostAccess::objectAs<NcDbAttributeDefinition>(id);
        return definition && !definition->isErased();
    });
    return head;
}

// Entities of the two spaces on screen stand in a section of their own.
bool isOnScreen(const NcDbBlockTableRecord& block, const FileParts& parts)
{
    return block.objectId() == parts.drawing.modelSpace || block.objectId() == parts.drawing.paperSpace;
}

void writeBlock(const NcDbBlockTableRecord& block, FileParts& parts)
{
    const BlockHead head = headOf(block, parts);
    writeBegin(head, parts);
    if (!isOnScreen(block, parts))
        writeContents(block, parts);
    writeEnd(head, parts);
}

void writeAnonymous(size_t index, FileParts& parts)
{
    BlockHead head;
    head.name = parts.context.anonymous[index].name;
    head.anonymous = true;
    head.handle = parts.context.newHandle();
    parts.context.anonymous[index].handle = head.handle;
    writeBegin(head, parts);
    // Writing an entity may bring more anonymous blocks, so nothing of the list is held.
    const std::vector<std::unique_ptr<NcDbEntity>> entities = std::move(parts.context.anonymous[index].entities);
    for (const std::unique_ptr<NcDbEntity>& entity : entities)
        writeEntity(*entity, parts.context.newHandle(), head.handle, false, parts.context);
    writeEnd(head, parts);
}

} // namespace

void writeBlocksAndEntities(FileParts& parts, DxfWriter& blocks, DxfWriter& entities)
{
    DxfWriter& out = parts.context.out;
    beginSection(out, "ENTITIES");
    for (NcDbObjectId id : {parts.drawing.modelSpace, parts.drawing.paperSpace}) {
        if (const auto* space = HostAccess::objectAs<NcDbBlockTableRecord>(id))
            writeContents(*space, parts);
    }
    endSection(out);
    entities = std::move(out);
    out = {};
    beginSection(out, "BLOCKS");
    const auto* table = HostAccess::objectAs<NcDbBlockTable>(parts.drawing.blockTable);
    for (NcDbObjectId id : HostAccess::records(*table)) {
        const auto* block = HostAccess::objectAs<NcDbBlockTableRecord>(id);
        if (block && !block->isErased())
            writeBlock(*block, parts);
    }
    for (size_t i = 0; i < parts.context.anonymous.size(); ++i)
        writeAnonymous(i, parts);
    endSection(out);
    blocks = std::move(out);
    out = {};
}
