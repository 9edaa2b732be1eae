#include "hostkit/symbol_tables.h"

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

NcDbObjectId blockDefinition(const QString& name)
{
    const Opened<NcDbBlockTable> table = openTable<NcDbBlockTable>(kForRead);
    NcDbObjectId id;
    return table && isOk(table->getAt(name, id)) ? id : NcDbObjectId();
}
