// References as their dynamic properties say.
#include "dynamic_rules.h"
#include "host_access.h"

#include <algorithm>

namespace {

NcDbObjectIdArray drawnOrder(const NcDbBlockTableRecord& record)
{
    if (const auto* order = HostAccess::objectAs<NcDbSortentsTable>(HostAccess::sortents(record)))
        return order->getFullDrawOrder();
    NcDbObjectIdArray living;
    for (NcDbObjectId id : HostAccess::entities(record))
        if (HostAccess::isLiving(id))
            living.push_back(id);
    return living;
}

void applyRules(const DynamicDefinition& definition, const NcDbBlockReference& reference, quint64 source,
                NcDbEntity& entity)
{
    const DynamicValues values(definition, reference);
    for (const DynamicBinding& binding : definition.bindings)
        if (binding.entity == source)
            applyBinding(binding, values, entity);
}

bool isBound(const DynamicDefinition& definition, quint64 source)
{
    return std::any_of(definition.bindings.begin(), definition.bindings.end(),
                       [&](const DynamicBinding& binding) { return binding.entity == source; });
}

// The text stays that of the attribute; place, turn and visibility are taken over.
void place(NcDbAttribute& attribute, const NcDbAttributeDefinition& evaluated)
{
    HostAccess::noteChange(attribute);
    HostAccess::position(attribute) = evaluated.position();
    HostAccess::alignment(attribute) = evaluated.alignmentPoint();
    HostAccess::height(attribute) = evaluated.height();
    HostAccess::rotation(attribute) = evaluated.rotation();
    HostAccess::horizontal(attribute) = evaluated.horizontalMode();
    HostAccess::vertical(attribute) = evaluated.verticalMode();
    HostAccess::visible(attribute) = evaluated.isVisible();
    if (NcDbMText* text = HostAccess::mtext(attribute).get()) {
        const bool plain =
            evaluated.horizontalMode() == NcDbText::kTextLeft && evaluated.verticalMode() == NcDbText::kTextBase;
        text->setLocation(plain ? evaluated.position() : evaluated.alignmentPoint());
        text->setTextHeight(evaluated.height());
        text->setRotation(evaluated.rotation());
    }
    HostAccess::touch(attribute);
}

} // namespace

std::vector<EvaluatedEntity> evaluatedEntities(const NcDbBlockReference& reference)
{
    std::vector<EvaluatedEntity> parts;
    const auto* record = HostAccess::objectAs<NcDbBlockTableRecord>(reference.blockTableRecord());
    if (!record)
        return parts;
    const DynamicDefinition* definition = HostAccess::dynamic(*record).get();
    for (NcDbObjectId id : drawnOrder(*record)) {
        const auto* source = HostAccess::objectAs<NcDbEntity>(id);
        std::unique_ptr<NcDbEntity> copy(source ? source->clone() : nullptr);
        if (!copy)
            continue;
        if (definition)
            applyRules(*definition, reference, id.handle(), *copy);
        parts.push_back({std::move(copy), id});
    }
    return parts;
}

void placeAttributes(NcDbBlockReference& reference)
{
    const auto* record = HostAccess::objectAs<NcDbBlockTableRecord>(reference.blockTableRecord());
    const DynamicDefinition* definition = record ? HostAccess::dynamic(*record).get() : nullptr;
    if (!definition)
        return;
    const NcGeMatrix3d transform = reference.blockTransform();
    for (NcDbObjectId id : HostAccess::entities(*record)) {
        const auto* source = HostAccess::objectAs<NcDbAttributeDefinition>(id);
        if (!source || source->isErased() || !isBound(*definition, id.handle()))
            continue;
        std::unique_ptr<NcDbAttributeDefinition> evaluated(static_cast<NcDbAttributeDefinition*>(source->clone()));
        applyRules(*definition, reference, id.handle(), *evaluated);
        evaluated->transformBy(transform);
        for (NcDbObjectId attributeId : HostAccess::attributes(reference)) {
            auto* attribute = HostAccess::objectAs<NcDbAttribute>(attributeId);
            if (attribute && !attribute->isErased() && attribute->tag() == source->tag())
                place(*attribute, *evaluated);
        }
    }
}
