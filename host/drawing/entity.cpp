#include "class_table.h"
#include "host_access.h"

NCRX_DEFINE(NcDbEntity, NcDbObject)

namespace {

// The drawing that an entity's layer is looked up in.
const NcDbDatabase* drawingOf(const NcDbEntity& entity)
{
    return entity.database() ? entity.database() : ncdbHostApplicationServices()->workingDatabase();
}

} // namespace

NcDbEntity::NcDbEntity() = default;

NcStatus NcDbEntity::setColorIndex(int index, bool withSubentities)
{
    NcCmColor color;
    const NcStatus status = color.setColorIndex(index);
    return isOk(status) ? setColor(color, withSubentities) : status;
}

NcStatus NcDbEntity::setColor(const NcCmColor& color, bool) { return assign(color_, color); }

NcStatus NcDbEntity::setLayer(const QString& name, bool, bool allowLocked)
{
    const NcDbDatabase* drawing = drawingOf(*this);
    if (!drawing)
        return NcStatus::NotInDatabase;
    const NcDbObjectId id = HostAccess::recordId(*drawing, HostAccess::data(*drawing).layerTable, name);
    const auto* layer = HostAccess::objectAs<NcDbLayerTableRecord>(id);
    if (!layer)
        return NcStatus::NotFound;
    if (layer->isLocked() && !allowLocked)
        return NcStatus::OnLockedLayer;
    return assign(layer_, layer->getName());
}

NcStatus NcDbEntity::setLinetype(const QString& name)
{
    return name.isEmpty() ? NcStatus::InvalidInput : assign(linetype_, name);
}

void NcDbEntity::setVisible(bool visible) { assign(visible_, visible); }

void NcDbEntity::setDatabaseDefaults(NcDbDatabase* database)
{
    if (!writable())
        return;
    const NcDbDatabase* drawing = database ? database : drawingOf(*this);
    const auto* layer = drawing ? HostAccess::objectAs<NcDbLayerTableRecord>(drawing->clayer()) : nullptr;
    layer_ = layer ? layer->getName() : QStringLiteral("0");
    color_ = NcCmColor();
    linetype_ = QStringLiteral("ByLayer");
    visible_ = true;
    changed();
}

NcStatus NcDbEntity::setPropertiesFrom(const NcDbEntity* other)
{
    if (!other)
        return NcStatus::InvalidInput;
    if (!writable())
        return NcStatus::NotOpenForWrite;
    color_ = other->color_;
    layer_ = other->layer_;
    linetype_ = other->linetype_;
    visible_ = other->visible_;
    changed();
    return NcStatus::Ok;
}
