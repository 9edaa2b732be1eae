#include "audit_parts.h"

#include <set>

void AuditReport::add(AuditFinding::Rule rule, NcDbObjectId object, const QString& text)
{
    findings_.push_back(
        {rule, object,
         text + QStringLiteral(" [") + QString::number(object.handle(), 16).toUpper() + QLatin1Char(']')});
}

std::vector<AuditFinding> audit(const NcDbDatabase& database)
{
    AuditReport report(database);
    auditHandles(report);
    auditTables(report);
    auditEntities(report);
    auditReferences(report);
    auditDynamicBlocks(report);
    auditGroups(report);
    auditDrawOrder(report);
    auditIndex(report);
    return report.take();
}

void auditHandles(AuditReport& report)
{
    for (const auto& entry : report.drawing().objects) {
        const NcObjectData& data = HostAccess::data(*entry.second);
        const NcDbObjectId id(const_cast<NcDbDatabase*>(&report.database()), entry.first);
        if (data.handle != entry.first || data.database != &report.database())
            report.add(AuditFinding::WrongHandle, id, QStringLiteral("Объект хранится под чужой меткой"));
        if (entry.first >= report.drawing().handleSeed)
            report.add(AuditFinding::WrongHandle, id, QStringLiteral("Метка не меньше следующей свободной"));
    }
}

namespace {

void auditOrder(AuditReport& report, const NcDbSortentsTable& order)
{
    std::set<NcDbObjectId> seen;
    for (NcDbObjectId id : HostAccess::order(order)) {
        const auto* entity = HostAccess::objectAs<NcDbEntity>(id);
        const bool foreign = !entity || entity->ownerId() != HostAccess::block(order);
        if (foreign || !seen.insert(id).second)
            report.add(AuditFinding::DrawOrder, order.objectId(),
                       QStringLiteral("Порядок рисования называет чужой или повторный объект"));
    }
}

void auditGroup(AuditReport& report, const NcDbGroup& group)
{
    for (NcDbObjectId id : HostAccess::members(group))
        if (!HostAccess::objectAs<NcDbEntity>(id))
            report.add(AuditFinding::MissingGroupMember, group.objectId(),
                       QStringLiteral("Группа называет объект, которого нет"));
    if (group.numEntities() == 0)
        report.add(AuditFinding::EmptyGroup, group.objectId(), QStringLiteral("Группа пуста"));
}

} // namespace

void auditGroups(AuditReport& report)
{
    forEachLiving<NcDbGroup>(report.database(), [&](const NcDbGroup& group) { auditGroup(report, group); });
}

void auditDrawOrder(AuditReport& report)
{
    forEachLiving<NcDbSortentsTable>(report.database(),
                                     [&](const NcDbSortentsTable& order) { auditOrder(report, order); });
}
