#pragma once
// Roles and databases of a server, under an administrator's credentials and on
// a connection of its own. Names of roles and databases may hold anything that
// the server allows; they are quoted wherever they go.

#include "database/sql/connection.h"

#include <QStringList>
#include <QVector>
#include <functional>
#include <optional>

struct AdminAccess {
    QString host; ///< a numeric address
    QString port;
    QString user;
    QString password;
};

/// The connection string of the maintenance database, or of the named one.
QString administrationConnInfo(const AdminAccess& access);
QString administrationConnInfo(const AdminAccess& access, const QString& database);

/// A database as the list shows it; "-" where the administrator is not let in.
struct DatabaseSummary {
    QString name;
    QString owner;
    QString tables = QStringLiteral("-");
    QString rows = QStringLiteral("-");
    QString audit = QStringLiteral("-");
};

/// The server's message of a statement that failed; nothing when it went well.
using Refusal = std::optional<QString>;

struct RoleDeletion {
    Refusal refusal;      ///< of the role itself, which then stands
    QStringList warnings; ///< database and message of what could not be reassigned
};

struct Granting {
    Refusal unreachable;  ///< of the database; the rights inside it were not granted
    QStringList failures; ///< messages of the statements that failed
};

struct OtherConnections {
    Refusal refusal;
    QStringList users; ///< see connectedUsers()
};

class ServerAdministration {
public:
    /// Told before each database is counted; false leaves the rest uncounted.
    using Step = std::function<bool(int done, int total, const QString& database)>;

    /// Ends the connection before and connects to the maintenance database.
    bool connect(const AdminAccess& access);
    bool isConnected() const { return server_.isOk(); }
    const AdminAccess& access() const { return access_; }

    /// Nothing when the statement failed; see errorMessage().
    std::optional<QStringList> roles() const;
    /// All databases but templates. Every row of every table is counted, on a
    /// short connection a database: seconds where there are millions.
    std::optional<QVector<DatabaseSummary>> databases(const Step& step) const;

    Refusal createRole(const QString& name, const QString& password) const;
    /// What the role owns goes to "postgres" in every database; its rights go.
    RoleDeletion deleteRole(const QString& name) const;
    Refusal deleteDatabase(const QString& name) const;
    /// Seven statements; one that fails does not keep the others from running.
    Granting grantAll(const QString& role, const QString& database) const;
    Refusal setOwner(const QString& database, const QString& role) const;
    /// "on" or "off", for connections that are opened from now on.
    Refusal setAudit(const QString& database, const QString& value) const;
    OtherConnections othersConnected(const QString& database) const;

    QString errorMessage() const;

private:
    sql::Connection connectTo(const QString& database) const;
    void count(DatabaseSummary& database) const;

    sql::Connection server_;
    AdminAccess access_;
};
