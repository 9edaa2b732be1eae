#include "drawing_reader.h"

#include "long_data.h"
#include "reader_parts.h"
#include "upgrade.h"

namespace {

void addMissingLayer(NcDbDatabase& database, const QString& name)
{
    auto& table = *HostAccess::objectAs<NcDbLayerTable>(database.layerTableId());
    if (!HostAccess::recordId(database, table.objectId(), name).isNull())
        return;
    auto layer = std::make_unique<NcDbLayerTableRecord>();
    HostAccess::color(*layer).setColorIndex(7);
    HostAccess::addRecord(table, std::move(layer), name);
}

// Old files need not tell layers that entities lie on.
void addMissingLayers(NcDbDatabase& database)
{
    QSet<QString> names;
    for (const auto& entry : HostAccess::data(database).objects) {
        if (entry.second->isKindOf(NcDbEntity::desc()))
            names.insert(static_cast<const NcDbEntity&>(*entry.second).layer());
    }
    for (const QString& name : names)
        addMissingLayer(database, name);
}

} // namespace

void takeHandles(DxfFields& fields, NcObjectData& data)
{
    fields.enterHead();
    fields.handle(5);
    fields.handle(105);
    fields.handle(330);
    const DxfGroups dictionary = fields.control(QStringLiteral("ACAD_XDICTIONARY"));
    if (!dictionary.empty())
        data.extensionDictionary = handleOf(dictionary.front().value);
}

void fillDrawing(NcDbDatabase& database, DxfDocument document)
{
    upgradeDocument(document);
    restoreLongData(document);
    quint64 greatest = 0;
    if (needsNewHandles(document, greatest))
        HostAccess::reserveHandle(database, greatest);
    readDictionaryHandles(document, database);
    readHeader(document, database);
    readTables(document, database);
    readBlockRecords(document, foldedBlocks(document), database);
    if (!readEntities(document, database))
        return;
    readDynamicDefinitions(document, database);
    readObjects(document, database);
    addMissingLayers(database);
    readHeaderReferences(document, database);
    NcDatabaseData& drawing = HostAccess::data(database);
    drawing.foreignClasses = std::move(document.classes);
    for (DxfSection& section : document.others)
        drawing.foreignSections.push_back({section.name, std::move(section.groups)});
}
