#include "host_access.h"
#include "host_faults.h"
#include "open_drawings.h"
#include "undo.h"

#include <dxf/drawing_file.h>

namespace {

NcDbDatabase* g_working = nullptr;

template <class T>
NcStatus openTable(T*& table, NcDbObjectId id, NcOpenMode mode)
{
    return ncdbOpenObject(table, id, mode);
}

} // namespace

NcDbDatabase::NcDbDatabase(bool withDefaults) : data_(std::make_unique<NcDatabaseData>())
{
    noteDrawing(this, true);
    HostAccess::addTables(*this);
    if (withDefaults)
        HostAccess::addDefaults(*this);
}

NcDbDatabase::~NcDbDatabase()
{
    noteDrawing(this, false);
    if (g_working == this)
        g_working = nullptr;
}

NcStatus NcDbDatabase::readDwgFile(const QString& path, ShareMode, const QString&)
{
    if (data_->openObjects > 0)
        return NcStatus::WasOpenForWrite;
    std::unique_ptr<NcDatabaseData> before = std::move(data_);
    data_ = std::make_unique<NcDatabaseData>();
    HostAccess::addTables(*this);
    HostAccess::beginLoading(*this);
    const NcStatus status = readDrawing(*this, path);
    if (!isOk(status)) {
        data_ = std::move(before);
        return status;
    }
    data_->listeners = before->listeners;
    HostAccess::finishLoading(*this);
    if (before->journal)
        keepJournal(*this);
    return NcStatus::Ok;
}

NcStatus NcDbDatabase::saveAs(const QString& path) { return writeDrawing(*this, path); }

NcDbObjectId NcDbDatabase::blockTableId() const { return data_->blockTable; }

NcDbObjectId NcDbDatabase::layerTableId() const { return data_->layerTable; }

NcDbObjectId NcDbDatabase::ucsTableId() const { return data_->ucsTable; }

NcDbObjectId NcDbDatabase::viewportTableId() const { return data_->viewportTable; }

NcDbObjectId NcDbDatabase::currentSpaceId() const { return data_->currentSpace; }

NcStatus NcDbDatabase::getSymbolTable(NcDbBlockTable*& table, NcOpenMode mode)
{
    if (hostFaults().sideTables && this != g_working) {
        table = nullptr;
        return NcStatus::NotFound;
    }
    return openTable(table, data_->blockTable, mode);
}

NcStatus NcDbDatabase::getSymbolTable(NcDbLayerTable*& table, NcOpenMode mode)
{
    return openTable(table, data_->layerTable, mode);
}

NcStatus NcDbDatabase::getSymbolTable(NcDbUCSTable*& table, NcOpenMode mode)
{
    return openTable(table, data_->ucsTable, mode);
}

NcStatus NcDbDatabase::getSymbolTable(NcDbViewportTable*& table, NcOpenMode mode)
{
    return openTable(table, data_->viewportTable, mode);
}

NcStatus NcDbDatabase::getGroupDictionary(NcDbDictionary*& dictionary, NcOpenMode mode)
{
    return openTable(dictionary, data_->groupDictionary, mode);
}

NcDbObjectId NcDbDatabase::clayer() const { return data_->currentLayer; }

NcStatus NcDbDatabase::setClayer(NcDbObjectId layer)
{
    const auto* record = HostAccess::objectAs<NcDbLayerTableRecord>(layer);
    if (!record || layer.database() != this)
        return NcStatus::NotFound;
    if (record->isErased())
        return NcStatus::WasErased;
    HostAccess::noteDrawing(*this);
    data_->currentLayer = layer;
    ++data_->changeCount;
    return NcStatus::Ok;
}

double NcDbDatabase::dimtxt() const { return data_->dimtxt; }

double NcDbDatabase::dimscale() const { return data_->dimscale; }

NcDbObjectIdArray NcDbDatabase::findBlockReferences(const QString& block, const QString& tag,
                                                    const QString& value) const
{
    const NcDbObjectId id = HostAccess::recordId(*this, data_->blockTable, block);
    const auto* record = HostAccess::objectAs<NcDbBlockTableRecord>(id);
    NcDbObjectIdArray found;
    // Blocks are looked up ignoring case but told apart exactly.
    if (record && record->getName() == block)
        for (quint64 handle : data_->index.find(id.handle(), tag, value))
            found.emplace_back(const_cast<NcDbDatabase*>(this), handle);
    return found;
}

NcDbDatabase* NcDbHostApplicationServices::workingDatabase() const { return g_working; }

void NcDbHostApplicationServices::setWorkingDatabase(NcDbDatabase* database) { g_working = database; }

NcDbHostApplicationServices* ncdbHostApplicationServices()
{
    static NcDbHostApplicationServices services;
    return &services;
}
