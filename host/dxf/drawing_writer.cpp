#include "drawing_writer.h"

#include "writer_parts.h"

#include <drawing/long_work.h>

#include <algorithm>

namespace {

void writeClasses(const DxfRecords& classes, DxfWriter& out)
{
    beginSection(out, "CLASSES");
    for (const DxfRecord& record : classes)
        out.record(record);
    endSection(out);
}

void writeForeignSections(const NcDatabaseData& drawing, DxfWriter& out)
{
    for (const ForeignSection& section : drawing.foreignSections) {
        beginSection(out, section.name.toUtf8().constData());
        out.groups(section.groups);
        endSection(out);
    }
}

std::optional<NcGeExtents> modelExtents(const NcDatabaseData& drawing)
{
    std::optional<NcGeExtents> all;
    const auto* model = HostAccess::objectAs<NcDbBlockTableRecord>(drawing.modelSpace);
    for (NcDbObjectId id : model ? HostAccess::entities(*model) : NcDbObjectIdArray()) {
        const auto* entity = HostAccess::objectAs<NcDbEntity>(id);
        const auto box = entity && !entity->isErased() ? entity->extents() : std::nullopt;
        if (!box)
            continue;
        if (!all)
            all = box;
        all->min = {std::min(all->min.x, box->min.x), std::min(all->min.y, box->min.y),
                    std::min(all->min.z, box->min.z)};
        all->max = {std::max(all->max.x, box->max.x), std::max(all->max.y, box->max.y),
                    std::max(all->max.z, box->max.z)};
    }
    return all;
}

} // namespace

void beginSection(DxfWriter& out, const char* name)
{
    out.group(0, QStringLiteral("SECTION"));
    out.group(2, QString::fromUtf8(name));
}

void endSection(DxfWriter& out) { out.group(0, QStringLiteral("ENDSEC")); }

QByteArray drawingText(const NcDbDatabase& database)
{
    const FileCompletion completion(database);
    DxfWriteContext context(database, completion.nextHandle());
    context.isDead = [&](quint64 handle) { return completion.isDead(handle); };
    FileParts parts{
        database, HostAccess::data(database), completion, context, {}, modelExtents(HostAccess::data(database))};
    DxfWriter header, tables, blocks, entities, objects;
    writeBlocksAndEntities(parts, blocks, entities);
    if (LongWork::isStopped())
        return {};
    writeTables(parts, tables);
    for (const DxfWriter* section : {&entities, &blocks, &tables})
        parts.longData.insert(parts.longData.end(), section->longData.begin(), section->longData.end());
    writeObjects(parts, objects);
    writeHeader(parts, header);
    DxfWriter classes, rest;
    writeClasses(completion.classes(), classes);
    writeForeignSections(parts.drawing, rest);
    rest.group(0, QStringLiteral("EOF"));
    return header.bytes() + classes.bytes() + tables.bytes() + blocks.bytes() + entities.bytes() + objects.bytes()
        + rest.bytes();
}
