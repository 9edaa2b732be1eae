// What all entities share in a file, and the table of their kinds.
#include "entity_codec.h"
#include "foreign_entity.h"

#include <algorithm>
#include <cmath>

namespace {

const std::vector<EntityCodec>& codecs()
{
    static const std::vector<EntityCodec> all = [] {
        std::vector<EntityCodec> rows;
        for (auto part : {curveCodecs, polylineCodecs, textCodecs, hatchCodecs, blockCodecs, viewportCodecs}) {
            const std::vector<EntityCodec> more = part();
            rows.insert(rows.end(), more.begin(), more.end());
        }
        return rows;
    }();
    return all;
}

NcCmColor readColor(DxfFields& fields)
{
    NcCmColor color;
    const bool hasIndex = fields.has(62);
    const int index = fields.integer(62, 256);
    if (fields.has(420)) {
        const int rgb = fields.integer(420);
        color.setRGB((rgb >> 16) & 255, (rgb >> 8) & 255, rgb & 255);
    } else if (hasIndex && isOk(NcCmColor().setColorIndex(index))) {
        color.setColorIndex(index);
    }
    return color;
}

void writeColor(const NcCmColor& color, DxfRecordWriter& record)
{
    if (!color.isByLayer())
        record.integer(62, color.colorIndex());
    if (color.method() == NcCmColor::kByColor)
        record.integer(420, (color.red() << 16) | (color.green() << 8) | color.blue());
}

void readCommon(DxfFields& fields, NcDbEntity& entity, DxfReadContext& context)
{
    fields.enterHead();
    fields.handle(5);
    fields.handle(330);
    fields.enter("AcDbEntity");
    HostAccess::layer(entity) = fields.word(8, QStringLiteral("0"));
    const QString linetype = fields.word(6);
    if (!linetype.isEmpty())
        HostAccess::linetype(entity) = linetype;
    HostAccess::color(entity) = readColor(fields);
    HostAccess::visible(entity) = fields.integer(60) == 0;
    context.paper = fields.integer(67) == 1;
    const DxfGroups dictionary = fields.control(QStringLiteral("ACAD_XDICTIONARY"));
    if (!dictionary.empty())
        HostAccess::data(entity).extensionDictionary = handleOf(dictionary.front().value);
}

// The subclass that is written for every entity.
void dropEmptyCommon(DxfGroups& groups)
{
    for (size_t i = 0; i < groups.size(); ++i) {
        const bool last = i + 1 == groups.size() || groups[i + 1].code == 100;
        if (last && groups[i].code == 100 && groups[i].value == QLatin1String("AcDbEntity")) {
            groups.erase(groups.begin() + std::ptrdiff_t(i));
            return;
        }
    }
}

// Adds groups to the subclasses that they name. An object that is embedded in one
// goes on to the subclass's end: what stood behind it would be taken for its own.
DxfGroups withVerbatim(DxfRest rest, const DxfGroups& verbatim)
{
    QString subclass;
    for (const DxfGroup& group : verbatim) {
        if (group.code == 100) {
            rest.add(subclass = group.value, {});
            continue;
        }
        for (DxfRest::Body& body : rest.bodies) {
            if (body.subclass != subclass)
                continue;
            const auto embedded = std::find_if(body.groups.begin(), body.groups.end(),
                                               [](const DxfGroup& each) { return each.code == 101; });
            body.groups.insert(embedded, group);
        }
    }
    return flatGroups(rest);
}

bool isAttribute(const DxfRecord& part) { return part.type == QLatin1String("ATTRIB"); }

void writeParts(const NcDbForeignEntity& entity, quint64 handle, DxfWriteContext& context)
{
    for (const DxfRecord& part : entity.parts()) {
        DxfEntityFields fields(part.groups);
        fields.enterHead();
        fields.handle(5);
        fields.handle(330);
        NcObjectData kept;
        keepRest(fields, kept, true);
        const quint64 own = recordHandle(part);
        DxfRecordWriter(context.out, part.type, own ? own : context.newHandle(), handle, &kept, context.isDead)
            .finish();
    }
}

void writeAttributes(const NcDbBlockReference& reference, quint64 owner, bool paper, DxfWriteContext& context)
{
    bool any = false;
    for (NcDbObjectId id : HostAccess::attributes(reference)) {
        const auto* attribute = HostAccess::objectAs<NcDbAttribute>(id);
        if (!attribute || attribute->isErased())
            continue;
        writeEntity(*attribute, id.handle(), owner, paper, context);
        any = true;
    }
    if (!any)
        return;
    DxfRecordWriter end(context.out, QStringLiteral("SEQEND"), context.newHandle(), owner, nullptr, context.isDead);
    end.subclass("AcDbEntity");
    end.text(8, reference.layer());
    end.finish();
}

} // namespace

DxfEntityFields::DxfEntityFields(const DxfGroups& groups)
    : DxfFields(groups), own_(xdata(QLatin1String(ownApplication())))
{
    OwnValues values = own_.values(QStringLiteral("exact"));
    while (!values.atEnd()) {
        const int code = values.integer();
        const size_t before = exact_.size();
        exact_.emplace(code, values.real());
        if (exact_.size() == before)
            break;
    }
}

double DxfEntityFields::exact(int code, double computed) const
{
    const auto found = exact_.find(code);
    if (found == exact_.end())
        return computed;
    // Another program may have changed the group since.
    const double tolerance = 1e-12 * (std::abs(computed) + 1e-6);
    return std::abs(found->second - computed) <= tolerance ? found->second : computed;
}

double DxfEntityFields::angle(int code, double fallback)
{
    if (!has(code))
        return fallback;
    return exact(code, radiansOf(real(code)));
}

NcDbObjectId DxfReadContext::blockNamed(const QString& name) const
{
    return HostAccess::recordId(database, HostAccess::data(database).blockTable, name);
}

const EntityCodec* codecFor(const QString& type)
{
    for (const EntityCodec& codec : codecs()) {
        if (type == QLatin1String(codec.type))
            return &codec;
    }
    return nullptr;
}

const EntityCodec* codecFor(const NcDbEntity& entity)
{
    for (const EntityCodec& codec : codecs()) {
        if (codec.cls() == entity.isA())
            return &codec;
    }
    return nullptr;
}

std::unique_ptr<NcDbEntity> readEntity(const DxfEntity& record, DxfReadContext& context)
{
    DxfEntityFields fields(record.main.groups);
    const EntityCodec* codec = codecFor(record.main.type);
    std::unique_ptr<NcDbEntity> entity;
    if (codec)
        entity = codec->read(fields, context, record);
    if (!entity) {
        fields = DxfEntityFields(record.main.groups);
        auto foreign = std::make_unique<NcDbForeignEntity>(record.main.type);
        foreign->setParts(record.parts);
        for (const DxfRecord& part : record.parts)
            HostAccess::reserveHandle(context.database, recordHandle(part));
        entity = std::move(foreign);
    }
    readCommon(fields, *entity, context);
    const DxfGroups verbatim = std::move(HostAccess::data(*entity).foreignGroups);
    keepRest(fields, HostAccess::data(*entity), entity->isA() == NcDbForeignEntity::desc());
    DxfGroups& kept = HostAccess::data(*entity).foreignGroups;
    dropEmptyCommon(kept);
    if (!verbatim.empty())
        kept = withVerbatim(restOf(HostAccess::data(*entity)), verbatim);
    return entity;
}

void readAttributes(const DxfEntity& record, NcDbBlockReference& reference, DxfReadContext& context)
{
    for (const DxfRecord& part : record.parts) {
        if (!isAttribute(part))
            continue;
        std::unique_ptr<NcDbEntity> entity = readEntity({part, {}}, context);
        if (!entity->isKindOf(NcDbAttribute::desc()))
            continue;
        std::unique_ptr<NcDbAttribute> attribute(static_cast<NcDbAttribute*>(entity.release()));
        HostAccess::addAttribute(reference, std::move(attribute), recordHandle(part));
    }
}

void writeEntity(const NcDbEntity& entity, quint64 handle, quint64 owner, bool paper, DxfWriteContext& context)
{
    const auto* foreign = entity.isA() == NcDbForeignEntity::desc() ? &as<NcDbForeignEntity>(entity) : nullptr;
    const EntityCodec* codec = foreign ? nullptr : codecFor(entity);
    if (!foreign && !codec)
        return;
    DxfRecordWriter record(context.out, foreign ? foreign->type() : QLatin1String(codec->type), handle, owner,
                           &HostAccess::data(entity), context.isDead);
    record.subclass("AcDbEntity");
    if (paper)
        record.integer(67, 1);
    record.text(8, entity.layer());
    if (entity.linetype().compare(QLatin1String("ByLayer"), Qt::CaseInsensitive) != 0)
        record.text(6, entity.linetype());
    writeColor(entity.color(), record);
    if (!entity.isVisible())
        record.integer(60, 1);
    if (codec)
        codec->write(entity, record, context);
    record.finish();
    if (foreign)
        writeParts(*foreign, handle, context);
    else if (entity.isA() == NcDbBlockReference::desc())
        writeAttributes(as<NcDbBlockReference>(entity), handle, paper, context);
}

quint64 recordHandle(const DxfRecord& record)
{
    for (const DxfGroup& group : record.groups) {
        if (group.code == 5 || (group.code == 105 && record.type == QLatin1String("DIMSTYLE")))
            return handleOf(group.value);
        if (group.code == 100)
            break;
    }
    return 0;
}
