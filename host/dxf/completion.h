// What a file must hold and a drawing need not: records of tables, dictionaries,
// layouts. Taken from what was kept of the file that the drawing came from, and
// made where that lacks them.
#pragma once

#include "document.h"

#include <drawing/host_access.h>

#include <QSet>

class FileCompletion {
public:
    explicit FileCompletion(const NcDbDatabase& database);

    // Tables that the drawing does not know, by name; the first record of one
    // that every file has is its head, of type "TABLE".
    const DxfRecords& table(const QString& name) const;
    const DxfRecords& objects() const { return objects_; }
    const DxfRecords& classes() const { return classes_; }
    // Entries of the root dictionary that the drawing itself lacks.
    const DxfGroups& rootEntries() const { return rootEntries_; }
    quint64 plotStyle() const { return plotStyle_; }
    // The layout object of a layout block; 0 for any other block.
    quint64 layoutOf(quint64 block) const { return layouts_.value(block, 0); }
    // The dictionary that has to name the draw order of a block.
    quint64 orderDictionaryOf(quint64 block) const { return orderDictionaries_.value(block, 0); }

    bool isDead(quint64 handle) const { return !alive_.contains(handle); }
    // For what stands in the file only.
    quint64 nextHandle() const { return next_; }

private:
    quint64 newHandle();
    DxfRecord* findObject(quint64 handle);
    void keepLiving();
    void dropDeadEntries();
    DxfRecords& tableRecords(const QString& name);
    void ensureRecord(const QString& table, const QString& name, const char* subclass, const DxfGroups& groups);
    void ensureHead(const QString& name);
    void ensureTables();
    // Handle of a dictionary that the root names, made when it is not there.
    quint64 ensureDictionary(const QString& key);
    void addEntry(quint64 dictionary, const QString& key, quint64 handle);
    void ensureObjects();
    void ensurePlotStyle();
    void ensureLineStyle();
    void ensureLayouts();
    void ensureDrawOrders();
    void ensureClasses();

    const NcDbDatabase& database_;
    const NcDatabaseData& drawing_;
    std::vector<std::pair<QString, DxfRecords>> tables_;
    DxfRecords objects_, classes_;
    DxfGroups rootEntries_;
    QSet<quint64> alive_;
    QHash<quint64, quint64> layouts_, orderDictionaries_;
    quint64 plotStyle_ = 0;
    quint64 next_ = 1;
};

// The handle in the record's head; 0 for none.
quint64 ownerOf(const DxfRecord& record);
