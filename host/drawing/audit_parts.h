// The areas that an audit walks, each adding what it finds.
#pragma once

#include "audit.h"
#include "host_access.h"

class AuditReport {
public:
    explicit AuditReport(const NcDbDatabase& database) : database_(database) { }
    const NcDbDatabase& database() const { return database_; }
    const NcDatabaseData& drawing() const { return HostAccess::data(database_); }
    void add(AuditFinding::Rule rule, NcDbObjectId object, const QString& text);
    std::vector<AuditFinding> take() { return std::move(findings_); }

private:
    const NcDbDatabase& database_;
    std::vector<AuditFinding> findings_;
};

// Living objects of a class, by handle.
template <class T, class Visit>
void forEachLiving(const NcDbDatabase& database, const Visit& visit)
{
    for (const auto& entry : HostAccess::data(database).objects)
        if (!HostAccess::data(*entry.second).erased && entry.second->isKindOf(T::desc()))
            visit(static_cast<const T&>(*entry.second));
}

void auditHandles(AuditReport& report);
void auditTables(AuditReport& report);
void auditEntities(AuditReport& report);
void auditReferences(AuditReport& report);
void auditDynamicBlocks(AuditReport& report);
void auditGroups(AuditReport& report);
void auditDrawOrder(AuditReport& report);
void auditIndex(AuditReport& report);
