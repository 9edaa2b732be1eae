// The section of tables.
#include "writer_parts.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kFrozen = 1, kLocked = 4;

DxfRecordWriter beginRecord(const NcDbSymbolTableRecord& record, const char* type, const char* subclass, quint64 table,
                            FileParts& parts)
{
    DxfRecordWriter out(parts.context.out, QLatin1String(type), record.objectId().handle(), table,
                        &HostAccess::data(record), parts.context.isDead);
    out.subclass("AcDbSymbolTableRecord");
    out.subclass(subclass);
    out.text(2, record.getName());
    return out;
}

void writeLayer(const NcDbSymbolTableRecord& record, quint64 table, FileParts& parts)
{
    const auto& layer = static_cast<const NcDbLayerTableRecord&>(record);
    DxfRecordWriter out = beginRecord(record, "LAYER", "AcDbLayerTableRecord", table, parts);
    const NcCmColor color = layer.color();
    const int index = color.isByLayer() || color.colorIndex() == 0 ? 7 : color.colorIndex();
    out.flags(70, (layer.isFrozen() ? kFrozen : 0) | (layer.isLocked() ? kLocked : 0), kFrozen | kLocked);
    out.integer(62, layer.isOff() ? -index : index);
    if (color.method() == NcCmColor::kByColor)
        out.integer(420, (color.red() << 16) | (color.green() << 8) | color.blue());
    out.text(6, layer.linetype());
    if (!out.keepsCode(370))
        out.integer(370, -3);
    if (!out.keepsCode(390) && parts.completion.plotStyle())
        out.handle(390, parts.completion.plotStyle());
    out.finish();
}

void writeUcs(const NcDbSymbolTableRecord& record, quint64 table, FileParts& parts)
{
    const auto& ucs = static_cast<const NcDbUCSTableRecord&>(record);
    DxfRecordWriter out = beginRecord(record, "UCS", "AcDbUCSTableRecord", table, parts);
    out.flags(70, 0, 0);
    out.point(10, ucs.origin());
    out.vector(11, ucs.xAxis());
    out.vector(12, ucs.yAxis());
    out.finish();
}

// What a view of a new drawing says beside what the drawing knows.
const DxfGroups& plainView()
{
    static const DxfGroups groups = {
        {10, QStringLiteral("0.0")},  {20, QStringLiteral("0.0")},  {11, QStringLiteral("1.0")},
        {21, QStringLiteral("1.0")},  {13, QStringLiteral("0.0")},  {23, QStringLiteral("0.0")},
        {14, QStringLiteral("10.0")}, {24, QStringLiteral("10.0")}, {15, QStringLiteral("10.0")},
        {25, QStringLiteral("10.0")}, {16, QStringLiteral("0.0")},  {26, QStringLiteral("0.0")},
        {36, QStringLiteral("1.0")},  {17, QStringLiteral("0.0")},  {27, QStringLiteral("0.0")},
        {37, QStringLiteral("0.0")},  {42, QStringLiteral("50.0")}, {43, QStringLiteral("0.0")},
        {44, QStringLiteral("0.0")},  {50, QStringLiteral("0.0")},  {51, QStringLiteral("0.0")},
        {71, QStringLiteral("0")},    {72, QStringLiteral("1000")}, {73, QStringLiteral("1")},
        {74, QStringLiteral("3")},    {75, QStringLiteral("0")},    {76, QStringLiteral("0")},
        {77, QStringLiteral("0")},    {78, QStringLiteral("0")},    {65, QStringLiteral("1")},
        {146, QStringLiteral("0.0")},
    };
    return groups;
}

struct WrittenView {
    double x, y, height, width;
};

constexpr double kRoom = 1.06, kNewHeight = 100.0, kNewWidth = 160.0;

// A drawing made without a window comes with a view of nothing: it opens on all
// that it holds.
WrittenView viewOf(const NcDbViewportTableRecord& view, const std::optional<NcGeExtents>& extents)
{
    const WrittenView kept{view.centerPoint().x, view.centerPoint().y, view.height() > 0.0 ? view.height() : 100.0,
                           view.width()};
    // Any other view somebody has chosen.
    const bool untouched =
        kept.x == 0.0 && kept.y == 0.0 && kept.height == kNewHeight && std::fabs(kept.width - kNewWidth) < 1e-6;
    if (!extents || !untouched || view.getName().compare(QLatin1String("*Active"), Qt::CaseInsensitive) != 0)
        return kept;
    const NcGePoint3d &least = extents->min, &most = extents->max;
    const double x = 0.5 * (least.x + most.x), y = 0.5 * (least.y + most.y);
    const double width = most.x - least.x, height = most.y - least.y;
    const bool meet =
        std::fabs(x - kept.x) <= 0.5 * (width + kept.width) && std::fabs(y - kept.y) <= 0.5 * (height + kept.height);
    const double aspect = kept.width > 0.0 ? kept.width / kept.height : 1.6;
    const double shown = kRoom * std::max({height, width / aspect, 1.0});
    return meet ? kept : WrittenView{x, y, shown, shown * aspect};
}

void writeView(const NcDbSymbolTableRecord& record, quint64 table, FileParts& parts)
{
    const auto& view = static_cast<const NcDbViewportTableRecord&>(record);
    DxfRecordWriter out = beginRecord(record, "VPORT", "AcDbViewportTableRecord", table, parts);
    const bool isNew = !out.keeps("AcDbViewportTableRecord");
    const WrittenView shown = viewOf(view, parts.extents);
    const double aspect = shown.width / shown.height;
    out.flags(70, 0, 0);
    if (isNew)
        out.groups(plainView());
    out.point2d(12, shown.x, shown.y);
    out.real(40, shown.height);
    out.real(41, aspect);
    if (aspect * shown.height != shown.width)
        out.exact(41, shown.width);
    NcGePoint3d origin;
    NcGeVector3d x, y;
    view.getUcs(origin, x, y);
    out.point(110, origin);
    out.vector(111, x);
    out.vector(112, y);
    out.finish();
}

void writeBlockRecord(const NcDbSymbolTableRecord& record, quint64 table, FileParts& parts)
{
    const auto& block = static_cast<const NcDbBlockTableRecord&>(record);
    NcObjectData data;
    const NcObjectData& kept = HostAccess::data(record);
    data.foreignGroups = withoutSubclass(kept.foreignGroups, QStringLiteral("AcDbBlockBegin"));
    data.xdata = kept.xdata;
    const quint64 order = parts.completion.orderDictionaryOf(block.objectId().handle());
    data.extensionDictionary = order ? order : kept.extensionDictionary;
    DxfRecordWriter out(parts.context.out, QStringLiteral("BLOCK_RECORD"), block.objectId().handle(), table, &data,
                        parts.context.isDead);
    out.subclass("AcDbSymbolTableRecord");
    out.subclass("AcDbBlockTableRecord");
    out.text(2, block.getName());
    out.takeKept(340);
    out.handle(340, parts.completion.layoutOf(block.objectId().handle()));
    if (!out.keepsCode(70)) {
        out.integer(70, 0);
        out.integer(280, 1);
        out.integer(281, 0);
    }
    if (const DynamicDefinition* definition = HostAccess::dynamic(block).get()) {
        for (const QString& line : dynamicDefinitionText(*definition))
            out.own().entry(QStringLiteral("dynamic")).addText(line);
    }
    out.finish();
}

void writeAnonymousRecords(quint64 table, FileParts& parts)
{
    for (const AnonymousBlock& block : parts.context.anonymous) {
        DxfRecordWriter out(parts.context.out, QStringLiteral("BLOCK_RECORD"), block.handle, table, nullptr,
                            parts.context.isDead);
        out.subclass("AcDbSymbolTableRecord");
        out.subclass("AcDbBlockTableRecord");
        out.text(2, block.name);
        out.handle(340, 0);
        out.integer(70, 0);
        out.integer(280, 1);
        out.integer(281, 0);
        out.own().entry(block.keyword).addInteger(1);
        out.finish();
    }
}

using WriteRecord = void (*)(const NcDbSymbolTableRecord&, quint64 table, FileParts&);

struct TableRow {
    const char* name;
    NcDbObjectId NcDatabaseData::*id; // null: a table that is kept only
    WriteRecord write;
};

// In the order that the format asks for.
const TableRow kTables[] = {
    {"VPORT", &NcDatabaseData::viewportTable, writeView},
    {"LTYPE", nullptr, nullptr},
    {"LAYER", &NcDatabaseData::layerTable, writeLayer},
    {"STYLE", nullptr, nullptr},
    {"VIEW", nullptr, nullptr},
    {"UCS", &NcDatabaseData::ucsTable, writeUcs},
    {"APPID", nullptr, nullptr},
    {"DIMSTYLE", nullptr, nullptr},
    {"BLOCK_RECORD", &NcDatabaseData::blockTable, writeBlockRecord},
};

std::vector<const NcDbSymbolTableRecord*> recordsOf(const TableRow& row, const FileParts& parts)
{
    std::vector<const NcDbSymbolTableRecord*> records;
    const auto* table = HostAccess::objectAs<NcDbSymbolTable>(parts.drawing.*(row.id));
    for (NcDbObjectId id : HostAccess::records(*table)) {
        const auto* record = HostAccess::objectAs<NcDbSymbolTableRecord>(id);
        if (record && !record->isErased())
            records.push_back(record);
    }
    return records;
}

bool isHead(const DxfRecord& record) { return record.type == QLatin1String("TABLE"); }

// The table's own record as it was read; empty for a table that is new.
NcObjectData headOf(const TableRow& row, const DxfRecords& kept, const FileParts& parts)
{
    NcObjectData data;
    if (row.id) {
        const NcObjectData& table = HostAccess::data(*HostAccess::object(parts.drawing.*(row.id)));
        data.handle = table.handle;
        data.foreignGroups = table.foreignGroups;
        data.xdata = table.xdata;
        data.extensionDictionary = table.extensionDictionary;
    } else if (!kept.empty() && isHead(kept.front())) {
        DxfFields fields(kept.front().groups);
        data.handle = recordHandle({QLatin1String(row.name), kept.front().groups});
        fields.enterHead();
        fields.handle(5);
        fields.handle(330);
        fields.word(2);
        fields.enter("AcDbSymbolTable");
        fields.integer(70);
        fields.word(2);
        keepRest(fields, data);
    }
    return data;
}

void writeHead(const TableRow& row, const NcObjectData& data, quint64 handle, size_t count, FileParts& parts)
{
    DxfWriter& out = parts.context.out;
    out.group(0, QStringLiteral("TABLE"));
    out.group(2, QLatin1String(row.name));
    out.handle(5, handle);
    if (data.extensionDictionary && !parts.context.isDead(data.extensionDictionary)) {
        out.group(102, QStringLiteral("{ACAD_XDICTIONARY"));
        out.handle(360, data.extensionDictionary);
        out.group(102, QStringLiteral("}"));
    }
    const DxfRest rest = restOf(data);
    out.groups(withoutDeadReferences(rest.head, parts.context.isDead));
    out.handle(330, 0);
    out.group(100, QStringLiteral("AcDbSymbolTable"));
    out.integer(70, qint64(count));
    const QString dimensions = QStringLiteral("AcDbDimStyleTable");
    if (row.name == QLatin1String("DIMSTYLE"))
        out.group(100, dimensions);
    if (const DxfGroups* kept = rest.body(dimensions))
        out.groups(*kept);
    for (const auto& xdata : data.xdata) {
        out.group(1001, xdata.first);
        out.groups(xdata.second);
    }
}

void writeTable(const TableRow& row, FileParts& parts)
{
    const DxfRecords& kept = parts.completion.table(QLatin1String(row.name));
    const NcObjectData head = headOf(row, kept, parts);
    const quint64 handle = head.handle ? head.handle : parts.context.newHandle();
    const std::vector<const NcDbSymbolTableRecord*> records =
        row.id ? recordsOf(row, parts) : std::vector<const NcDbSymbolTableRecord*>();
    const size_t headCount = !kept.empty() && isHead(kept.front()) ? 1 : 0;
    const bool blocks = row.write == writeBlockRecord;
    writeHead(row, head, handle,
              records.size() + kept.size() - headCount + (blocks ? parts.context.anonymous.size() : 0), parts);
    for (const NcDbSymbolTableRecord* record : records)
        row.write(*record, handle, parts);
    for (const DxfRecord& record : kept) {
        if (!isHead(record))
            writeKeptRecord(record, handle, parts);
    }
    if (blocks)
        writeAnonymousRecords(handle, parts);
    parts.context.out.group(0, QStringLiteral("ENDTAB"));
}

} // namespace

void writeKeptRecord(const DxfRecord& record, quint64 owner, FileParts& parts)
{
    DxfFields fields(record.groups);
    NcObjectData data;
    fields.enterHead();
    fields.handle(record.type == QLatin1String("DIMSTYLE") ? 105 : 5);
    fields.handle(330);
    keepRest(fields, data, true);
    const quint64 handle = recordHandle(record);
    DxfRecordWriter(parts.context.out, record.type, handle ? handle : parts.context.newHandle(), owner, &data,
                    parts.context.isDead)
        .finish();
}

void writeTables(FileParts& parts, DxfWriter& out)
{
    beginSection(parts.context.out, "TABLES");
    for (const TableRow& row : kTables)
        writeTable(row, parts);
    endSection(parts.context.out);
    out = std::move(parts.context.out);
    parts.context.out = {};
}
