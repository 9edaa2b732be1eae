// The block reference of an element: reading it, placing it, bringing it up to
// date.
#include "elements/element_block.h"

#include "base/placeholders.h"
#include "base/text.h"
#include "elements/element_layers.h"
#include "hostkit/block_reference.h"
#include "hostkit/console.h"
#include "hostkit/layers.h"
#include "hostkit/symbol_tables.h"

#include <nrx/database.h>

#include <algorithm>

namespace {

// A value as the host prints it; also what allowed values are compared by.
QString printedForm(const NcDbEvalVariant& value)
{
    switch (value.restype()) {
    case 1: return value.text();
    case 40: return general(value.real());
    default: return QString::number(value.integer());
    }
}

NcDbEvalVariant variantOf(int propertyType, const QString& text)
{
    switch (propertyType) {
    case 90: return NcDbEvalVariant(text.toInt());
    case 70: return NcDbEvalVariant(short(text.toInt()));
    case 40: return NcDbEvalVariant(text.toDouble());
    default: return NcDbEvalVariant(text);
    }
}

int kindOfReference(NcDbObjectId reference)
{
    const QString name = NcDbDynBlockReference(reference).isDynamicBlock() ? definitionNameOf(reference) : QString();
    return name.isEmpty() ? noKind : kindByBlockName(name);
}

void addAttribute(NcDbBlockReference& reference, const NcDbAttributeDefinition& definition, const QString& text)
{
    const Made<NcDbAttribute> attribute(new NcDbAttribute);
    attribute->setPropertiesFrom(&definition);
    attribute->setInvisible(definition.isInvisible());
    attribute->setAttributeFromBlock(&definition, reference.blockTransform());
    attribute->setTag(definition.tag());
    attribute->setFieldLength(25);
    attribute->setTextString(text);
    reference.appendAttribute(attribute.get());
}

// An attribute of the reference for every attribute definition of its block.
void addAttributes(NcDbBlockReference& reference, NcDbObjectId definition, const TextMap& texts)
{
    const Opened<NcDbBlockTableRecord> block(definition, kForRead);
    if (!block)
        return;
    const std::unique_ptr<NcDbBlockTableRecordIterator> entities(block->newIterator());
    for (entities->start(); !entities->done(); entities->step()) {
        NcDbEntity* entity = nullptr;
        if (!isOk(entities->getEntity(entity, kForRead)))
            continue;
        const Opened<NcDbEntity> opened(entity);
        const NcDbAttributeDefinition* field = NcDbAttributeDefinition::cast(entity);
        if (field && !field->isConstant())
            addAttribute(reference, *field, texts.value(field->tag()));
    }
}

// What the drawing does not do is told: the row would lack its block unseen.
bool complain(const ElementBlock& element, const char* what)
{
    say(fill(what, element.blockName, element.attributes.value(QStringLiteral("element_id"))));
    return false;
}

} // namespace

ElementBlock::ElementBlock(NcDbObjectId reference) { fillFromReference(reference, nullptr); }

ElementBlock::ElementBlock(NcDbObjectId reference, const StateColors& colors) { fillFromReference(reference, &colors); }

void ElementBlock::fillFromReference(NcDbObjectId id, const StateColors* colors)
{
    const Opened<NcDbBlockReference> reference(id, kForRead);
    if (!reference)
        return;
    const int found = kindOfReference(id);
    if (found == noKind)
        return;
    stateColors = colors ? *colors : readStateColors();
    setKind(found);

    x = reference->position().x;
    y = reference->position().y;
    z = reference->position().z;
    scale = reference->scaleFactors().sx;
    blockRotation = reference->rotation();
    colorIndex = reference->colorIndex();
    stateId = stateColors.key(colorIndex, QStringLiteral("exist"));
    forEachAttribute(*reference, kForRead, [this](const NcDbAttribute& a) { setAttribute(a.tag(), a.textString()); });
    for (const NcDbDynBlockReferenceProperty& property : NcDbDynBlockReference(id).getBlockProperties())
        setDynProp(property.propertyName(), printedForm(property.value()));
}

bool ElementBlock::insertBlock() const
{
    ensureLayers();
    const NcDbObjectId definition = blockDefinition(blockName);
    if (definition.isNull()) {
        say(fill("\n Block %1 not found in current AcDbDatabase\n", blockName));
        return false;
    }
    const LayerUnlock unlock(group);
    auto fresh = std::make_unique<NcDbBlockReference>();
    fresh->setBlockTableRecord(definition);
    fresh->setPosition({x, y, z});
    fresh->setColorIndex(colorIndex, true);
    fresh->setLayer(group, true, false);
    const NcDbObjectId id = appendToModelSpace(std::move(fresh));
    {
        const Opened<NcDbBlockReference> reference(id, kForWrite);
        if (!reference)
            return complain(*this, "\nОшибка: блок %1 с ID=%2 не добавлен в чертеж\n");
        addAttributes(*reference, definition, attributes);
    }
    applyScaleAndRotation(id);
    applyDynProps(id);
    return true;
}

bool ElementBlock::applyToBlock(NcDbObjectId id) const
{
    // The layer that it lies on and the one that it goes to.
    const LayerUnlock unlockOld(layerOf(id)), unlockNew(group);
    {
        const Opened<NcDbBlockReference> reference(id, kForWrite);
        if (!reference)
            return false;
        const NcGeVector3d way = NcGePoint3d(x, y, z) - reference->position();
        reference->transformBy(NcGeMatrix3d::translation(way));
        reference->setColorIndex(colorIndex, true);
        if (!isOk(reference->setLayer(group, true, false)))
            complain(*this, "\nОшибка: блок %1 с ID=%2 остался на прежнем слое\n");
        forEachAttribute(*reference, kForWrite, [this](NcDbAttribute& attribute) {
            if (hasAttribute(attribute.tag()))
                attribute.setTextString(attributes.value(attribute.tag()));
        });
    }
    applyScaleAndRotation(id);
    applyDynProps(id);
    return true;
}

bool ElementBlock::replaceBlock(NcDbObjectId id)
{
    scale = 1.0;
    blockRotation = 0.0;
    {
        const Opened<NcDbBlockReference> old(id, kForRead);
        if (old) {
            scale = old->scaleFactors().sx;
            blockRotation = old->rotation();
        }
    }
    // A second block beside the old one would be a duplicate of its key.
    const bool gone = !id.isValid() || id.isErased();
    if (!gone && !eraseEntity(id))
        return complain(*this, "\nОшибка: прежний блок с ID=%2 не удален, блок %1 не вставлен\n");
    return insertBlock();
}

void ElementBlock::applyScaleAndRotation(NcDbObjectId id) const
{
    const Unlocked<NcDbBlockReference> reference(id);
    if (!reference)
        return;
    const NcGePoint3d centre = reference->position();
    const double presentScale = reference->scaleFactors().sx;
    const double presentRotation = reference->rotation();
    if (presentScale != 0.0)
        reference->transformBy(NcGeMatrix3d::scaling(scale / presentScale, centre));
    reference->transformBy(NcGeMatrix3d::rotation(blockRotation - presentRotation, NcGeVector3d::kZAxis, centre));
    // Rounding must not let the point creep away over many synchronisations.
    reference->transformBy(NcGeMatrix3d::translation(centre - reference->position()));
}

void ElementBlock::applyDynProps(NcDbObjectId id) const
{
    for (NcDbDynBlockReferenceProperty& property : NcDbDynBlockReference(id).getBlockProperties()) {
        const auto text = dynProps.constFind(property.propertyName());
        if (text == dynProps.constEnd())
            continue;
        const std::vector<NcDbEvalVariant> allowed = property.getAllowedValues();
        if (!allowedValues.contains(text.key()) || allowed.empty()) {
            property.setValue(variantOf(property.propertyType(), *text));
            continue;
        }
        // A text that matches no allowed value leaves the property as it is.
        const auto value = std::find_if(allowed.begin(), allowed.end(),
                                        [&](const NcDbEvalVariant& v) { return printedForm(v) == *text; });
        if (value != allowed.end())
            property.setValue(*value);
    }
}
