// The steps of reading a drawing, in their order.
#pragma once

#include "entity_codec.h"

// Blocks that only show what references of the drawing say by their extension
// data: they are not read.
QSet<QString> foldedBlocks(const DxfDocument& document);

// Whether handles are missing or doubled, so that new ones have to be found
// beyond all of the file's; and the greatest.
bool needsNewHandles(const DxfDocument& document, quint64& greatest);

void readHeader(const DxfDocument& document, NcDbDatabase& database);
// Variables that need layers and blocks to be there.
void readHeaderReferences(const DxfDocument& document, NcDbDatabase& database);
// Layers, coordinate systems and views; the other tables are kept.
void readTables(const DxfDocument& document, NcDbDatabase& database);
// All blocks without what they hold, then what they hold.
void readBlockRecords(const DxfDocument& document, const QSet<QString>& folded, NcDbDatabase& database);
// False when the work was stopped.
bool readEntities(const DxfDocument& document, NcDbDatabase& database);
// Parameters of dynamic blocks, which name entities.
void readDynamicDefinitions(const DxfDocument& document, NcDbDatabase& database);
// Groups and draw orders; all other objects are kept.
void readObjects(const DxfDocument& document, NcDbDatabase& database);
// The dictionaries take the handles of the file before others do.
void readDictionaryHandles(const DxfDocument& document, NcDbDatabase& database);

// A block's name as this system spells it.
QString blockName(const QString& name);
bool isLayoutName(const QString& name);
void takeHandles(DxfFields& fields, NcObjectData& data);
