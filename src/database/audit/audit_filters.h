#pragma once
// What the audit log is narrowed by: groups of tables and operations, each with
// the pattern that its name or operation must match somewhere.

#include <QVector>

struct AuditFilter {
    const char* key;
    const char* name; ///< as the list shows it
    const char* pattern;
};

/// The first lets everything pass.
const QVector<AuditFilter>& auditTableGroups();
const QVector<AuditFilter>& auditOperations();
