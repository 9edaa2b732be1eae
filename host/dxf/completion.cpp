#include "completion.h"

#include "entity_codec.h"
#include "fields.h"
#include "layout_groups.h"
#include "own_data.h"
#include "record_writer.h"
#include "text_coding.h"

#include <algorithm>

namespace {

// A typeface that has Cyrillic letters and stands on every machine, or its like.
const QString kFont = QStringLiteral("arial.ttf"), kTypeface = QStringLiteral("Arial");

DxfRecord object(const char* type, quint64 handle, quint64 owner, const DxfGroups& groups)
{
    DxfRecord record{QLatin1String(type), {{5, handleText(handle)}, {330, handleText(owner)}}};
    record.groups.insert(record.groups.end(), groups.begin(), groups.end());
    return record;
}

bool isDictionary(const DxfRecord& record)
{
    return record.type == QLatin1String("DICTIONARY") || record.type == QLatin1String("ACDBDICTIONARYWDFLT");
}

// Where an entry of this key stands in a dictionary's groups, or past the end.
size_t entryAt(const DxfGroups& groups, const QString& key)
{
    for (size_t i = 0; i + 1 < groups.size(); ++i) {
        if (groups[i].code == 3 && fromCaretCoding(groups[i].value) == key)
            return i;
    }
    return groups.size();
}

} // namespace

quint64 ownerOf(const DxfRecord& record)
{
    DxfFields fields(record.groups);
    fields.enterHead();
    return fields.handle(330);
}

FileCompletion::FileCompletion(const NcDbDatabase& database)
    : database_(database),
      drawing_(HostAccess::data(database)),
      tables_(drawing_.foreignTables),
      classes_(drawing_.foreignClasses),
      next_(drawing_.handleSeed)
{
    for (const auto& entry : drawing_.objects) {
        if (!entry.second->isErased())
            alive_.insert(entry.first);
    }
    keepLiving();
    ensureTables();
    ensureObjects();
    ensureClasses();
}

quint64 FileCompletion::newHandle()
{
    alive_.insert(next_);
    return next_++;
}

// Kept objects whose owners were erased, and what these own, go with them.
void FileCompletion::keepLiving()
{
    for (const auto& table : tables_) {
        for (const DxfRecord& record : table.second)
            alive_.insert(record.type == QLatin1String("DIMSTYLE") ? handleOf(firstValue(record.groups, 105))
                                                                   : handleOf(firstValue(record.groups, 5)));
    }
    QSet<quint64> dead;
    for (const auto& entry : drawing_.objects) {
        if (entry.second->isErased())
            dead.insert(entry.first);
    }
    objects_ = drawing_.foreignObjects;
    bool again = !dead.isEmpty();
    while (again) {
        again = false;
        const auto end = std::remove_if(objects_.begin(), objects_.end(), [&](const DxfRecord& record) {
            if (!dead.contains(ownerOf(record)))
                return false;
            dead.insert(handleOf(firstValue(record.groups, 5)));
            return again = true;
        });
        objects_.erase(end, objects_.end());
    }
    for (const DxfRecord& record : objects_)
        alive_.insert(handleOf(firstValue(record.groups, 5)));
    if (!dead.isEmpty())
        dropDeadEntries();
}

void FileCompletion::dropDeadEntries()
{
    for (DxfRecord& record : objects_) {
        if (!isDictionary(record))
            continue;
        DxfGroups groups;
        for (size_t i = 0; i < record.groups.size(); ++i) {
            const bool entry = record.groups[i].code == 3 && i + 1 < record.groups.size();
            if (entry && isDead(handleOf(record.groups[i + 1].value)))
                ++i;
            else
                groups.push_back(record.groups[i]);
        }
        record.groups = std::move(groups);
    }
}

DxfRecord* FileCompletion::findObject(quint64 handle)
{
    for (DxfRecord& record : objects_) {
        if (handle && handleOf(firstValue(record.groups, 5)) == handle)
            return &record;
    }
    return nullptr;
}

const DxfRecords& FileCompletion::table(const QString& name) const
{
    static const DxfRecords none;
    for (const auto& table : tables_) {
        if (table.first == name)
            return table.second;
    }
    return none;
}

DxfRecords& FileCompletion::tableRecords(const QString& name)
{
    for (auto& table : tables_) {
        if (table.first == name)
            return table.second;
    }
    tables_.push_back({name, {}});
    return tables_.back().second;
}

void FileCompletion::ensureRecord(const QString& table, const QString& name, const char* subclass,
                                  const DxfGroups& groups)
{
    DxfRecords& records = tableRecords(table);
    for (const DxfRecord& record : records) {
        if (record.type != QLatin1String("TABLE")
            && fromCaretCoding(firstValue(record.groups, 2)).compare(name, Qt::CaseInsensitive) == 0)
            return;
    }
    const int handleCode = table == QLatin1String("DIMSTYLE") ? 105 : 5;
    DxfRecord record{table,
                     {{handleCode, handleText(newHandle())},
                      {100, QStringLiteral("AcDbSymbolTableRecord")},
                      {100, QLatin1String(subclass)},
                      {2, toCaretCoding(name)},
                      {70, QStringLiteral("0")}}};
    record.groups.insert(record.groups.end(), groups.begin(), groups.end());
    records.push_back(std::move(record));
}

void FileCompletion::ensureTables()
{
    for (const char* name : {"ByBlock", "ByLayer", "Continuous"})
        ensureRecord(QStringLiteral("LTYPE"), QLatin1String(name), "AcDbLinetypeTableRecord",
                     {{3, {}}, {72, QStringLiteral("65")}, {73, QStringLiteral("0")}, {40, QStringLiteral("0.0")}});
    for (const char* name : {"Standard", kTextStyle})
        ensureRecord(QStringLiteral("STYLE"), QLatin1String(name), "AcDbTextStyleTableRecord",
                     {{40, QStringLiteral("0.0")},
                      {41, QStringLiteral("1.0")},
                      {50, QStringLiteral("0.0")},
                      {71, QStringLiteral("0")},
                      {42, QStringLiteral("2.5")},
                      {3, kFont},
                      {4, {}},
                      {1001, QStringLiteral("ACAD")},
                      {1000, kTypeface},
                      {1071, QStringLiteral("34")}});
    for (const QString& name : {QStringLiteral("ACAD"), QString(QLatin1String(ownApplication()))})
        ensureRecord(QStringLiteral("APPID"), name, "AcDbRegAppTableRecord", {});
    ensureRecord(QStringLiteral("DIMSTYLE"), QStringLiteral("Standard"), "AcDbDimStyleTableRecord", {});
    for (const char* name : {"LTYPE", "STYLE", "VIEW", "APPID", "DIMSTYLE"})
        ensureHead(QLatin1String(name));
}

// Also of a table that was read without a handle.
void FileCompletion::ensureHead(const QString& name)
{
    DxfRecords& records = tableRecords(name);
    const bool there = !records.empty() && records.front().type == QLatin1String("TABLE");
    if (!there)
        records.insert(records.begin(), {QStringLiteral("TABLE"), {{2, name}}});
    if (firstValue(records.front().groups, 5).isEmpty())
        records.front().groups.insert(records.front().groups.begin() + 1, {5, handleText(newHandle())});
}

quint64 FileCompletion::ensureDictionary(const QString& key)
{
    const DxfRest rest = restOf(HostAccess::data(*HostAccess::object(drawing_.namedObjects)));
    const DxfGroups* kept = rest.body(QStringLiteral("AcDbDictionary"));
    const size_t at = kept ? entryAt(*kept, key) : 0;
    if (kept && at < kept->size())
        return handleOf((*kept)[at + 1].value);
    const quint64 handle = newHandle();
    objects_.push_back(object("DICTIONARY", handle, drawing_.namedObjects.handle(),
                              {{100, QStringLiteral("AcDbDictionary")}, {281, QStringLiteral("1")}}));
    rootEntries_.push_back({3, key});
    rootEntries_.push_back({350, handleText(handle)});
    return handle;
}

void FileCompletion::addEntry(quint64 dictionary, const QString& key, quint64 handle)
{
    DxfRecord* record = findObject(dictionary);
    if (!record)
        return;
    const auto xdata = std::find_if(record->groups.begin(), record->groups.end(), [](const DxfGroup& group) {
        return group.code >= 1000 || (group.code == 100 && group.value == QLatin1String("AcDbDictionaryWithDefault"));
    });
    record->groups.insert(xdata, {{3, toCaretCoding(key)}, {350, handleText(handle)}});
}

void FileCompletion::ensureObjects()
{
    ensureDictionary(QStringLiteral("ACAD_LAYOUT"));
    ensureDictionary(QStringLiteral("ACAD_MATERIAL"));
    ensureDictionary(QStringLiteral("ACAD_MLINESTYLE"));
    ensureDictionary(QStringLiteral("ACAD_PLOTSETTINGS"));
    ensurePlotStyle();
    ensureLineStyle();
    ensureLayouts();
    ensureDrawOrders();
}

void FileCompletion::ensurePlotStyle()
{
    const QString key = QStringLiteral("ACAD_PLOTSTYLENAME"), normal = QStringLiteral("Normal");
    const DxfRest rest = restOf(HostAccess::data(*HostAccess::object(drawing_.namedObjects)));
    const DxfGroups* kept = rest.body(QStringLiteral("AcDbDictionary"));
    if (kept && entryAt(*kept, key) < kept->size()) {
        const DxfRecord* styles = findObject(handleOf((*kept)[entryAt(*kept, key) + 1].value));
        const size_t at = styles ? entryAt(styles->groups, normal) : 0;
        plotStyle_ = styles && at < styles->groups.size() ? handleOf(styles->groups[at + 1].value) : 0;
        return;
    }
    const quint64 dictionary = newHandle();
    plotStyle_ = newHandle();
    const QString style = handleText(plotStyle_);
    objects_.push_back(object("ACDBDICTIONARYWDFLT", dictionary, drawing_.namedObjects.handle(),
                              {{100, QStringLiteral("AcDbDictionary")},
                               {281, QStringLiteral("1")},
                               {3, normal},
                               {350, style},
                               {100, QStringLiteral("AcDbDictionaryWithDefault")},
                               {340, style}}));
    objects_.push_back(object("ACDBPLACEHOLDER", plotStyle_, dictionary, {}));
    rootEntries_.push_back({3, key});
    rootEntries_.push_back({350, handleText(dictionary)});
}

// The style of multiple lines that every drawing has.
void FileCompletion::ensureLineStyle()
{
    const quint64 dictionary = ensureDictionary(QStringLiteral("ACAD_MLINESTYLE"));
    const QString standard = QStringLiteral("Standard");
    const DxfRecord* styles = findObject(dictionary);
    const bool there = std::any_of(objects_.begin(), objects_.end(),
                                   [](const DxfRecord& record) { return record.type == QLatin1String("MLINESTYLE"); });
    if (!styles || there)
        return;
    const quint64 handle = newHandle();
    objects_.push_back(object("MLINESTYLE", handle, dictionary, mlineStyleGroups()));
    addEntry(dictionary, standard, handle);
}

void FileCompletion::ensureLayouts()
{
    const auto* table = HostAccess::objectAs<NcDbBlockTable>(drawing_.blockTable);
    const quint64 dictionary = ensureDictionary(QStringLiteral("ACAD_LAYOUT"));
    int order = 0;
    for (NcDbObjectId id : HostAccess::records(*table)) {
        const auto* block = HostAccess::objectAs<NcDbBlockTableRecord>(id);
        if (!block || block->isErased() || !block->isLayout())
            continue;
        const bool model = id == drawing_.modelSpace;
        order += model ? 0 : 1;
        const DxfRest rest = restOf(HostAccess::data(*block));
        const DxfGroups* kept = rest.body(QStringLiteral("AcDbBlockTableRecord"));
        const quint64 known = kept ? handleOf(firstValue(*kept, 340)) : 0;
        if (findObject(known)) {
            layouts_.insert(id.handle(), known);
            continue;
        }
        const quint64 handle = newHandle();
        const QString name = model ? QStringLiteral("Model") : QStringLiteral("Layout%1").arg(order);
        objects_.push_back(object("LAYOUT", handle, dictionary, layoutGroups(name, model ? 0 : order, id.handle())));
        addEntry(dictionary, name, handle);
        layouts_.insert(id.handle(), handle);
    }
}

void FileCompletion::ensureDrawOrders()
{
    const QString key = QStringLiteral("ACAD_SORTENTS");
    const auto* table = HostAccess::objectAs<NcDbBlockTable>(drawing_.blockTable);
    for (NcDbObjectId id : HostAccess::records(*table)) {
        const auto* block = HostAccess::objectAs<NcDbBlockTableRecord>(id);
        if (!block || block->isErased() || !HostAccess::objectAs<NcDbSortentsTable>(HostAccess::sortents(*block)))
            continue;
        quint64 dictionary = HostAccess::data(*block).extensionDictionary;
        if (!findObject(dictionary)) {
            dictionary = newHandle();
            objects_.push_back(object("DICTIONARY", dictionary, id.handle(),
                                      {{280, QStringLiteral("1")}, {281, QStringLiteral("1")}}));
            objects_.back().groups.insert(objects_.back().groups.begin() + 2, {100, QStringLiteral("AcDbDictionary")});
        }
        const DxfRecord& record = *findObject(dictionary);
        if (entryAt(record.groups, key) == record.groups.size())
            addEntry(dictionary, key, HostAccess::sortents(*block).handle());
        orderDictionaries_.insert(id.handle(), dictionary);
    }
}

void FileCompletion::ensureClasses()
{
    struct Class {
        const char* name;
        const char* cpp;
    };
    static const Class kNeeded[] = {
        {"ACDBDICTIONARYWDFLT", "AcDbDictionaryWithDefault"},
        {"ACDBPLACEHOLDER", "AcDbPlaceHolder"},
        {"LAYOUT", "AcDbLayout"},
        {"SORTENTSTABLE", "AcDbSortentsTable"},
    };
    for (const Class& needed : kNeeded) {
        const bool there = std::any_of(classes_.begin(), classes_.end(), [&](const DxfRecord& record) {
            return firstValue(record.groups, 1) == QLatin1String(needed.name);
        });
        if (!there)
            classes_.push_back({QStringLiteral("CLASS"),
                                {{1, QLatin1String(needed.name)},
                                 {2, QLatin1String(needed.cpp)},
                                 {3, QStringLiteral("ObjectDBX Classes")},
                                 {90, QStringLiteral("0")},
                                 {91, QStringLiteral("1")},
                                 {280, QStringLiteral("0")},
                                 {281, QStringLiteral("0")}}});
    }
}
