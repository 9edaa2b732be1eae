// Blocks that stand in the file only: evaluated copies and tables.
#include "entity_codec.h"
#include "table_block.h"

namespace {

bool sameValue(const DynamicParameter& parameter, const QString& value)
{
    if (value == parameter.defaultValue)
        return true;
    if (parameter.type != 40)
        return false;
    bool first = false, second = false;
    const double a = value.toDouble(&first), b = parameter.defaultValue.toDouble(&second);
    return first && second && a == b;
}

// The values that change what the definition shows, as a key; empty when none does.
QString keyOfValues(const DynamicDefinition& definition, const NcDbBlockReference& reference)
{
    QString key;
    for (const DynamicParameter& parameter : definition.parameters) {
        const QString value = dynamicValue(reference, parameter.name);
        if (!sameValue(parameter, value))
            key += parameter.name + QLatin1Char('\n') + value + QLatin1Char('\n');
    }
    return key;
}

std::vector<std::unique_ptr<NcDbEntity>> visibleParts(const NcDbBlockReference& reference)
{
    std::vector<std::unique_ptr<NcDbEntity>> entities;
    for (EvaluatedEntity& part : evaluatedEntities(reference)) {
        if (!part.entity->isVisible())
            continue;
        HostAccess::data(*part.entity).extensionDictionary = 0;
        HostAccess::data(*part.entity).foreignGroups = withoutReferences(HostAccess::data(*part.entity).foreignGroups);
        entities.push_back(std::move(part.entity));
    }
    return entities;
}

} // namespace

DxfWriteContext::DxfWriteContext(const NcDbDatabase& drawing, quint64 firstFreeHandle)
    : database(drawing), nextHandle_(firstFreeHandle)
{
    const auto* table = HostAccess::objectAs<NcDbBlockTable>(drawing.blockTableId());
    for (NcDbObjectId id : HostAccess::records(*table)) {
        if (const auto* record = HostAccess::objectAs<NcDbBlockTableRecord>(id))
            names_.insert(record->getName().toUpper());
    }
}

QString DxfWriteContext::blockNameOf(const NcDbBlockReference& reference)
{
    const auto* record = HostAccess::objectAs<NcDbBlockTableRecord>(reference.blockTableRecord());
    if (!record)
        return {};
    const DynamicDefinition* definition = HostAccess::dynamic(*record).get();
    const QString values = definition ? keyOfValues(*definition, reference) : QString();
    if (values.isEmpty())
        return record->getName();
    const QString key = record->getName() + QLatin1Char('\n') + values;
    const auto known = copies_.constFind(key);
    if (known != copies_.constEnd())
        return *known;
    QString name = addAnonymous("*U", visibleParts(reference), "copy");
    copies_.insert(key, name);
    return name;
}

QString DxfWriteContext::blockNameOf(const NcDbTable& table)
{
    const auto known = tables_.find(&table);
    if (known != tables_.end())
        return known->second;
    return tables_[&table] = addAnonymous("*T", tableFigures(table), "table");
}

QString DxfWriteContext::addAnonymous(const char* prefix, std::vector<std::unique_ptr<NcDbEntity>> entities,
                                      const char* keyword)
{
    int& counter = counters_[QLatin1String(prefix)];
    QString name;
    do
        name = QLatin1String(prefix) + QString::number(++counter);
    while (names_.contains(name));
    anonymous.push_back({name, std::move(entities), QLatin1String(keyword), 0});
    return name;
}
