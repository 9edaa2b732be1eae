#include "drawing/alignment/drawing_walk.h"

NcDbObjectIdArray recordIds(const NcDbSymbolTable& table)
{
    NcDbObjectIdArray ids;
    const std::unique_ptr<NcDbSymbolTableIterator> records(table.newIterator());
    for (; records && !records->done(); records->step()) {
        NcDbObjectId id;
        if (isOk(records->getRecordId(id)) && !id.isErased())
            ids.push_back(id);
    }
    return ids;
}

NcDbObjectIdArray entityIds(const NcDbBlockTableRecord& block)
{
    NcDbObjectIdArray ids;
    const std::unique_ptr<NcDbBlockTableRecordIterator> entities(block.newIterator());
    for (entities->start(); !entities->done(); entities->step()) {
        NcDbObjectId id;
        if (isOk(entities->getEntityId(id)))
            ids.push_back(id);
    }
    return ids;
}

QString modelSpaceError() { return QStringLiteral("\nerror opening model_space"); }
