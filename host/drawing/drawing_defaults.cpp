// What every drawing has before anything is drawn in it.
#include "host_access.h"

namespace {

template <class Table>
NcDbObjectId addTable(NcDbDatabase& database)
{
    return HostAccess::adopt(database, std::make_unique<Table>(), NcDbObjectId());
}

// The record's id, made when it is not there.
template <class Record>
NcDbObjectId ensureRecord(NcDbDatabase& database, NcDbObjectId table, const QString& name)
{
    const NcDbObjectId known = HostAccess::recordId(database, table, name);
    if (!known.isNull())
        return known;
    return HostAccess::addRecord(*HostAccess::objectAs<NcDbSymbolTable>(table), std::make_unique<Record>(), name);
}

NcDbObjectId ensureLayout(NcDbDatabase& database, const QString& name)
{
    const NcDbObjectId id = ensureRecord<NcDbBlockTableRecord>(database, HostAccess::data(database).blockTable, name);
    HostAccess::layout(*HostAccess::objectAs<NcDbBlockTableRecord>(id)) = true;
    return id;
}

// Handles above this one are out of the way of every file's.
const quint64 kAside = Q_UINT64_C(0xFFFFFFFFFFFF0000);

NcDbObjectIdArray ownObjects(const NcDatabaseData& drawing)
{
    return {drawing.blockTable,    drawing.layerTable,   drawing.ucsTable,
            drawing.viewportTable, drawing.namedObjects, drawing.groupDictionary};
}

// Gives a table another handle, what it owns following.
void moveTo(NcDbDatabase& database, NcDbObjectId id, quint64 handle)
{
    NcDbObject* moved = HostAccess::object(id);
    if (!moved || !HostAccess::setHandle(*moved, handle))
        return;
    for (const auto& entry : HostAccess::data(database).objects) {
        NcDbObjectId& owner = HostAccess::data(*entry.second).owner;
        if (owner == id)
            owner = moved->objectId();
    }
}

bool isLiveLayer(NcDbObjectId id) { return HostAccess::objectAs<NcDbLayerTableRecord>(id) && !id.isErased(); }

} // namespace

void HostAccess::addTables(NcDbDatabase& database)
{
    NcDatabaseData& drawing = data(database);
    drawing.blockTable = addTable<NcDbBlockTable>(database);
    drawing.layerTable = addTable<NcDbLayerTable>(database);
    drawing.ucsTable = addTable<NcDbUCSTable>(database);
    drawing.viewportTable = addTable<NcDbViewportTable>(database);
    drawing.namedObjects = addTable<NcDbDictionary>(database);
    drawing.groupDictionary = adopt(database, std::make_unique<NcDbDictionary>(), drawing.namedObjects);
    objectAs<NcDbDictionary>(drawing.namedObjects)
        ->entries_.emplace_back(QStringLiteral("ACAD_GROUP"), drawing.groupDictionary);
}

void HostAccess::addDefaults(NcDbDatabase& database)
{
    NcDatabaseData& drawing = data(database);
    const NcDbObjectId layer = ensureRecord<NcDbLayerTableRecord>(database, drawing.layerTable, QStringLiteral("0"));
    if (!isLiveLayer(drawing.currentLayer))
        drawing.currentLayer = layer;
    drawing.modelSpace = ensureLayout(database, QStringLiteral("*Model_Space"));
    drawing.paperSpace = ensureLayout(database, QStringLiteral("*Paper_Space"));
    if (!objectAs<NcDbBlockTableRecord>(drawing.currentSpace))
        drawing.currentSpace = drawing.modelSpace;
    ensureRecord<NcDbViewportTableRecord>(database, drawing.viewportTable, QStringLiteral("*Active"));
}

void HostAccess::beginLoading(NcDbDatabase& database)
{
    NcDatabaseData& drawing = data(database);
    drawing.loading = true;
    quint64 aside = kAside;
    for (NcDbObjectId id : ownObjects(drawing))
        moveTo(database, id, ++aside);
    drawing.handleSeed = 1;
}

void HostAccess::finishLoading(NcDbDatabase& database)
{
    NcDatabaseData& drawing = data(database);
    for (NcDbObjectId id : ownObjects(drawing))
        if (id.handle() > kAside)
            moveTo(database, id, drawing.handleSeed);
    addDefaults(database);
    drawing.loading = false;
    drawing.index.clear();
    for (const auto& entry : drawing.objects)
        if (entry.second->isKindOf(NcDbBlockReference::desc()))
            drawing.index.refresh(static_cast<const NcDbBlockReference&>(*entry.second));
    for (DrawingListener* listener : drawing.listeners)
        listener->drawingReplaced();
}
