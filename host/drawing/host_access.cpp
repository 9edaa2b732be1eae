#include "host_access.h"

#include "open_drawings.h"
#include "undo.h"

NcDbObject* HostAccess::object(NcDbObjectId id)
{
    if (id.isNull() || !isDrawingAlive(id.database()))
        return nullptr;
    return data(*id.database()).objects.find(id.handle());
}

bool HostAccess::isLiving(NcDbObjectId id)
{
    const NcDbObject* found = object(id);
    return found && !data(*found).erased;
}

namespace {

// Null while a file is read, too.
UndoJournal* recordingJournal(const NcDbDatabase* database)
{
    const NcDatabaseData* drawing = database ? &HostAccess::data(*database) : nullptr;
    return drawing && !drawing->loading ? drawing->journal.get() : nullptr;
}

} // namespace

void HostAccess::noteChange(NcDbObject& object)
{
    if (UndoJournal* journal = recordingJournal(object.database()))
        journal->note(object);
}

void HostAccess::noteDrawing(NcDbDatabase& database)
{
    if (UndoJournal* journal = recordingJournal(&database))
        journal->noteDrawing();
}

int HostAccess::openObjectCount()
{
    int count = 0;
    for (const NcDbDatabase* database : drawingsAlive())
        count += data(*database).openObjects;
    return count;
}

NcDbObjectId HostAccess::adopt(NcDbDatabase& database, std::unique_ptr<NcDbObject> object, NcDbObjectId owner,
                               quint64 handle)
{
    NcDatabaseData& drawing = data(database);
    noteDrawing(database);
    if (handle == 0 || drawing.objects.find(handle))
        handle = drawing.handleSeed;
    reserveHandle(database, handle);
    NcObjectData& own = data(*object);
    own.database = &database;
    own.handle = handle;
    own.owner = owner;
    own.sequence = drawing.sequenceSeed++;
    drawing.objects.put(handle, std::move(object));
    ++drawing.changeCount;
    if (UndoJournal* journal = recordingJournal(&database))
        journal->noteCreated(own.id());
    return own.id();
}

void HostAccess::reserveHandle(NcDbDatabase& database, quint64 handle)
{
    quint64& seed = data(database).handleSeed;
    if (handle >= seed)
        seed = handle + 1;
}

NcDbObjectId HostAccess::addRecord(NcDbSymbolTable& table, std::unique_ptr<NcDbSymbolTableRecord> record,
                                   const QString& name, quint64 handle)
{
    NcDbSymbolTableRecord& added = *record;
    added.name_ = name;
    const NcDbObjectId id = adopt(*table.database(), std::move(record), table.objectId(), handle);
    if (UndoJournal* journal = recordingJournal(table.database()))
        journal->noteTail(table, table.records_.size());
    table.records_.push_back(id);
    updateName(table, added);
    return id;
}

NcDbObjectId HostAccess::addEntity(NcDbBlockTableRecord& block, std::unique_ptr<NcDbEntity> entity, quint64 handle)
{
    const NcDbObjectId id = adopt(*block.database(), std::move(entity), block.objectId(), handle);
    if (UndoJournal* journal = recordingJournal(block.database()))
        journal->noteTail(block, block.entities_.size());
    block.entities_.push_back(id);
    return id;
}

NcDbObjectId HostAccess::addAttribute(NcDbBlockReference& reference, std::unique_ptr<NcDbAttribute> attribute,
                                      quint64 handle)
{
    noteChange(reference);
    const NcDbObjectId id = adopt(*reference.database(), std::move(attribute), reference.objectId(), handle);
    reference.attributes_.push_back(id);
    if (UndoJournal* journal = recordingJournal(reference.database()))
        journal->noteTouched(reference);
    return id;
}

bool HostAccess::setHandle(NcDbObject& object, quint64 handle)
{
    NcObjectData& own = data(object);
    if (!own.database || handle == 0)
        return false;
    if (own.handle == handle)
        return true;
    NcDatabaseData& drawing = data(*own.database);
    if (drawing.objects.find(handle))
        return false;
    const NcDbObjectId old = own.id();
    drawing.objects.put(handle, drawing.objects.take(own.handle));
    own.handle = handle;
    if (!drawing.loading || handle < Q_UINT64_C(0xFFFFFFFFFFFF0000))
        reserveHandle(*own.database, handle);
    for (NcDbObjectId* known : {&drawing.blockTable, &drawing.layerTable, &drawing.ucsTable, &drawing.viewportTable,
                                &drawing.namedObjects, &drawing.groupDictionary})
        if (*known == old)
            *known = own.id();
    if (auto* parent = objectAs<NcDbDictionary>(own.owner))
        for (auto& entry : parent->entries_)
            if (entry.second == old)
                entry.second = own.id();
    return true;
}

void HostAccess::updateName(NcDbSymbolTable& table, NcDbSymbolTableRecord& record)
{
    const QString folded = record.name_.toCaseFolded();
    const NcDbObjectId id = record.objectId();
    if (!record.isErased() && !table.byName_.contains(folded))
        table.byName_.insert(folded, id);
    else if (record.isErased() && table.byName_.value(folded) == id)
        table.byName_.remove(folded);
}

void HostAccess::rebuildNames(NcDbObjectId tableId)
{
    auto* table = objectAs<NcDbSymbolTable>(tableId);
    if (!table)
        return;
    table->byName_.clear();
    for (NcDbObjectId id : table->records_)
        if (auto* record = objectAs<NcDbSymbolTableRecord>(id))
            updateName(*table, *record);
}

void HostAccess::setName(NcDbSymbolTableRecord& record, const QString& name)
{
    auto* table = objectAs<NcDbSymbolTable>(record.ownerId());
    if (table && table->byName_.value(record.name_.toCaseFolded()) == record.objectId())
        table->byName_.remove(record.name_.toCaseFolded());
    record.name_ = name;
    if (table)
        updateName(*table, record);
}

NcDbObjectId HostAccess::recordId(const NcDbDatabase&, NcDbObjectId table, const QString& name)
{
    const auto* found = objectAs<NcDbSymbolTable>(table);
    return found ? found->byName_.value(name.toCaseFolded()) : NcDbObjectId();
}

const NcDbLayerTableRecord* HostAccess::layerOf(const NcDbEntity& entity)
{
    const NcDbDatabase* database = entity.database();
    return database ? objectAs<NcDbLayerTableRecord>(recordId(*database, data(*database).layerTable, entity.layer()))
                    : nullptr;
}

NcDbEvalVariant HostAccess::evalVariant(int type, const QString& printed)
{
    switch (type) {
    case 40: return NcDbEvalVariant(printed.toDouble());
    case 70: return NcDbEvalVariant(short(printed.toInt()));
    case 90: return NcDbEvalVariant(printed.toInt());
    default: return NcDbEvalVariant(printed);
    }
}
