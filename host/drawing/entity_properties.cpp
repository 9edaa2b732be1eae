#include "entity_properties.h"

#include "edit_operations.h"
#include "host_access.h"
#include "property_rows.h"

#include <algorithm>

namespace {

const QString kCommonGroup = QStringLiteral("Общие"), kOwnGroup = QStringLiteral("Геометрия");
const QString kParameterGroup = QStringLiteral("Параметры блока"), kAttributeGroup = QStringLiteral("Атрибуты");
const QString kParameter = QStringLiteral("parameter:"), kAttribute = QStringLiteral("attribute:");
const QString kByLayerName = QStringLiteral("По слою"), kByBlockName = QStringLiteral("По блоку");

const std::pair<const char*, const char*> kLineTypes[] = {
    {"ByLayer", "По слою"}, {"ByBlock", "По блоку"}, {"Continuous", "Сплошная"}};

void addRows(const NcDbEntity& entity, const std::vector<PropertyRow>& rows, const QString& group,
             std::vector<EntityProperty>& properties)
{
    for (const PropertyRow& row : rows) {
        EntityProperty made;
        made.value = row.read(entity);
        if (!made.value.isValid())
            continue;
        made.key = QString::fromLatin1(row.key);
        made.group = group;
        made.caption = QString::fromUtf8(row.caption);
        made.kind = row.kind;
        made.fixed = !row.write;
        properties.push_back(made);
    }
}

QVariant variantOf(const NcDbEvalVariant& value)
{
    switch (value.restype()) {
    case 40: return value.real();
    case 70:
    case 90: return value.integer();
    default: return value.text();
    }
}

NcDbEvalVariant evalOf(int type, const QVariant& value)
{
    switch (type) {
    case 40: return NcDbEvalVariant(value.toDouble());
    case 70: return NcDbEvalVariant(short(value.toInt()));
    case 90: return NcDbEvalVariant(value.toInt());
    default: return NcDbEvalVariant(value.toString());
    }
}

void addParameters(const NcDbBlockReference& reference, std::vector<EntityProperty>& properties)
{
    for (const auto& property : NcDbDynBlockReference(reference.objectId()).getBlockProperties()) {
        EntityProperty made;
        made.key = kParameter + property.propertyName();
        made.group = kParameterGroup;
        made.caption = property.propertyName();
        made.value = variantOf(property.value());
        made.kind = property.propertyType() == 40 ? EntityProperty::Number
            : property.propertyType() == 1        ? EntityProperty::Text
                                                  : EntityProperty::Count;
        made.fixed = property.readOnly();
        for (const NcDbEvalVariant& allowed : property.getAllowedValues()) {
            made.kind = EntityProperty::Choice;
            made.choices << variantOf(allowed).toString();
        }
        properties.push_back(made);
    }
}

// Hidden ones tie the block to its row: they are no business of a user's.
NcDbObjectId attributeOf(const NcDbBlockReference& reference, const QString& tag)
{
    for (NcDbObjectId id : HostAccess::attributes(reference)) {
        const auto* attribute = HostAccess::objectAs<NcDbAttribute>(id);
        if (attribute && !attribute->isErased() && !attribute->isInvisible() && attribute->tag() == tag)
            return id;
    }
    return {};
}

void addAttributes(const NcDbBlockReference& reference, std::vector<EntityProperty>& properties)
{
    for (NcDbObjectId id : HostAccess::attributes(reference)) {
        const auto* attribute = HostAccess::objectAs<NcDbAttribute>(id);
        if (!attribute || attribute->isErased() || attribute->isInvisible())
            continue;
        EntityProperty made;
        made.key = kAttribute + attribute->tag();
        made.group = kAttributeGroup;
        made.caption = attribute->tag();
        made.value = attribute->textString();
        properties.push_back(made);
    }
}

std::vector<EntityProperty> propertiesOf(const NcDbEntity& entity)
{
    std::vector<EntityProperty> properties;
    addRows(entity, commonRows(), kCommonGroup, properties);
    if (const PropertyClass* known = propertyClassOf(entity))
        addRows(entity, known->rows, kOwnGroup, properties);
    if (entity.isKindOf(NcDbBlockReference::desc())) {
        const auto& reference = static_cast<const NcDbBlockReference&>(entity);
        addParameters(reference, properties);
        addAttributes(reference, properties);
    }
    return properties;
}

// Keeps what the entity has too, and marks where it differs.
void keepShared(std::vector<EntityProperty>& shared, const std::vector<EntityProperty>& own)
{
    for (size_t i = shared.size(); i-- > 0;) {
        EntityProperty& property = shared[i];
        const auto same = std::find_if(own.begin(), own.end(), [&](const EntityProperty& other) {
            return other.key == property.key && other.kind == property.kind;
        });
        if (same == own.end() || same->choices != property.choices)
            shared.erase(shared.begin() + long(i));
        else
            property.varies = property.varies || same->value != property.value;
    }
}

bool setParameter(NcDbObjectId id, const QString& name, const QVariant& value)
{
    for (auto& property : NcDbDynBlockReference(id).getBlockProperties())
        if (property.propertyName() == name)
            return isOk(property.setValue(evalOf(property.propertyType(), value)));
    return false;
}

bool setAttribute(NcDbObjectId id, const QString& tag, const QVariant& value)
{
    const auto* reference = HostAccess::objectAs<NcDbBlockReference>(id);
    NcDbAttribute* attribute = nullptr;
    if (!reference || !isOk(ncdbOpenObject(attribute, attributeOf(*reference, tag), kForWrite)))
        return false;
    const bool taken = isOk(attribute->setTextString(value.toString()));
    attribute->close();
    return taken;
}

const PropertyRow* rowOf(const NcDbEntity& entity, const QString& key)
{
    const PropertyClass* known = propertyClassOf(entity);
    for (const auto* rows : {&commonRows(), known ? &known->rows : &commonRows()})
        for (const PropertyRow& row : *rows)
            if (key == QLatin1String(row.key))
                return &row;
    return nullptr;
}

bool setRow(NcDbObjectId id, const QString& key, const QVariant& value)
{
    const auto* present = HostAccess::objectAs<NcDbEntity>(id);
    const PropertyRow* row = present ? rowOf(*present, key) : nullptr;
    NcDbEntity* entity = nullptr;
    if (!row || !row->write || !isOk(ncdbOpenObject(entity, id, kForWrite)))
        return false;
    const bool taken = row->write(*entity, value);
    entity->close();
    return taken;
}

} // namespace

QString entityName(const NcDbEntity& entity)
{
    const PropertyClass* known = propertyClassOf(entity);
    QString name =
        known ? QString::fromUtf8(known->name) : QString::fromLatin1(entity.isA()->name()).mid(int(qstrlen("NcDb")));
    if (!entity.isKindOf(NcDbBlockReference::desc()))
        return name;
    const NcDbObjectId definition = NcDbDynBlockReference(entity.objectId()).dynamicBlockTableRecord();
    const auto* block = HostAccess::objectAs<NcDbBlockTableRecord>(definition);
    return block ? name + QLatin1Char(' ') + block->getName() : name;
}

std::vector<EntityProperty> propertiesOf(const NcDbObjectIdArray& ids)
{
    std::vector<EntityProperty> shared;
    bool first = true;
    for (NcDbObjectId id : ids) {
        const auto* entity = HostAccess::objectAs<NcDbEntity>(id);
        if (!entity || entity->isErased())
            continue;
        if (first)
            shared = propertiesOf(*entity);
        else
            keepShared(shared, propertiesOf(*entity));
        first = false;
    }
    return shared;
}

int setProperty(const NcDbObjectIdArray& ids, const QString& key, const QVariant& value)
{
    if (ids.empty())
        return 0;
    int taken = 0;
    for (NcDbObjectId id : editable(*ids.front().database(), ids)) {
        if (key.startsWith(kParameter))
            taken += setParameter(id, key.mid(kParameter.size()), value);
        else if (key.startsWith(kAttribute))
            taken += setAttribute(id, key.mid(kAttribute.size()), value);
        else
            taken += setRow(id, key, value);
    }
    return taken;
}

QString colorName(const NcCmColor& color)
{
    switch (color.method()) {
    case NcCmColor::kByLayer: return kByLayerName;
    case NcCmColor::kByBlock: return kByBlockName;
    case NcCmColor::kByIndex: return QString::number(color.colorIndex());
    case NcCmColor::kByColor: break;
    }
    return QStringLiteral("%1,%2,%3").arg(color.red()).arg(color.green()).arg(color.blue());
}

std::optional<NcCmColor> colorOfName(const QString& name)
{
    const QString text = name.trimmed();
    if (text.compare(kByLayerName, Qt::CaseInsensitive) == 0)
        return NcCmColor::fromIndex(256);
    if (text.compare(kByBlockName, Qt::CaseInsensitive) == 0)
        return NcCmColor::fromIndex(0);
    const QStringList parts = text.split(QLatin1Char(','));
    int numbers[3] = {-1, -1, -1};
    if (parts.size() != 1 && parts.size() != 3)
        return {};
    for (int i = 0; i < parts.size(); ++i) {
        bool good = false;
        numbers[i] = parts[i].trimmed().toInt(&good);
        if (!good || numbers[i] < 0 || numbers[i] > 255)
            return {};
    }
    if (parts.size() == 3)
        return NcCmColor::fromRGB(numbers[0], numbers[1], numbers[2]);
    return numbers[0] > 0 ? std::optional(NcCmColor::fromIndex(numbers[0])) : std::nullopt;
}

QStringList layerNames(const NcDbDatabase& database)
{
    QStringList names;
    const auto* table = HostAccess::objectAs<NcDbLayerTable>(HostAccess::data(database).layerTable);
    for (NcDbObjectId id : table ? HostAccess::records(*table) : NcDbObjectIdArray())
        if (HostAccess::isLiving(id))
            names << HostAccess::objectAs<NcDbLayerTableRecord>(id)->getName();
    names.sort(Qt::CaseInsensitive);
    return names;
}

QStringList lineTypeNames(const NcDbDatabase& database)
{
    QStringList names = {QStringLiteral("ByLayer"), QStringLiteral("ByBlock"), QStringLiteral("Continuous")};
    for (const auto& table : HostAccess::data(database).foreignTables)
        for (const DxfRecord& record : table.first == QLatin1String("LTYPE") ? table.second : DxfRecords()) {
            const QString name = firstValue(record.groups, 2);
            if (!name.isEmpty() && !names.contains(name, Qt::CaseInsensitive))
                names << name;
        }
    return names;
}

QString lineTypeCaption(const QString& name)
{
    for (const auto& known : kLineTypes)
        if (name.compare(QLatin1String(known.first), Qt::CaseInsensitive) == 0)
            return QString::fromUtf8(known.second);
    return name;
}

QString lineTypeOfCaption(const QString& caption)
{
    for (const auto& known : kLineTypes)
        if (caption == QString::fromUtf8(known.second))
            return QString::fromLatin1(known.first);
    return caption;
}
