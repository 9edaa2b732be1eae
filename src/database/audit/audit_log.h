#pragma once
// The audit log of the session's database: reading, emptying, who is connected.

#include "base/statement.h"
#include "database/audit/audit_entries.h"

#include <QDateTime>
#include <functional>
#include <optional>

struct AuditPeriod {
    QDateTime start;
    QDateTime end;
};

/// The statement that reads a period. The columns are those of AuditEntries.
Statement auditStatement(const AuditPeriod& period);

enum class AuditLoad { Done, Failed, Cancelled };

/// Reads the period into empty entries, a portion at a time, so that the whole
/// answer never stands in memory. `step` is told how far it has come; false
/// stops it.
AuditLoad loadAuditLog(const AuditPeriod& period, AuditEntries& entries,
                       const std::function<bool(int done, int total)>& step);

/// The server's message when the log could not be emptied.
std::optional<QString> emptyAuditLog();

/// The other connections to the database, a line each.
QStringList otherConnections();

/// A field of a row as the log holds it. A value that is null or that has parts
/// is an empty text.
struct AuditField {
    QString name;
    QString value;
};
/// The fields of the row in the order of their names; none where the text is no
/// JSON object.
QVector<AuditField> auditFields(const QString& json);
