#include "long_data.h"

#include "own_data.h"

#include <QHash>
#include <algorithm>

namespace {

constexpr int kMostBytes = 14000;

struct CodePair {
    int xdata, record;
};

const CodePair kCodes[] = {{1000, 1}, {1002, 300}, {1040, 40}, {1071, 90}};

DxfGroups inRecord(const DxfGroups& groups)
{
    DxfGroups result;
    for (const DxfGroup& group : groups) {
        for (const CodePair& pair : kCodes) {
            if (pair.xdata == group.code)
                result.push_back({pair.record, group.value});
        }
    }
    return result;
}

// Groups of an extension record's own subclass, as extension data.
DxfGroups fromRecord(const DxfRecord& record)
{
    DxfGroups result{{1001, QLatin1String(ownApplication())}};
    bool inside = false;
    for (const DxfGroup& group : record.groups) {
        inside = inside || group.code == 100;
        for (const CodePair& pair : kCodes) {
            if (inside && pair.record == group.code)
                result.push_back({pair.xdata, group.value});
        }
    }
    return result;
}

DxfRecord recordOf(const char* type, quint64 handle, quint64 owner, const char* subclass)
{
    return {QLatin1String(type), {{5, handleText(handle)}, {330, handleText(owner)}, {100, QLatin1String(subclass)}}};
}

// Where the root names the dictionary.
size_t entryAt(const DxfGroups& groups)
{
    size_t at = 0;
    while (at + 1 < groups.size() && !(groups[at].code == 3 && groups[at].value == longDataKey()))
        ++at;
    return at + 1 < groups.size() ? at : groups.size();
}

using DataByHandle = QHash<QString, DxfGroups>;

void restore(DxfRecord& record, const DataByHandle& data)
{
    const auto found = data.constFind(firstValue(record.groups, 5).toUpper());
    if (found == data.constEnd())
        return;
    // The short form that stands in their place.
    const auto own = std::find_if(record.groups.begin(), record.groups.end(), [](const DxfGroup& group) {
        return group.code == 1001 && group.value.trimmed() == QLatin1String(ownApplication());
    });
    record.groups.erase(own, record.groups.end());
    record.groups.insert(record.groups.end(), found->begin(), found->end());
}

void restore(DxfEntities& entities, const DataByHandle& data)
{
    for (DxfEntity& entity : entities) {
        restore(entity.main, data);
        for (DxfRecord& part : entity.parts)
            restore(part, data);
    }
}

DataByHandle takeRecords(DxfDocument& document, const QString& dictionary)
{
    QHash<QString, QString> owners; // record to what it belongs to
    for (const DxfRecord& object : document.objects) {
        if (firstValue(object.groups, 5) != dictionary)
            continue;
        for (size_t i = 0; i + 1 < object.groups.size(); ++i) {
            if (object.groups[i].code == 3)
                owners.insert(object.groups[i + 1].value.trimmed(), object.groups[i].value.trimmed().toUpper());
        }
    }
    DataByHandle data;
    const auto end = std::remove_if(document.objects.begin(), document.objects.end(), [&](const DxfRecord& object) {
        const QString handle = firstValue(object.groups, 5);
        if (owners.contains(handle))
            data.insert(owners.value(handle), fromRecord(object));
        return handle == dictionary || owners.contains(handle);
    });
    document.objects.erase(end, document.objects.end());
    return data;
}

} // namespace

QString longDataKey() { return QStringLiteral("TERVA_DATA"); }

bool isTooLong(const DxfGroups& xdata)
{
    int bytes = 0;
    for (const DxfGroup& group : xdata)
        bytes += group.value.toUtf8().size() + 3;
    return bytes > kMostBytes;
}

DxfRecords longDataRecords(const std::vector<DxfLongData>& data, quint64 root, const std::vector<quint64>& handles)
{
    DxfRecords records{recordOf("DICTIONARY", handles[0], root, "AcDbDictionary")};
    records.front().groups.push_back({281, QStringLiteral("1")});
    for (size_t i = 0; i < data.size(); ++i) {
        records.front().groups.push_back({3, handleText(data[i].handle)});
        records.front().groups.push_back({350, handleText(handles[i + 1])});
        DxfRecord record = recordOf("XRECORD", handles[i + 1], handles[0], "AcDbXrecord");
        record.groups.push_back({280, QStringLiteral("1")});
        const DxfGroups groups = inRecord(data[i].groups);
        record.groups.insert(record.groups.end(), groups.begin(), groups.end());
        records.push_back(std::move(record));
    }
    return records;
}

void restoreLongData(DxfDocument& document)
{
    if (document.objects.empty())
        return;
    DxfGroups& root = document.objects.front().groups;
    const size_t at = entryAt(root);
    if (at == root.size())
        return;
    const QString dictionary = root[at + 1].value.trimmed();
    root.erase(root.begin() + std::ptrdiff_t(at), root.begin() + std::ptrdiff_t(at) + 2);
    const DataByHandle data = takeRecords(document, dictionary);
    for (DxfTable& table : document.tables) {
        for (DxfRecord& record : table.records)
            restore(record, data);
    }
    for (DxfBlock& block : document.blocks)
        restore(block.entities, data);
    restore(document.entities, data);
}
