// Walking the working drawing: what a table or a block holds, as ids, so that
// nothing of the walk is open while something is done to them.
#pragma once

#include "hostkit/model_space.h"

/// Records that were not erased, in the table's order.
NcDbObjectIdArray recordIds(const NcDbSymbolTable& table);

/// Entities that were not erased, in the order of their creation.
NcDbObjectIdArray entityIds(const NcDbBlockTableRecord& block);

/// Says that model space could not be opened.
QString modelSpaceError();

/// A symbol table of the working drawing; empty when it is held elsewhere.
template <class Table>
Opened<Table> openTable(NcOpenMode mode)
{
    Table* table = nullptr;
    workingDatabase()->getSymbolTable(table, mode);
    return Opened<Table>(table);
}
