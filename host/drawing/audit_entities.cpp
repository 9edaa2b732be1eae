#include "audit_parts.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace {

bool isFinite(const NcGePoint3d& p) { return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z); }

// Of a class that has no extents, or without the points that make them.
bool isEmpty(const NcDbEntity& entity)
{
    if (entity.isKindOf(NcDbPolyline::desc()))
        return static_cast<const NcDbPolyline&>(entity).numVerts() == 0;
    if (entity.isKindOf(NcDb2dPolyline::desc()))
        return static_cast<const NcDb2dPolyline&>(entity).numVerts() == 0;
    if (entity.isKindOf(NcDbHatch::desc()))
        return static_cast<const NcDbHatch&>(entity).numLoops() == 0;
    for (const NcRxClass* known : {NcDbPoint::desc(), NcDbLine::desc(), NcDbCircle::desc(), NcDbArc::desc(),
                                   NcDbText::desc(), NcDbMText::desc(), NcDbTable::desc(), NcDbViewport::desc()})
        if (entity.isKindOf(known))
            return false;
    return true;
}

bool hasGoodNumbers(const NcDbEntity& entity)
{
    if (entity.isKindOf(NcDbCircle::desc()) && !(static_cast<const NcDbCircle&>(entity).radius() >= 0.0))
        return false;
    if (entity.isKindOf(NcDbArc::desc()) && !(static_cast<const NcDbArc&>(entity).radius() >= 0.0))
        return false;
    if (entity.isKindOf(NcDbText::desc()) && !(static_cast<const NcDbText&>(entity).height() >= 0.0))
        return false;
    if (entity.isKindOf(NcDbBlockReference::desc())) {
        const auto& reference = static_cast<const NcDbBlockReference&>(entity);
        return isFinite(reference.position()) && std::isfinite(reference.rotation());
    }
    return isEmpty(entity) || entity.extents().has_value();
}

bool ownerLists(const NcDbEntity& entity, const std::set<NcDbObjectId>& listed)
{
    return HostAccess::isLiving(entity.ownerId()) && listed.count(entity.objectId()) > 0;
}

// What blocks and references list; complains about what is wrong in a list.
class Lists {
public:
    explicit Lists(AuditReport& report) : report_(report)
    {
        forEachLiving<NcDbBlockTableRecord>(report.database(), [&](const NcDbBlockTableRecord& block) {
            check<NcDbEntity>(block, HostAccess::entities(block));
        });
        forEachLiving<NcDbBlockReference>(report.database(), [&](const NcDbBlockReference& reference) {
            check<NcDbAttribute>(reference, HostAccess::attributes(reference));
        });
    }
    const std::set<NcDbObjectId>& listed() const { return listed_; }

private:
    template <class Member>
    void check(const NcDbObject& owner, const NcDbObjectIdArray& members)
    {
        for (NcDbObjectId id : members) {
            const auto* member = HostAccess::objectAs<Member>(id);
            if (!member || member->ownerId() != owner.objectId() || !listed_.insert(id).second)
                report_.add(AuditFinding::MissingEntity, id,
                            QStringLiteral("Список владельца называет чужой, повторный или отсутствующий объект"));
        }
    }

    AuditReport& report_;
    std::set<NcDbObjectId> listed_;
};

void auditEntity(AuditReport& report, const NcDbEntity& entity, const std::set<NcDbObjectId>& listed)
{
    const NcDbObjectId id = entity.objectId();
    if (!ownerLists(entity, listed))
        report.add(AuditFinding::MissingOwner, id, QStringLiteral("У объекта нет владельца"));
    if (!HostAccess::layerOf(entity))
        report.add(AuditFinding::MissingLayer, id, QStringLiteral("Нет слоя: ") + entity.layer());
    if (!hasGoodNumbers(entity))
        report.add(AuditFinding::BadNumber, id, QStringLiteral("Недопустимое число в геометрии"));
    if (entity.isKindOf(NcDbHatch::desc()) && static_cast<const NcDbHatch&>(entity).numLoops() == 0)
        report.add(AuditFinding::EmptyHatch, id, QStringLiteral("Штриховка без контуров"));
}

const NcDbBlockTableRecord* definitionOf(const NcDbBlockReference& reference)
{
    const NcDbObjectId id = reference.blockTableRecord();
    return HostAccess::isLiving(id) ? HostAccess::objectAs<NcDbBlockTableRecord>(id) : nullptr;
}

bool definesTag(const NcDbBlockTableRecord& block, const QString& tag)
{
    const auto& entities = HostAccess::entities(block);
    return std::any_of(entities.begin(), entities.end(), [&](NcDbObjectId id) {
        const auto* definition = HostAccess::objectAs<NcDbAttributeDefinition>(id);
        return definition && !definition->isErased() && definition->tag() == tag;
    });
}

void auditReference(AuditReport& report, const NcDbBlockReference& reference)
{
    const NcDbBlockTableRecord* block = definitionOf(reference);
    if (!block) {
        report.add(AuditFinding::MissingBlock, reference.objectId(), QStringLiteral("Нет определения блока"));
        return;
    }
    for (NcDbObjectId id : HostAccess::attributes(reference)) {
        const auto* attribute = HostAccess::objectAs<NcDbAttribute>(id);
        if (attribute && !attribute->isErased() && !definesTag(*block, attribute->tag()))
            report.add(AuditFinding::AttributeWithoutDefinition, id,
                       QStringLiteral("Атрибута нет в определении блока: ") + attribute->tag());
    }
}

// Whether `wanted` is reached from `from` through references.
bool reaches(const NcDbBlockTableRecord& from, NcDbObjectId wanted, std::set<NcDbObjectId>& visited)
{
    for (NcDbObjectId id : HostAccess::entities(from)) {
        const auto* reference = HostAccess::objectAs<NcDbBlockReference>(id);
        const NcDbBlockTableRecord* next = reference && !reference->isErased() ? definitionOf(*reference) : nullptr;
        if (!next)
            continue;
        if (next->objectId() == wanted)
            return true;
        if (visited.insert(next->objectId()).second && reaches(*next, wanted, visited))
            return true;
    }
    return false;
}

} // namespace

void auditEntities(AuditReport& report)
{
    const Lists lists(report);
    forEachLiving<NcDbEntity>(report.database(),
                              [&](const NcDbEntity& entity) { auditEntity(report, entity, lists.listed()); });
}

void auditReferences(AuditReport& report)
{
    forEachLiving<NcDbBlockReference>(report.database(),
                                      [&](const NcDbBlockReference& reference) { auditReference(report, reference); });
    forEachLiving<NcDbBlockTableRecord>(report.database(), [&](const NcDbBlockTableRecord& block) {
        std::set<NcDbObjectId> visited;
        if (!block.isLayout() && reaches(block, block.objectId(), visited))
            report.add(AuditFinding::BlockInItself, block.objectId(),
                       QStringLiteral("Блок содержит сам себя: ") + block.getName());
    });
}
