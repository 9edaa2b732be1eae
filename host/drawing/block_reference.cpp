#include "append.h"
#include "class_table.h"
#include "dynamic_definition.h"
#include "entity_clone.h"
#include "entity_shape.h"
#include "nesting.h"

#include <algorithm>
#include <cmath>

NCRX_DEFINE(NcDbBlockReference, NcDbEntity)

namespace {

std::vector<NcDbAttribute*> livingAttributes(const NcDbObjectIdArray& ids)
{
    std::vector<NcDbAttribute*> attributes;
    for (NcDbObjectId id : ids)
        if (auto* attribute = HostAccess::objectAs<NcDbAttribute>(id); attribute && !attribute->isErased())
            attributes.push_back(attribute);
    return attributes;
}

// Lets the owner change an attribute that nobody opened.
template <class Change>
void changeAttributes(const NcDbObjectIdArray& ids, const Change& change)
{
    for (NcDbAttribute* attribute : livingAttributes(ids)) {
        HostAccess::noteChange(*attribute);
        bool& open = HostAccess::data(*attribute).openForWrite;
        const bool before = open;
        open = true;
        change(*attribute);
        open = before;
    }
}

} // namespace

NcStatus NcDbBlockReference::setColorIndex(int index, bool withSubentities)
{
    NcCmColor color;
    const NcStatus status = color.setColorIndex(index);
    return isOk(status) ? setColor(color, withSubentities) : status;
}

NcStatus NcDbBlockReference::setColor(const NcCmColor& color, bool withSubentities)
{
    const NcStatus status = NcDbEntity::setColor(color, withSubentities);
    if (isOk(status) && withSubentities)
        changeAttributes(attributes_, [&](NcDbAttribute& attribute) { attribute.setColor(color); });
    return status;
}

NcStatus NcDbBlockReference::setLayer(const QString& name, bool withSubentities, bool allowLocked)
{
    const NcStatus status = NcDbEntity::setLayer(name, withSubentities, allowLocked);
    if (isOk(status) && withSubentities)
        changeAttributes(attributes_, [&](NcDbAttribute& attribute) { attribute.setLayer(name, true, allowLocked); });
    return status;
}

NcStatus NcDbBlockReference::setBlockTableRecord(NcDbObjectId definition)
{
    const auto* record = HostAccess::objectAs<NcDbBlockTableRecord>(definition);
    if (!record)
        return NcStatus::NotFound;
    if (record->isErased())
        return NcStatus::WasErased;
    if (database() && definition.database() != database())
        return NcStatus::InvalidInput;
    if (!writable())
        return NcStatus::NotOpenForWrite;
    definition_ = definition;
    const DynamicDefinition* parameters = HostAccess::dynamic(*record).get();
    const auto unknown = [&](const auto& value) { return !parameters || !parameters->parameter(value.first); };
    dynamicValues_.erase(std::remove_if(dynamicValues_.begin(), dynamicValues_.end(), unknown), dynamicValues_.end());
    changed();
    return NcStatus::Ok;
}

NcStatus NcDbBlockReference::setPosition(const NcGePoint3d& p)
{
    if (!writable())
        return NcStatus::NotOpenForWrite;
    const NcGeMatrix3d shift = NcGeMatrix3d::translation(p - position_);
    changeAttributes(attributes_, [&](NcDbAttribute& attribute) { attribute.transformBy(shift); });
    return assign(position_, p);
}

NcStatus NcDbBlockReference::setRotation(double radians)
{
    return std::isfinite(radians) ? assign(rotation_, normalAngle(radians)) : NcStatus::InvalidInput;
}

NcStatus NcDbBlockReference::setScaleFactors(const NcScale3d& scale)
{
    const bool finite = std::isfinite(scale.sx) && std::isfinite(scale.sy) && std::isfinite(scale.sz);
    return finite ? assign(scale_, scale) : NcStatus::InvalidInput;
}

NcGeMatrix3d NcDbBlockReference::blockTransform() const
{
    const double c = std::cos(rotation_), s = std::sin(rotation_);
    NcGeMatrix3d matrix;
    matrix.setCoordSystem(position_, NcGeVector3d(c, s, 0) * scale_.sx, NcGeVector3d(-s, c, 0) * scale_.sy,
                          NcGeVector3d(0, 0, scale_.sz));
    const auto* record = HostAccess::objectAs<NcDbBlockTableRecord>(definition_);
    if (!record)
        return matrix;
    return matrix * NcGeMatrix3d::translation(-record->origin().asVector());
}

NcStatus NcDbBlockReference::transformBy(const NcGeMatrix3d& matrix)
{
    if (!writable())
        return NcStatus::NotOpenForWrite;
    const PlaneChange plane(matrix);
    const NcGeVector3d upright = matrix * NcGeVector3d::kZAxis;
    position_ = matrix * position_;
    rotation_ = plane.angle(rotation_);
    scale_.sx *= plane.scale;
    scale_.sy *= plane.mirrored ? -plane.scale : plane.scale;
    scale_.sz *= upright.length();
    changeAttributes(attributes_, [&](NcDbAttribute& attribute) { attribute.transformBy(matrix); });
    changed();
    return NcStatus::Ok;
}

std::optional<NcGeExtents> NcDbBlockReference::extents() const
{
    ExtentsBuilder box;
    const DefinitionEntry definition(definition_);
    if (!definition.entered())
        return {};
    const NcGeMatrix3d place = blockTransform();
    for (const EvaluatedEntity& part : evaluatedEntities(*this)) {
        if (!part.entity->isVisible() || part.entity->isKindOf(NcDbAttributeDefinition::desc()))
            continue;
        part.entity->transformBy(place);
        if (const auto partBox = part.entity->extents())
            box.add(*partBox);
    }
    for (const NcDbAttribute* attribute : livingAttributes(attributes_))
        if (attribute->isVisible() && !attribute->isInvisible())
            if (const auto partBox = attribute->extents())
                box.add(*partBox);
    return box.result();
}

NcDbEntity* NcDbBlockReference::clone() const
{
    return cloned(*this, [&](NcDbBlockReference& copy) {
        copy.position_ = position_;
        copy.definition_ = definition_;
        copy.rotation_ = rotation_;
        copy.scale_ = scale_;
        copy.normal_ = normal_;
        copy.dynamicValues_ = dynamicValues_;
    });
}

NcDbObjectIterator* NcDbBlockReference::attributeIterator() const
{
    NcDbObjectIdArray ids;
    for (const NcDbAttribute* attribute : livingAttributes(attributes_))
        ids.push_back(attribute->objectId());
    return new NcDbObjectIterator(std::move(ids));
}

NcStatus NcDbBlockReference::appendAttribute(NcDbObjectId& id, NcDbAttribute* attribute)
{
    if (!attribute)
        return NcStatus::InvalidInput;
    const NcStatus status = mayAppend(*this, *attribute);
    if (!isOk(status))
        return status;
    id = HostAccess::addAttribute(*this, std::unique_ptr<NcDbAttribute>(attribute));
    openAppended(*attribute);
    if (!dynamicValues_.empty())
        placeAttributes(*this);
    return NcStatus::Ok;
}

NcStatus NcDbBlockReference::appendAttribute(NcDbAttribute* attribute)
{
    NcDbObjectId id;
    return appendAttribute(id, attribute);
}
