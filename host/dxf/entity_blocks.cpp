// Block references and tables, which a file holds as references too.
#include "entity_codec.h"
#include "table_block.h"

#include <cmath>

namespace {

const double kTurn = 6.283185307179586;
const QString kReference = QStringLiteral("reference"), kTable = QStringLiteral("table");

struct InsertGroups {
    QString block;
    NcGePoint3d position;
    NcScale3d scale;
    double rotation = 0.0;
    NcGeVector3d normal{0, 0, 1};
};

InsertGroups takeInsert(DxfEntityFields& fields)
{
    InsertGroups insert;
    if (!fields.enter("AcDbBlockReference"))
        fields.enter("AcDbMInsertBlock");
    insert.block = fields.word(2);
    fields.integer(66);
    insert.position = fields.point(10);
    insert.scale = {fields.real(41, 1.0), fields.real(42, 1.0), fields.real(43, 1.0)};
    insert.rotation = fields.angle(50);
    if (insert.rotation < 0.0 || insert.rotation > kTurn)
        insert.rotation -= kTurn * std::floor(insert.rotation / kTurn);
    insert.normal = fields.vector(210, {0, 0, 1});
    insert.position = planeToWorld(insert.position, insert.normal);
    return insert;
}

void writeInsert(const InsertGroups& insert, bool hasAttributes, DxfRecordWriter& record)
{
    // Rows and columns of references keep the name of their own.
    const bool grid = record.keeps("AcDbMInsertBlock");
    record.subclass(grid ? "AcDbMInsertBlock" : "AcDbBlockReference");
    if (hasAttributes)
        record.integer(66, 1);
    record.text(2, insert.block);
    record.point(10, worldToPlane(insert.position, insert.normal));
    const double scales[] = {insert.scale.sx, insert.scale.sy, insert.scale.sz};
    for (int i = 0; i < 3; ++i) {
        if (scales[i] != 1.0)
            record.real(41 + i, scales[i]);
    }
    if (insert.rotation != 0.0)
        record.angle(50, insert.rotation);
    if (insert.normal != NcGeVector3d(0, 0, 1))
        record.vector(210, insert.normal);
}

// The definition that a reference to an evaluated copy comes from.
NcDbObjectId definitionOf(const InsertGroups& insert, OwnValues& values, const DxfReadContext& context)
{
    const NcDbObjectId named = values.atEnd() ? NcDbObjectId() : context.blockNamed(values.text());
    if (!named.isNull())
        return named;
    values = {};
    return context.blockNamed(insert.block);
}

std::unique_ptr<NcDbEntity> readReference(const InsertGroups& insert, const OwnData& own, DxfReadContext& context)
{
    OwnValues values = own.values(kReference);
    auto reference = std::make_unique<NcDbBlockReference>();
    HostAccess::definition(*reference) = definitionOf(insert, values, context);
    if (reference->blockTableRecord().isNull())
        return nullptr;
    HostAccess::position(*reference) = insert.position;
    HostAccess::rotation(*reference) = insert.rotation;
    HostAccess::scale(*reference) = insert.scale;
    HostAccess::normal(*reference) = insert.normal;
    while (!values.atEnd()) {
        const QString name = values.text();
        if (name.isEmpty())
            break;
        HostAccess::dynamicValues(*reference).push_back({name, values.text()});
    }
    return reference;
}

std::unique_ptr<NcDbEntity> readInsert(DxfEntityFields& fields, DxfReadContext& context, const DxfEntity&)
{
    const InsertGroups insert = takeInsert(fields);
    if (fields.own().has(kTable))
        return tableOf(fields.own().values(kTable), insert.position, insert.rotation);
    return readReference(insert, fields.own(), context);
}

bool hasAttributes(const NcDbBlockReference& reference)
{
    for (NcDbObjectId id : HostAccess::attributes(reference)) {
        if (!id.isErased())
            return true;
    }
    return false;
}

void writeReference(const NcDbEntity& entity, DxfRecordWriter& record, DxfWriteContext& context)
{
    const auto& reference = as<NcDbBlockReference>(entity);
    writeInsert({context.blockNameOf(reference), reference.position(), reference.scaleFactors(), reference.rotation(),
                 reference.normal()},
                hasAttributes(reference), record);
    const auto* definition = HostAccess::objectAs<NcDbBlockTableRecord>(reference.blockTableRecord());
    if (!definition || HostAccess::dynamicValues(reference).empty())
        return;
    OwnValues& values = record.own().entry(kReference);
    values.addText(definition->getName());
    for (const auto& value : HostAccess::dynamicValues(reference)) {
        values.addText(value.first);
        values.addText(value.second);
    }
}

void writeTable(const NcDbEntity& entity, DxfRecordWriter& record, DxfWriteContext& context)
{
    const auto& table = as<NcDbTable>(entity);
    InsertGroups insert;
    insert.block = context.blockNameOf(table);
    insert.position = table.position();
    insert.rotation = tableRotation(table);
    writeInsert(insert, false, record);
    addTable(table, record.own().entry(kTable));
}

} // namespace

std::vector<EntityCodec> blockCodecs()
{
    return {
        {"INSERT", NcDbBlockReference::desc, readInsert, writeReference},
        {"INSERT", NcDbTable::desc, readInsert, writeTable},
    };
}
