#include "hostkit/layers.h"

#include "hostkit/model_space.h"

bool ensureLayer(const QString& name, int colorIndex)
{
    NcDbLayerTable* opened = nullptr;
    if (!isOk(workingDatabase()->getSymbolTable(opened, kForWrite)))
        return false;
    const Opened<NcDbLayerTable> table(opened);
    if (table->has(name))
        return true;
    const Made<NcDbLayerTableRecord> layer(new NcDbLayerTableRecord);
    layer->setName(name);
    layer->setColor(NcCmColor::fromIndex(colorIndex));
    NcDbObjectId id;
    return isOk(table->add(id, layer.get()));
}

bool setLayerLocked(const QString& name, bool locked)
{
    NcDbLayerTable* opened = nullptr;
    if (!isOk(workingDatabase()->getSymbolTable(opened, kForRead)))
        return false;
    const Opened<NcDbLayerTable> table(opened);
    NcDbLayerTableRecord* record = nullptr;
    if (!isOk(table->getAt(name, record, kForWrite)))
        return false;
    const Opened<NcDbLayerTableRecord> layer(record);
    layer->setIsLocked(locked);
    return true;
}

QStringList layerNames()
{
    NcDbLayerTable* opened = nullptr;
    if (!isOk(workingDatabase()->getSymbolTable(opened, kForRead)))
        return {};
    const Opened<NcDbLayerTable> table(opened);
    QStringList names;
    const std::unique_ptr<NcDbSymbolTableIterator> records(table->newIterator());
    for (; !records->done(); records->step()) {
        NcDbObjectId id;
        records->getRecordId(id);
        const Opened<NcDbLayerTableRecord> layer(id, kForRead);
        if (layer)
            names.append(layer->getName());
    }
    return names;
}

LayerUnlock::LayerUnlock(const QString& name) : name_(name) { setLayerLocked(name_, false); }

LayerUnlock::~LayerUnlock() { setLayerLocked(name_, true); }
