#include "drawing_writer.h"

#include "writer_parts.h"

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
    FileParts parts{database, HostAccess::data(database), completion, context, {}};
    DxfWriter header, tables, blocks, entities, objects;
    writeBlocksAndEntities(parts, blocks, entities);
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
