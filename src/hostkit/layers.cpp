#include "hostkit/layers.h"

#include "hostkit/symbol_tables.h"

namespace {

using OpenedLayer = Opened<NcDbLayerTableRecord>;

OpenedLayer openLayer(const QString& name, NcOpenMode mode)
{
    return openRecord<NcDbLayerTableRecord, NcDbLayerTable>(name, mode);
}

} // namespace

bool ensureLayer(const QString& name, int colorIndex)
{
    const Opened<NcDbLayerTable> table = openTable<NcDbLayerTable>(kForWrite);
    if (!table)
        return false;
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
    const OpenedLayer layer = openLayer(name, kForWrite);
    if (!layer)
        return false;
    layer->setIsLocked(locked);
    return true;
}

QStringList layerNames()
{
    const Opened<NcDbLayerTable> table = openTable<NcDbLayerTable>(kForRead);
    QStringList names;
    for (const NcDbObjectId& id : table ? recordIds(*table) : NcDbObjectIdArray()) {
        const OpenedLayer layer(id, kForRead);
        if (layer)
            names.append(layer->getName());
    }
    return names;
}

QString currentLayer()
{
    const OpenedLayer layer(workingDatabase()->clayer(), kForRead);
    return layer ? layer->getName() : QString();
}

QString layerOf(NcDbObjectId entity)
{
    const Opened<NcDbEntity> opened(entity, kForRead);
    return opened ? opened->layer() : QString();
}

LayerUnlock::LayerUnlock(const QString& name) : name_(name)
{
    {
        const OpenedLayer layer = openLayer(name, kForRead);
        open_ = layer && !layer->isLocked();
        wasLocked_ = layer && layer->isLocked();
    }
    if (wasLocked_)
        open_ = wasLocked_ = setLayerLocked(name, false);
}

LayerUnlock::~LayerUnlock()
{
    if (wasLocked_)
        setLayerLocked(name_, true);
}

bool eraseEntity(NcDbObjectId id)
{
    const Unlocked<NcDbEntity> entity(id);
    return entity && isOk(entity->erase());
}
