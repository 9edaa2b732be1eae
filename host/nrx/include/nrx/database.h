// A drawing.
#pragma once

#include "tables.h"

#include <map>

class NcDbIdMapping;
struct NcDatabaseData;

// The drawing's own record: title and the properties that programs add.
class NRX_API NcDbDatabaseSummaryInfo {
public:
    NcStatus getCustomSummaryInfo(const QString& key, QString& value) const;
    // Fails with NotFound when there is no such key.
    NcStatus setCustomSummaryInfo(const QString& key, const QString& value);
    // Fails with Duplicate when the key is there.
    NcStatus addCustomSummaryInfo(const QString& key, const QString& value);
    int numCustomInfo() const { return int(entries_.size()); }
    const std::vector<std::pair<QString, QString>>& entries() const { return entries_; }

private:
    std::vector<std::pair<QString, QString>> entries_;
};

NRX_API NcStatus ncdbGetSummaryInfo(NcDbDatabase* database, NcDbDatabaseSummaryInfo& info);
NRX_API NcStatus ncdbPutSummaryInfo(NcDbDatabase* database, const NcDbDatabaseSummaryInfo& info);

// Which object a clone came from.
class NRX_API NcDbIdMapping {
public:
    // The null id when the object was not cloned.
    NcDbObjectId cloneOf(NcDbObjectId source) const;
    void add(NcDbObjectId source, NcDbObjectId clone) { map_[source] = clone; }

private:
    std::map<NcDbObjectId, NcDbObjectId> map_;
};

class NRX_API NcDbDatabase {
public:
    // With defaults: layer "0", *Model_Space, *Paper_Space, the group dictionary.
    explicit NcDbDatabase(bool withDefaults = true);
    ~NcDbDatabase();
    NcDbDatabase(const NcDbDatabase&) = delete;
    NcDbDatabase& operator=(const NcDbDatabase&) = delete;

    enum ShareMode { kShareForRead, kShareForWrite };
    // Replaces what the drawing holds. FileAccess or FileFormat leave it as it was.
    NcStatus readDwgFile(const QString& path, ShareMode share = kShareForRead, const QString& password = {});
    // Written beside the path and moved over it.
    NcStatus saveAs(const QString& path);

    NcDbObjectId blockTableId() const;
    NcDbObjectId layerTableId() const;
    NcDbObjectId ucsTableId() const;
    NcDbObjectId viewportTableId() const;
    NcDbObjectId currentSpaceId() const;
    NcStatus getSymbolTable(NcDbBlockTable*& table, NcOpenMode mode);
    NcStatus getSymbolTable(NcDbLayerTable*& table, NcOpenMode mode);
    NcStatus getSymbolTable(NcDbUCSTable*& table, NcOpenMode mode);
    NcStatus getSymbolTable(NcDbViewportTable*& table, NcOpenMode mode);
    NcStatus getGroupDictionary(NcDbDictionary*& dictionary, NcOpenMode mode);

    // Current layer.
    NcDbObjectId clayer() const;
    NcStatus setClayer(NcDbObjectId layer);
    // Text height and overall scale of dimensions.
    double dimtxt() const;
    double dimscale() const;

    enum DuplicateRecords { kIgnoreDuplicates, kReplaceDuplicates };
    // Deep copies of objects of another drawing, with all that they refer to,
    // to `owner` of this one. A block of the same name is left as it is with
    // kIgnoreDuplicates.
    NcStatus wblockCloneObjects(const NcDbObjectIdArray& ids, NcDbObjectId owner, NcDbIdMapping& mapping,
                                DuplicateRecords rule);

    // References of `block` (an attribute `tag` of which reads `value`), in
    // model space, in the order of their creation; found through the drawing's
    // index, in time that does not grow with the drawing. A host without such
    // an index offers the same by a walk.
    NcDbObjectIdArray findBlockReferences(const QString& block, const QString& tag, const QString& value) const;

    std::unique_ptr<NcDatabaseData> data_;
};

class NRX_API NcDbHostApplicationServices {
public:
    // The drawing that is active; never null in a command.
    NcDbDatabase* workingDatabase() const;
    void setWorkingDatabase(NcDbDatabase* database);
};
NRX_API NcDbHostApplicationServices* ncdbHostApplicationServices();
