// Deep copies from one drawing into another.
#include "entity_clone.h"
#include "host_faults.h"

#include <algorithm>

namespace {

class Cloner {
public:
    Cloner(NcDbDatabase& target, NcDbIdMapping& mapping, bool replace)
        : target_(target), mapping_(mapping), replace_(replace)
    { }

    NcDbObjectId block(const NcDbBlockTableRecord& source);
    NcDbObjectId layer(const NcDbLayerTableRecord& source);
    NcDbObjectId record(const NcDbSymbolTableRecord& source);
    NcDbObjectId entity(const NcDbEntity& source, NcDbBlockTableRecord& owner);

private:
    NcDbObjectId layerTable() const { return HostAccess::data(target_).layerTable; }
    NcDbObjectId blockTable() const { return HostAccess::data(target_).blockTable; }
    void bringLayer(const NcDbEntity& entity);
    void fillBlock(const NcDbBlockTableRecord& source, NcDbBlockTableRecord& copy);
    void copyDynamic(const NcDbBlockTableRecord& source, NcDbBlockTableRecord& copy);
    void copyDrawOrder(const NcDbBlockTableRecord& source, NcDbBlockTableRecord& copy);
    void copyAttributes(const NcDbBlockReference& source, NcDbBlockReference& copy);

    NcDbDatabase& target_;
    NcDbIdMapping& mapping_;
    bool replace_;
};

// Handles mean nothing in another drawing.
void dropReferences(NcDbObject& copy)
{
    DxfGroups& groups = HostAccess::data(copy).foreignGroups;
    groups.erase(
        std::remove_if(groups.begin(), groups.end(), [](const DxfGroup& group) { return isReferenceCode(group.code); }),
        groups.end());
    for (auto& application : HostAccess::data(copy).xdata) {
        DxfGroups& values = application.second;
        values.erase(
            std::remove_if(values.begin(), values.end(), [](const DxfGroup& group) { return group.code == 1005; }),
            values.end());
    }
}

void eraseEntities(NcDbBlockTableRecord& block)
{
    for (NcDbObjectId id : HostAccess::entities(block)) {
        if (NcDbObject* object = HostAccess::object(id)) {
            HostAccess::noteChange(*object);
            HostAccess::data(*object).erased = true;
            HostAccess::touch(*object);
        }
    }
}

NcDbObjectId Cloner::layer(const NcDbLayerTableRecord& source)
{
    const NcDbObjectId known = HostAccess::recordId(target_, layerTable(), source.getName());
    if (!known.isNull()) {
        mapping_.add(source.objectId(), known);
        return known;
    }
    auto copy = std::make_unique<NcDbLayerTableRecord>();
    copy->setColor(source.color());
    copy->setIsLocked(source.isLocked());
    copy->setIsOff(source.isOff());
    copy->setIsFrozen(source.isFrozen());
    const NcDbObjectId id =
        HostAccess::addRecord(*HostAccess::objectAs<NcDbSymbolTable>(layerTable()), std::move(copy), source.getName());
    mapping_.add(source.objectId(), id);
    HostAccess::touch(*HostAccess::object(id));
    return id;
}

void Cloner::bringLayer(const NcDbEntity& entity)
{
    if (const NcDbLayerTableRecord* source = HostAccess::layerOf(entity))
        layer(*source);
}

NcDbObjectId Cloner::block(const NcDbBlockTableRecord& source)
{
    const NcDbObjectId done = mapping_.cloneOf(source.objectId());
    if (!done.isNull())
        return done;
    NcDbObjectId id = HostAccess::recordId(target_, blockTable(), source.getName());
    const bool isThere = !id.isNull();
    if (!isThere)
        id = HostAccess::addRecord(*HostAccess::objectAs<NcDbSymbolTable>(blockTable()),
                                   std::make_unique<NcDbBlockTableRecord>(), source.getName());
    // Noted before it is filled, so that a block that holds itself comes to an end.
    mapping_.add(source.objectId(), id);
    auto& copy = *HostAccess::objectAs<NcDbBlockTableRecord>(id);
    if (isThere && !replace_)
        return id;
    if (isThere)
        eraseEntities(copy);
    fillBlock(source, copy);
    return id;
}

void Cloner::fillBlock(const NcDbBlockTableRecord& source, NcDbBlockTableRecord& copy)
{
    HostAccess::noteChange(copy);
    HostAccess::origin(copy) = source.origin();
    HostAccess::data(copy).xdata = HostAccess::data(source).xdata;
    dropReferences(copy);
    for (NcDbObjectId id : NcDbObjectIdArray(HostAccess::entities(source)))
        if (const auto* part = HostAccess::objectAs<NcDbEntity>(id); part && !part->isErased())
            entity(*part, copy);
    copyDynamic(source, copy);
    copyDrawOrder(source, copy);
    HostAccess::touch(copy);
}

void Cloner::copyDynamic(const NcDbBlockTableRecord& source, NcDbBlockTableRecord& copy)
{
    const DynamicDefinition* from = HostAccess::dynamic(source).get();
    if (!from) {
        HostAccess::dynamic(copy).reset();
        return;
    }
    auto definition = std::make_unique<DynamicDefinition>();
    definition->parameters = from->parameters;
    for (DynamicBinding binding : from->bindings) {
        const NcDbObjectId bound = mapping_.cloneOf({source.database(), binding.entity});
        if (bound.isNull())
            continue;
        binding.entity = bound.handle();
        definition->bindings.push_back(binding);
    }
    HostAccess::dynamic(copy) = std::move(definition);
}

void Cloner::copyDrawOrder(const NcDbBlockTableRecord& source, NcDbBlockTableRecord& copy)
{
    const auto* from = HostAccess::objectAs<NcDbSortentsTable>(HostAccess::sortents(source));
    if (!from)
        return;
    auto order = std::make_unique<NcDbSortentsTable>();
    HostAccess::block(*order) = copy.objectId();
    for (NcDbObjectId id : from->getFullDrawOrder())
        if (const NcDbObjectId part = mapping_.cloneOf(id); !part.isNull())
            HostAccess::order(*order).push_back(part);
    HostAccess::sortents(copy) = HostAccess::adopt(target_, std::move(order), copy.objectId());
}

NcDbObjectId Cloner::entity(const NcDbEntity& source, NcDbBlockTableRecord& owner)
{
    std::unique_ptr<NcDbEntity> made(source.clone());
    if (!made)
        return NcDbObjectId();
    bringLayer(source);
    dropReferences(*made);
    NcDbEntity& copy = *made;
    auto* reference = copy.isKindOf(NcDbBlockReference::desc()) ? static_cast<NcDbBlockReference*>(&copy) : nullptr;
    if (reference)
        if (const auto* definition = HostAccess::objectAs<NcDbBlockTableRecord>(reference->blockTableRecord()))
            HostAccess::definition(*reference) = block(*definition);
    const NcDbObjectId id = HostAccess::addEntity(owner, std::move(made));
    mapping_.add(source.objectId(), id);
    if (reference)
        copyAttributes(static_cast<const NcDbBlockReference&>(source), *reference);
    HostAccess::touch(copy);
    return id;
}

void Cloner::copyAttributes(const NcDbBlockReference& source, NcDbBlockReference& copy)
{
    for (NcDbObjectId id : HostAccess::attributes(source)) {
        const auto* attribute = HostAccess::objectAs<NcDbAttribute>(id);
        if (!attribute || attribute->isErased())
            continue;
        bringLayer(*attribute);
        std::unique_ptr<NcDbAttribute> made(static_cast<NcDbAttribute*>(attribute->clone()));
        dropReferences(*made);
        mapping_.add(id, HostAccess::addAttribute(copy, std::move(made)));
    }
}

NcDbObjectId Cloner::record(const NcDbSymbolTableRecord& source)
{
    return source.isKindOf(NcDbLayerTableRecord::desc()) ? layer(static_cast<const NcDbLayerTableRecord&>(source))
                                                         : block(static_cast<const NcDbBlockTableRecord&>(source));
}

// Which objects an owner takes: the class, or null for an owner that takes none.
const NcRxClass* acceptedClass(const NcDbDatabase& target, NcDbObjectId owner)
{
    if (owner.database() != &target || !HostAccess::isLiving(owner))
        return nullptr;
    if (owner == target.blockTableId())
        return NcDbBlockTableRecord::desc();
    if (owner == target.layerTableId())
        return NcDbLayerTableRecord::desc();
    return HostAccess::objectAs<NcDbBlockTableRecord>(owner) ? NcDbEntity::desc() : nullptr;
}

bool isCloneable(NcDbObjectId id, const NcRxClass* wanted)
{
    const NcDbObject* object = HostAccess::object(id);
    return object && !object->isErased() && object->isKindOf(wanted) && !object->isKindOf(NcDbAttribute::desc());
}

} // namespace

NcStatus NcDbDatabase::wblockCloneObjects(const NcDbObjectIdArray& ids, NcDbObjectId owner, NcDbIdMapping& mapping,
                                          DuplicateRecords rule)
{
    if (hostFaults().cloning)
        return NcStatus::InvalidInput;
    const NcRxClass* wanted = acceptedClass(*this, owner);
    if (!wanted)
        return NcStatus::InvalidInput;
    for (NcDbObjectId id : ids)
        if (!isCloneable(id, wanted))
            return NcStatus::InvalidInput;
    Cloner cloner(*this, mapping, rule == kReplaceDuplicates);
    for (NcDbObjectId id : ids) {
        if (const auto* record = HostAccess::objectAs<NcDbSymbolTableRecord>(id))
            cloner.record(*record);
        else
            cloner.entity(*HostAccess::objectAs<NcDbEntity>(id), *HostAccess::objectAs<NcDbBlockTableRecord>(owner));
    }
    return NcStatus::Ok;
}
