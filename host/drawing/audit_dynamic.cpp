// Dynamic blocks and the index.
#include "audit_parts.h"

#include <algorithm>

namespace {

void auditRules(AuditReport& report, const NcDbBlockTableRecord& block, const DynamicDefinition& definition)
{
    const auto missing = [&](const QString& name) { return !name.isEmpty() && !definition.parameter(name); };
    for (const DynamicBinding& binding : definition.bindings) {
        const auto* entity = HostAccess::objectAs<NcDbEntity>({block.database(), binding.entity});
        if (!entity || entity->ownerId() != block.objectId())
            report.add(AuditFinding::DynamicProperty, block.objectId(),
                       QStringLiteral("Правило динамического блока называет чужой объект"));
        if (missing(binding.parameter) || missing(binding.second))
            report.add(AuditFinding::DynamicProperty, block.objectId(),
                       QStringLiteral("Правило динамического блока называет неизвестный параметр: ")
                           + binding.parameter);
    }
}

void auditValues(AuditReport& report, const NcDbBlockReference& reference)
{
    const auto* block = HostAccess::objectAs<NcDbBlockTableRecord>(reference.blockTableRecord());
    const DynamicDefinition* definition = block ? HostAccess::dynamic(*block).get() : nullptr;
    for (const auto& value : HostAccess::dynamicValues(reference)) {
        const DynamicParameter* parameter = definition ? definition->parameter(value.first) : nullptr;
        if (!parameter || (!parameter->allowed.isEmpty() && !parameter->allowed.contains(value.second)))
            report.add(AuditFinding::DynamicProperty, reference.objectId(),
                       QStringLiteral("Недопустимое динамическое свойство: ") + value.first);
    }
}

// The first reference by a plain walk of the drawing for each text of each attribute.
bool isFound(const NcDbDatabase& database, const NcDbBlockReference& reference, const NcDbBlockTableRecord& block)
{
    for (NcDbObjectId id : HostAccess::attributes(reference)) {
        const auto* attribute = HostAccess::objectAs<NcDbAttribute>(id);
        if (!attribute || attribute->isErased() || attribute->tag().isEmpty())
            continue;
        const NcDbObjectIdArray found =
            database.findBlockReferences(block.getName(), attribute->tag(), attribute->textString());
        if (std::find(found.begin(), found.end(), reference.objectId()) == found.end())
            return false;
    }
    return true;
}

} // namespace

void auditDynamicBlocks(AuditReport& report)
{
    forEachLiving<NcDbBlockTableRecord>(report.database(), [&](const NcDbBlockTableRecord& block) {
        if (const DynamicDefinition* definition = HostAccess::dynamic(block).get())
            auditRules(report, block, *definition);
    });
    forEachLiving<NcDbBlockReference>(report.database(),
                                      [&](const NcDbBlockReference& reference) { auditValues(report, reference); });
}

void auditIndex(AuditReport& report)
{
    std::map<NcDbObjectId, size_t> inModelSpace, anywhere;
    forEachLiving<NcDbBlockReference>(report.database(), [&](const NcDbBlockReference& reference) {
        ++anywhere[reference.blockTableRecord()];
        if (reference.ownerId() != report.drawing().modelSpace)
            return;
        ++inModelSpace[reference.blockTableRecord()];
        const auto* block = HostAccess::objectAs<NcDbBlockTableRecord>(reference.blockTableRecord());
        if (block && !block->isErased() && !isFound(report.database(), reference, *block))
            report.add(AuditFinding::StaleIndex, reference.objectId(),
                       QStringLiteral("Указатель атрибутов не находит вставку"));
    });
    forEachLiving<NcDbBlockTableRecord>(report.database(), [&](const NcDbBlockTableRecord& block) {
        const NcDbObjectId id = block.objectId();
        const AttributeIndex& index = report.drawing().index;
        if (index.references(id.handle()).size() != anywhere[id]
            || index.find(id.handle(), QString(), QString()).size() != inModelSpace[id])
            report.add(AuditFinding::StaleIndex, id,
                       QStringLiteral("Указатель вставок блока устарел: ") + block.getName());
    });
}
