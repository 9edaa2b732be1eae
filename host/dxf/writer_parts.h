// The sections of a file.
#pragma once

#include "completion.h"
#include "entity_codec.h"

struct FileParts {
    const NcDbDatabase& database;
    const NcDatabaseData& drawing;
    const FileCompletion& completion;
    DxfWriteContext& context;
    std::vector<DxfLongData> longData;
    std::optional<NcGeExtents> extents = {}; // of model space
};

// What a kept table's record or head is written with: the owner of the table.
void writeKeptRecord(const DxfRecord& record, quint64 owner, FileParts& parts);

void writeBlocksAndEntities(FileParts& parts, DxfWriter& blocks, DxfWriter& entities);
// The records of the anonymous blocks are known after their blocks were written.
void writeTables(FileParts& parts, DxfWriter& out);
void writeObjects(FileParts& parts, DxfWriter& out);
// Last of all, since it tells the next free handle.
void writeHeader(FileParts& parts, DxfWriter& out);

void beginSection(DxfWriter& out, const char* name);
void endSection(DxfWriter& out);
