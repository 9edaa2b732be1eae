// Layers, coordinate systems and views; what is in the other tables is kept.
#include "reader_parts.h"

namespace {

constexpr int kFrozen = 1, kLocked = 4;

void readLayer(DxfEntityFields& fields, NcDbDatabase& database, const DxfRecord& record)
{
    auto layer = std::make_unique<NcDbLayerTableRecord>();
    takeHandles(fields, HostAccess::data(*layer));
    fields.enter("AcDbLayerTableRecord");
    const QString name = fields.word(2);
    const int flags = fields.flags(70, kFrozen | kLocked);
    const int index = fields.integer(62, 7);
    NcCmColor& color = HostAccess::color(*layer);
    color.setColorIndex(qBound(1, std::abs(index), 255));
    if (fields.has(420)) {
        const int rgb = fields.integer(420);
        color.setRGB((rgb >> 16) & 255, (rgb >> 8) & 255, rgb & 255);
    }
    const QString linetype = fields.word(6);
    if (!linetype.isEmpty())
        HostAccess::linetype(*layer) = linetype;
    HostAccess::frozen(*layer) = flags & kFrozen;
    HostAccess::locked(*layer) = flags & kLocked;
    HostAccess::off(*layer) = index < 0;
    keepRest(fields, HostAccess::data(*layer));
    auto& table = *HostAccess::objectAs<NcDbLayerTable>(database.layerTableId());
    if (!name.isEmpty() && HostAccess::recordId(database, table.objectId(), name).isNull())
        HostAccess::addRecord(table, std::move(layer), name, recordHandle(record));
}

void readUcs(DxfEntityFields& fields, NcDbDatabase& database, const DxfRecord& record)
{
    auto ucs = std::make_unique<NcDbUCSTableRecord>();
    takeHandles(fields, HostAccess::data(*ucs));
    fields.enter("AcDbUCSTableRecord");
    const QString name = fields.word(2);
    fields.flags(70, 0);
    HostAccess::origin(*ucs) = fields.point(10);
    HostAccess::xAxis(*ucs) = fields.vector(11, {1, 0, 0});
    HostAccess::yAxis(*ucs) = fields.vector(12, {0, 1, 0});
    keepRest(fields, HostAccess::data(*ucs));
    auto& table = *HostAccess::objectAs<NcDbUCSTable>(database.ucsTableId());
    if (!name.isEmpty())
        HostAccess::addRecord(table, std::move(ucs), name, recordHandle(record));
}

void keepRecord(NcDbDatabase& database, const QString& table, const DxfRecord& record)
{
    auto& tables = HostAccess::data(database).foreignTables;
    for (auto& kept : tables) {
        if (kept.first == table) {
            kept.second.push_back(record);
            return;
        }
    }
    tables.push_back({table, {record}});
}

void readView(DxfEntityFields& fields, NcDbDatabase& database, const DxfRecord& record)
{
    auto view = std::make_unique<NcDbViewportTableRecord>();
    takeHandles(fields, HostAccess::data(*view));
    fields.enter("AcDbViewportTableRecord");
    const QString name = fields.word(2);
    auto& table = *HostAccess::objectAs<NcDbViewportTable>(database.viewportTableId());
    // A screen in several tiles has several records of one name.
    if (name.isEmpty() || !HostAccess::recordId(database, table.objectId(), name).isNull())
        return keepRecord(database, QStringLiteral("VPORT"), record);
    fields.flags(70, 0);
    const NcGePoint3d center = fields.point(12);
    HostAccess::center(*view) = {center.x, center.y};
    HostAccess::height(*view) = fields.real(40, 100.0);
    HostAccess::width(*view) = fields.exact(41, fields.real(41, 1.0) * HostAccess::height(*view));
    HostAccess::ucsOrigin(*view) = fields.point(110);
    HostAccess::ucsX(*view) = fields.vector(111, {1, 0, 0});
    HostAccess::ucsY(*view) = fields.vector(112, {0, 1, 0});
    keepRest(fields, HostAccess::data(*view));
    HostAccess::addRecord(table, std::move(view), name, recordHandle(record));
}

using ReadRecord = void (*)(DxfEntityFields&, NcDbDatabase&, const DxfRecord&);

struct KnownTable {
    const char* name;
    NcDbObjectId NcDatabaseData::*id;
    ReadRecord read; // null: read elsewhere
};

const KnownTable kKnown[] = {
    {"LAYER", &NcDatabaseData::layerTable, readLayer},
    {"UCS", &NcDatabaseData::ucsTable, readUcs},
    {"VPORT", &NcDatabaseData::viewportTable, readView},
    {"BLOCK_RECORD", &NcDatabaseData::blockTable, nullptr},
};

const KnownTable* knownTable(const QString& name)
{
    for (const KnownTable& known : kKnown) {
        if (name == QLatin1String(known.name))
            return &known;
    }
    return nullptr;
}

void keepTable(const DxfTable& table, NcDbDatabase& database)
{
    keepRecord(database, table.name, {QStringLiteral("TABLE"), table.head});
    for (const DxfRecord& record : table.records) {
        keepRecord(database, table.name, record);
        HostAccess::reserveHandle(database, recordHandle(record));
    }
    HostAccess::reserveHandle(database, recordHandle({QStringLiteral("TABLE"), table.head}));
}

void readHead(const DxfTable& table, NcDbObject& object)
{
    HostAccess::setHandle(object, recordHandle({table.name, table.head}));
    DxfFields fields(table.head);
    takeHandles(fields, HostAccess::data(object));
    fields.word(2);
    fields.enter("AcDbSymbolTable");
    fields.integer(70);
    fields.word(2);
    keepRest(fields, HostAccess::data(object));
}

} // namespace

void readTables(const DxfDocument& document, NcDbDatabase& database)
{
    QSet<QString> seen;
    for (const DxfTable& table : document.tables) {
        const KnownTable* known = knownTable(table.name);
        if (!known) {
            keepTable(table, database);
            continue;
        }
        if (!seen.contains(table.name))
            readHead(table, *HostAccess::object(HostAccess::data(database).*(known->id)));
        seen.insert(table.name);
        for (const DxfRecord& record : table.records) {
            DxfEntityFields fields(record.groups);
            if (known->read)
                known->read(fields, database, record);
        }
    }
}
