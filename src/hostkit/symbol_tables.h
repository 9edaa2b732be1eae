// The tables of the working drawing: layers, blocks, coordinate systems, views.
#pragma once

#include "hostkit/model_space.h"

/// A symbol table of the drawing; empty when it is held elsewhere.
template <class Table>
Opened<Table> openTable(NcDbDatabase& drawing, NcOpenMode mode)
{
    Table* table = nullptr;
    drawing.getSymbolTable(table, mode);
    return Opened<Table>(table);
}

/// The same of the working drawing.
template <class Table>
Opened<Table> openTable(NcOpenMode mode)
{
    return openTable<Table>(*workingDatabase(), mode);
}

/// The record of that name, opened; empty when there is none, or the table or
/// the record is held elsewhere.
template <class Record, class Table>
Opened<Record> openRecord(const QString& name, NcOpenMode mode)
{
    const Opened<Table> table = openTable<Table>(kForRead);
    Record* record = nullptr;
    if (table)
        table->getAt(name, record, mode);
    return Opened<Record>(record);
}

/// Records that were not erased, in the table's order.
NcDbObjectIdArray recordIds(const NcDbSymbolTable& table);

/// The definition of that name; the null id when the drawing has none.
NcDbObjectId blockDefinition(const QString& name);
