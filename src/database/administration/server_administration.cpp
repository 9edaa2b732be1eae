#include "database/administration/server_administration.h"

#include "base/placeholders.h"
#include "database/administration/connected_users.h"

namespace {

// A value as it stands in a connection string: as it is where nothing in it
// would be misread, else in quotes.
QString conninfoValue(const QString& value)
{
    bool plain = !value.isEmpty();
    QString quoted;
    for (const QChar letter : value) {
        const bool special = letter == QLatin1Char('\'') || letter == QLatin1Char('\\');
        plain = plain && !special && !letter.isSpace();
        quoted += special ? QLatin1Char('\\') + QString(letter) : QString(letter);
    }
    return plain ? value : QLatin1Char('\'') + quoted + QLatin1Char('\'');
}

// The server ends its messages with a line break.
QString messageOf(const sql::Connection& connection)
{
    return sql::decodeServerMessage(connection.rawErrorMessage()).trimmed();
}

Refusal command(const sql::Connection& connection, const Statement& statement)
{
    if (connection.run(statement).isCommand())
        return std::nullopt;
    return messageOf(connection);
}

QString cell(const sql::Connection& connection, const Statement& query)
{
    const sql::Result row = connection.run(query);
    return row.hasRow() ? row.getvalue(0, 0) : DatabaseSummary().rows;
}

} // namespace

QString administrationConnInfo(const AdminAccess& access)
{
    return fill(QStringLiteral("hostaddr=%1 port=%2 dbname=postgres user=%3 password=%4"), conninfoValue(access.host),
                conninfoValue(access.port), conninfoValue(access.user), conninfoValue(access.password));
}

QString administrationConnInfo(const AdminAccess& access, const QString& database)
{
    return fill(QStringLiteral("hostaddr=%1 port=%2 dbname=%3 user=%4 password=%5"), conninfoValue(access.host),
                conninfoValue(access.port), conninfoValue(database), conninfoValue(access.user),
                conninfoValue(access.password));
}

bool ServerAdministration::connect(const AdminAccess& access)
{
    access_ = access;
    server_.finish();
    return server_.open(administrationConnInfo(access));
}

sql::Connection ServerAdministration::connectTo(const QString& database) const
{
    return sql::Connection(administrationConnInfo(access_, database));
}

QString ServerAdministration::errorMessage() const { return messageOf(server_); }

// --- the lists -------------------------------------------------------------------

std::optional<QStringList> ServerAdministration::roles() const
{
    const sql::Result rows = server_.run("SELECT usename FROM pg_user ORDER BY usename;");
    if (!rows.isTuples())
        return std::nullopt;
    QStringList names;
    for (int row = 0; row < rows.ntuples(); ++row)
        names << rows.getvalue(row, 0);
    return names;
}

std::optional<QVector<DatabaseSummary>> ServerAdministration::databases(const Step& step) const
{
    const sql::Result rows =
        server_.run("SELECT d.datname, r.rolname AS owner FROM pg_database d JOIN pg_roles r ON d.datdba = r.oid "
                    "WHERE d.datistemplate = false ORDER BY d.datname;");
    if (!rows.isTuples())
        return std::nullopt;
    QVector<DatabaseSummary> databases;
    bool counting = true;
    for (int row = 0; row < rows.ntuples(); ++row) {
        DatabaseSummary database;
        database.name = rows.getvalue(row, 0);
        database.owner = rows.getvalue(row, 1);
        counting = counting && step(row, rows.ntuples(), database.name);
        if (counting)
            count(database);
        databases.append(database);
    }
    return databases;
}

// The setting is absent in a database where nobody has thrown the switch; the
// list shows that as "off", although the triggers write then.
void ServerAdministration::count(DatabaseSummary& database) const
{
    const sql::Connection inside = connectTo(database.name);
    if (!inside.isOk())
        return;
    database.tables = cell(inside, "SELECT count(*) FROM information_schema.tables WHERE table_schema = 'public';");
    database.rows = cell(inside,
                         "SELECT coalesce(sum(cnt),0)::bigint FROM (  SELECT (xpath('/row/cnt/text()',    "
                         "query_to_xml('SELECT count(*) AS cnt FROM '     || quote_ident(schemaname) || '.' || "
                         "quote_ident(relname),     false, true, '')))[1]::text::bigint AS cnt  FROM "
                         "pg_stat_user_tables  WHERE relname NOT IN (    'spatial_ref_sys','geometry_columns',    "
                         "'geography_columns','raster_columns','raster_overviews')) t;");
    database.audit = cell(inside, "SELECT coalesce(current_setting('app.audit_enabled', true), 'off');");
}

// --- roles -----------------------------------------------------------------------

Refusal ServerAdministration::createRole(const QString& name, const QString& password) const
{
    return command(server_,
                   compose("CREATE ROLE %1 WITH LOGIN CREATEDB PASSWORD %2;", server_.identifier(name),
                           server_.literal(password)));
}

RoleDeletion ServerAdministration::deleteRole(const QString& name) const
{
    RoleDeletion deletion;
    const Statement role = server_.identifier(name);
    const sql::Result rows =
        server_.run("SELECT datname FROM pg_database WHERE datistemplate = false ORDER BY datname;");
    for (int row = 0; row < rows.ntuples(); ++row) {
        const QString database = rows.getvalue(row, 0);
        // One that somebody drops meanwhile holds nothing any more.
        const auto note = [&](const Refusal& refusal) {
            if (refusal
                && cell(server_, compose("SELECT 1 FROM pg_database WHERE datname = %1", server_.literal(database)))
                    == QLatin1String("1"))
                deletion.warnings << database + QStringLiteral(": ") + *refusal;
        };
        const sql::Connection inside = connectTo(database);
        if (!inside.isOk()) {
            note(messageOf(inside));
            continue;
        }
        const Refusal kept = command(inside, compose("REASSIGN OWNED BY %1 TO postgres;", role));
        note(kept);
        // What could not be handed over would be lost.
        if (!kept)
            note(command(inside, compose("DROP OWNED BY %1;", role)));
    }
    deletion.refusal = command(server_, compose("DROP ROLE %1;", role));
    return deletion;
}

Granting ServerAdministration::grantAll(const QString& role, const QString& database) const
{
    static const char* const inside[] = {
        "GRANT ALL ON SCHEMA public TO %1;",
        "GRANT ALL ON ALL TABLES IN SCHEMA public TO %1;",
        "GRANT ALL ON ALL SEQUENCES IN SCHEMA public TO %1;",
        "GRANT ALL ON ALL FUNCTIONS IN SCHEMA public TO %1;",
        "ALTER DEFAULT PRIVILEGES IN SCHEMA public GRANT ALL ON TABLES TO %1;",
        "ALTER DEFAULT PRIVILEGES IN SCHEMA public GRANT ALL ON SEQUENCES TO %1;",
    };
    Granting granting;
    const auto note = [&granting](const Refusal& refusal) {
        if (refusal)
            granting.failures << *refusal;
    };
    const Statement name = server_.identifier(role);
    note(command(server_, compose("GRANT ALL PRIVILEGES ON DATABASE %1 TO %2;", server_.identifier(database), name)));
    const sql::Connection connection = connectTo(database);
    if (!connection.isOk()) {
        granting.unreachable = messageOf(connection);
        return granting;
    }
    for (const char* statement : inside)
        note(command(connection, compose(statement, name)));
    return granting;
}

// --- databases ---------------------------------------------------------------------

Refusal ServerAdministration::deleteDatabase(const QString& name) const
{
    return command(server_, compose("DROP DATABASE %1;", server_.identifier(name)));
}

Refusal ServerAdministration::setOwner(const QString& database, const QString& role) const
{
    return command(server_,
                   compose("ALTER DATABASE %1 OWNER TO %2;", server_.identifier(database), server_.identifier(role)));
}

Refusal ServerAdministration::setAudit(const QString& database, const QString& value) const
{
    return command(server_,
                   compose("ALTER DATABASE %1 SET app.audit_enabled = '%2';", server_.identifier(database), value));
}

OtherConnections ServerAdministration::othersConnected(const QString& database) const
{
    const sql::Result rows = server_.run(compose("SELECT usename, client_addr::text FROM pg_stat_activity "
                                                 "WHERE datname = '%1' AND pid <> pg_backend_pid()",
                                                 database));
    if (!rows.isTuples())
        return {messageOf(server_), {}};
    return {std::nullopt, connectedUsers(rows, 0, 1)};
}
