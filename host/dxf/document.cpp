#include "document.h"

#include <drawing/long_work.h>

namespace {

constexpr double kFrom = 0.4, kTo = 0.5; // shares of the work of opening a file

// Groups before the first group of code 0 make no record; they are an error.
bool splitRecords(const DxfGroups& groups, DxfRecords& records)
{
    WorkPart work(groups.size(), kFrom, kTo);
    for (const DxfGroup& group : groups) {
        if (!work.next())
            return false;
        if (group.code == 0)
            records.push_back({group.value.trimmed(), {}});
        else if (records.empty())
            return false;
        else
            records.back().groups.push_back(group);
    }
    return true;
}

// The groups between SECTION HEADER and ENDSEC hold no group of code 0.
std::vector<DxfHeaderVariable> headerOf(const DxfRecord& section)
{
    std::vector<DxfHeaderVariable> variables;
    for (const DxfGroup& group : section.groups) {
        if (group.code == 9)
            variables.push_back({group.value.trimmed(), {}});
        else if (!variables.empty())
            variables.back().groups.push_back(group);
    }
    return variables;
}

std::vector<DxfTable> tablesOf(const DxfRecords& records)
{
    std::vector<DxfTable> tables;
    bool open = false;
    for (const DxfRecord& record : records) {
        if (record.type == QLatin1String("TABLE")) {
            tables.push_back({firstValue(record.groups, 2).toUpper(), record.groups, {}});
            open = true;
        } else if (record.type == QLatin1String("ENDTAB")) {
            open = false;
        } else if (open) {
            tables.back().records.push_back(record);
        }
    }
    return tables;
}

bool hasParts(const DxfEntity& entity)
{
    return firstValue(entity.main.groups, 66).toInt() == 1 || entity.main.type == QLatin1String("POLYLINE");
}

bool isPart(const QString& type)
{
    return type == QLatin1String("VERTEX") || type == QLatin1String("ATTRIB") || type == QLatin1String("SEQEND");
}

DxfEntities entitiesOf(DxfRecords records)
{
    DxfEntities entities;
    bool open = false;
    for (DxfRecord& record : records) {
        if (open && isPart(record.type)) {
            open = record.type != QLatin1String("SEQEND");
            entities.back().parts.push_back(std::move(record));
            continue;
        }
        if (record.type == QLatin1String("SEQEND") || record.type == QLatin1String("VERTEX"))
            continue; // a part of nothing
        entities.push_back({std::move(record), {}});
        open = hasParts(entities.back());
    }
    return entities;
}

std::vector<DxfBlock> blocksOf(DxfRecords records)
{
    std::vector<DxfBlock> blocks;
    DxfRecords inside;
    bool open = false;
    for (DxfRecord& record : records) {
        if (record.type == QLatin1String("BLOCK")) {
            blocks.push_back({std::move(record), {}, {}});
            inside.clear();
            open = true;
        } else if (record.type == QLatin1String("ENDBLK") && open) {
            blocks.back().end = std::move(record);
            blocks.back().entities = entitiesOf(std::move(inside));
            inside = {};
            open = false;
        } else if (open) {
            inside.push_back(std::move(record));
        }
    }
    return blocks;
}

DxfGroups flat(const DxfRecord& head, const DxfRecords& records)
{
    DxfGroups groups(head.groups.begin() + (head.groups.empty() ? 0 : 1), head.groups.end());
    for (const DxfRecord& record : records) {
        groups.push_back({0, record.type});
        groups.insert(groups.end(), record.groups.begin(), record.groups.end());
    }
    return groups;
}

void takeSection(const DxfRecord& head, DxfRecords records, DxfDocument& document)
{
    // Zeros are not written: the name is what the next reader will see.
    const QString name = firstValue(head.groups, 2).remove(QChar(QChar::Null));
    if (name == QLatin1String("HEADER"))
        document.header = headerOf(head);
    else if (name == QLatin1String("CLASSES"))
        document.classes = std::move(records);
    else if (name == QLatin1String("TABLES"))
        document.tables = tablesOf(records);
    else if (name == QLatin1String("BLOCKS"))
        document.blocks = blocksOf(std::move(records));
    else if (name == QLatin1String("ENTITIES"))
        document.entities = entitiesOf(std::move(records));
    else if (name == QLatin1String("OBJECTS"))
        document.objects = std::move(records);
    // A picture of the drawing as it was would be out of date.
    else if (name != QLatin1String("THUMBNAILIMAGE"))
        document.others.push_back({name, flat(head, records)});
}

} // namespace

const DxfHeaderVariable* DxfDocument::headerVariable(const QString& name) const
{
    for (const DxfHeaderVariable& variable : header) {
        if (variable.name == name)
            return &variable;
    }
    return nullptr;
}

const DxfTable* DxfDocument::table(const QString& name) const
{
    for (const DxfTable& candidate : tables) {
        if (candidate.name == name)
            return &candidate;
    }
    return nullptr;
}

QString DxfDocument::version() const
{
    const DxfHeaderVariable* variable = headerVariable(QStringLiteral("$ACADVER"));
    return variable ? firstValue(variable->groups, 1) : QStringLiteral("AC1009");
}

bool readDocument(const DxfGroups& groups, DxfDocument& document)
{
    DxfRecords records;
    if (!splitRecords(groups, records))
        return false;
    bool any = false, open = false;
    DxfRecord head;
    DxfRecords inside;
    for (DxfRecord& record : records) {
        if (!open) {
            if (record.type != QLatin1String("SECTION"))
                return false;
            head = std::move(record);
            open = true;
        } else if (record.type == QLatin1String("ENDSEC")) {
            takeSection(head, std::move(inside), document);
            inside = {};
            any = true;
            open = false;
        } else {
            inside.push_back(std::move(record));
        }
    }
    return any && !open;
}
