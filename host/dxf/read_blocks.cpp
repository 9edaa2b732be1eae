// Blocks and the entities in them.
#include "reader_parts.h"
#include "table_block.h"

#include <drawing/long_work.h>
#include <dxf/own_data.h>
#include <dxf/text_coding.h>

namespace {

const QString kModelSpace = QStringLiteral("*Model_Space"), kPaperSpace = QStringLiteral("*Paper_Space");
const QString kCopy = QStringLiteral("copy"), kTable = QStringLiteral("table"),
              kReference = QStringLiteral("reference"), kDynamic = QStringLiteral("dynamic");
// Bits of a block's flags that tell what it is called and holds.
constexpr int kAnonymous = 1, kHasDefinitions = 2;
constexpr double kBefore = 0.5, kRead = 0.97; // shares of the work of opening a file

// References are read with the same coding, else they would miss their block.
QString nameIn(const DxfGroups& groups, int code) { return blockName(fromCaretCoding(firstValue(groups, code))); }

QString nameOf(const DxfBlock& block)
{
    const QString name = nameIn(block.begin.groups, 2);
    return name.isEmpty() ? nameIn(block.begin.groups, 3) : name;
}

// The block that an entity of the file points to and that has to be read for it.
QString neededBlock(const DxfEntity& entity, const QSet<QString>& names)
{
    if (entity.main.type != QLatin1String("INSERT"))
        return {};
    const DxfEntityFields fields(entity.main.groups);
    QString target = blockName(firstValue(entity.main.groups, 2)).toUpper();
    if (fields.own().has(kTable) && tableOf(fields.own().values(kTable), {}, 0.0))
        return {};
    if (fields.own().has(kReference) && names.contains(fields.own().values(kReference).text().toUpper()))
        return {};
    return target;
}

void noteNeeded(const DxfEntities& entities, const QSet<QString>& names, QSet<QString>& needed)
{
    for (const DxfEntity& entity : entities) {
        const QString name = neededBlock(entity, names);
        if (!name.isEmpty())
            needed.insert(name);
    }
}

NcDbBlockTable& blockTable(NcDbDatabase& database)
{
    return *HostAccess::objectAs<NcDbBlockTable>(database.blockTableId());
}

NcDbBlockTableRecord* blockNamed(NcDbDatabase& database, const QString& name)
{
    return HostAccess::objectAs<NcDbBlockTableRecord>(HostAccess::recordId(database, database.blockTableId(), name));
}

void addBlock(NcDbDatabase& database, const QString& name, std::unique_ptr<NcDbBlockTableRecord> block, quint64 handle)
{
    if (name.isEmpty() || blockNamed(database, name))
        return;
    HostAccess::layout(*block) = isLayoutName(name);
    HostAccess::addRecord(blockTable(database), std::move(block), name, handle);
}

void readRecord(const DxfRecord& record, const QString& name, NcDbDatabase& database)
{
    auto block = std::make_unique<NcDbBlockTableRecord>();
    DxfEntityFields fields(record.groups);
    takeHandles(fields, HostAccess::data(*block));
    fields.enter("AcDbBlockTableRecord");
    fields.word(2);
    keepRest(fields, HostAccess::data(*block));
    addBlock(database, name, std::move(block), recordHandle(record));
}

// Where the block begins says more of it than its record.
void readBegin(const DxfRecord& begin, NcDbBlockTableRecord& block)
{
    DxfEntityFields fields(begin.groups);
    fields.enter("AcDbBlockBegin");
    fields.word(2);
    fields.word(3);
    fields.flags(70, kAnonymous | kHasDefinitions);
    HostAccess::origin(block) = fields.point(10);
    if (firstValue(begin.groups, 1).isEmpty())
        fields.word(1);
    const DxfRest rest = fields.rest();
    const DxfGroups* kept = rest.body(QStringLiteral("AcDbBlockBegin"));
    if (!kept)
        return;
    DxfGroups& groups = HostAccess::data(block).foreignGroups;
    groups.push_back({100, QStringLiteral("AcDbBlockBegin")});
    groups.insert(groups.end(), kept->begin(), kept->end());
}

void addEntity(const DxfEntity& record, NcDbBlockTableRecord& block, std::unique_ptr<NcDbEntity> entity,
               DxfReadContext& context)
{
    auto* reference =
        entity->isA() == NcDbBlockReference::desc() ? static_cast<NcDbBlockReference*>(entity.get()) : nullptr;
    HostAccess::addEntity(block, std::move(entity), recordHandle(record.main));
    if (reference)
        readAttributes(record, *reference, context);
}

void fill(const DxfEntities& entities, NcDbBlockTableRecord& block, DxfReadContext& context)
{
    for (const DxfEntity& record : entities)
        addEntity(record, block, readEntity(record, context), context);
}

NcDbBlockTableRecord& ensureSpace(NcDbDatabase& database, const QString& name)
{
    addBlock(database, name, std::make_unique<NcDbBlockTableRecord>(), 0);
    return *blockNamed(database, name);
}

} // namespace

QString blockName(const QString& name)
{
    const QString plain = name.startsWith(QLatin1Char('$')) ? QLatin1Char('*') + name.mid(1) : name;
    for (const QString& space : {kModelSpace, kPaperSpace}) {
        if (plain.compare(space, Qt::CaseInsensitive) == 0)
            return space;
    }
    return name;
}

bool isLayoutName(const QString& name)
{
    return name.startsWith(kModelSpace, Qt::CaseInsensitive) || name.startsWith(kPaperSpace, Qt::CaseInsensitive);
}

QSet<QString> foldedBlocks(const DxfDocument& document)
{
    QSet<QString> folded, needed, names;
    const DxfTable* table = document.table(QStringLiteral("BLOCK_RECORD"));
    for (const DxfRecord& record : table ? table->records : DxfRecords()) {
        const QString name = nameIn(record.groups, 2).toUpper();
        const DxfEntityFields fields(record.groups);
        names.insert(name);
        if (fields.own().has(kCopy) || fields.own().has(kTable))
            folded.insert(name);
    }
    if (folded.isEmpty())
        return folded;
    noteNeeded(document.entities, names, needed);
    for (const DxfBlock& block : document.blocks)
        noteNeeded(block.entities, names, needed);
    return folded.subtract(needed);
}

void readBlockRecords(const DxfDocument& document, const QSet<QString>& folded, NcDbDatabase& database)
{
    const DxfTable* table = document.table(QStringLiteral("BLOCK_RECORD"));
    for (const DxfRecord& record : table ? table->records : DxfRecords()) {
        const QString name = nameIn(record.groups, 2);
        if (!folded.contains(name.toUpper()))
            readRecord(record, name, database);
    }
    for (const DxfBlock& block : document.blocks) {
        const QString name = nameOf(block);
        if (folded.contains(name.toUpper()))
            continue;
        addBlock(database, name, std::make_unique<NcDbBlockTableRecord>(), 0);
        if (NcDbBlockTableRecord* record = blockNamed(database, name))
            readBegin(block.begin, *record);
    }
}

bool readEntities(const DxfDocument& document, NcDbDatabase& database)
{
    DxfReadContext context{database};
    WorkPart work(document.blocks.size() + document.entities.size(), kBefore, kRead);
    for (const DxfBlock& block : document.blocks) {
        if (!work.next())
            return false;
        NcDbBlockTableRecord* record = blockNamed(database, nameOf(block));
        if (record)
            fill(block.entities, *record, context);
    }
    NcDbBlockTableRecord& model = ensureSpace(database, kModelSpace);
    NcDbBlockTableRecord& paper = ensureSpace(database, kPaperSpace);
    for (const DxfEntity& record : document.entities) {
        if (!work.next())
            return false;
        std::unique_ptr<NcDbEntity> entity = readEntity(record, context);
        addEntity(record, context.paper ? paper : model, std::move(entity), context);
    }
    return true;
}

void readDynamicDefinitions(const DxfDocument& document, NcDbDatabase& database)
{
    const DxfTable* table = document.table(QStringLiteral("BLOCK_RECORD"));
    for (const DxfRecord& record : table ? table->records : DxfRecords()) {
        const DxfEntityFields fields(record.groups);
        NcDbBlockTableRecord* block = blockNamed(database, nameIn(record.groups, 2));
        if (!block || !fields.own().has(kDynamic))
            continue;
        QStringList lines;
        for (OwnValues values = fields.own().values(kDynamic); !values.atEnd();) {
            const QString line = values.text();
            if (line.isEmpty())
                break;
            lines << line;
        }
        auto definition = std::make_unique<DynamicDefinition>();
        if (parseDynamicDefinition(lines, *definition))
            HostAccess::dynamic(*block) = std::move(definition);
    }
}
