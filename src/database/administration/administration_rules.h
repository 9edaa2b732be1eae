#pragma once
// What the administration of a server says and refuses before it asks the server.

#include <QString>
#include <QStringList>

/// Why the role may not be deleted; empty when it may. `administrator` is who
/// is connected.
QString refusalToDeleteRole(const QString& role, const QString& administrator);
QString refusalToDeleteDatabase(const QString& database);

QString questionToDeleteRole(const QString& role);
/// `rows` is the count as the list shows it, which may be "-".
QString questionToDeleteDatabase(const QString& database, const QString& rows);

/// What the switch turns the shown value into.
QString otherAuditValue(const QString& shown);
QString auditSet(const QString& database, const QString& value, const QStringList& others);
