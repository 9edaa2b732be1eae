// The session's connection: opening, the live check, the rights, the audit switch.
#include "session/project_session.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "hostkit/console.h"
#include "session/connection_parameters.h"

QString ProjectSession::buildConnInfo() const
{
    return mainConnInfo({sqlHost, sqlPort, sqlDatabase, sqlUser, sqlPass});
}

bool ProjectSession::openConnection(const QString& conninfo)
{
    const QString before = connection.conninfo();
    if (!connection.open(conninfo))
        return false;
    if (!before.isEmpty() && !isSameDatabase(before, conninfo))
        forgetDatabase();
    return true;
}

void ProjectSession::forgetDatabase()
{
    leavePositionFields();
    projectId = -1;
    baseCycleId = defaultBaseCycleId;
    currentCycleId = defaultCurrentCycleId;
    cycles.clear();
    cycleOrder.clear();
    predictions.clear();
    predictionOrder.clear();
    states.clear();
    stateColors.clear();
    stateFilter.clear();
}

// The parameters say who asks; which database is asked, the connection says: a
// test on the SQL page leaves in them whatever was tested.
QString ProjectSession::reconnectionInfo() const
{
    const QString wanted = buildConnInfo();
    const QString last = connection.conninfo();
    return last.isEmpty() || isSameDatabase(last, wanted) ? wanted : last;
}

bool ProjectSession::connect()
{
    if (sqlType == 1 || sqlType == 2)
        return false;
    return connectWith(buildConnInfo());
}

bool ProjectSession::connectWith(const QString& conninfo)
{
    if (sqlType != 0 || !openConnection(conninfo)) {
        connected = false;
        return false;
    }
    readProjectRow();
    readAuditSwitch();
    readSuperuser();
    connected = probeRights({QStringLiteral("projects"), QStringLiteral("objects"), QStringLiteral("subobjects"),
                             QStringLiteral("positions")});
    return connected;
}

void ProjectSession::readProjectRow()
{
    if (projectId != -1)
        return;
    enum Column { Id, Name, Owner, Location, Code };
    const sql::Result rows = run("SELECT project_id, name, owner, location, code FROM projects;");
    if (!rows.isTuples())
        return;
    for (int i = 0; i < rows.ntuples(); ++i) {
        projectId = rows.toInt(i, Id);
        projectName = rows.getvalue(i, Name);
        projectOwner = rows.getvalue(i, Owner);
        projectLocation = rows.getvalue(i, Location);
        projectCode = rows.getvalue(i, Code);
    }
}

void ProjectSession::readAuditSwitch()
{
    const sql::Result row = run("SELECT coalesce (current_setting('app.audit_enabled', true),'on') AS audit_status;");
    if (row.isTuples())
        auditEnabled = row.getvalue(0, 0) == QLatin1String("on");
}

void ProjectSession::readSuperuser()
{
    const sql::Result row = run("SELECT usesuper FROM pg_user WHERE usename = current_user;");
    if (row.hasRow())
        superuser = row.getvalue(0, 0) == QLatin1String("t");
}

// A live server without the table `projects` answers with an error; the fresh
// connection then counts, the question is not asked again.
bool ProjectSession::checkConnection()
{
    connected = run("select count(project_id) from projects").isTuples() || openConnection(reconnectionInfo());
    return connected;
}

bool ProjectSession::probeRights(const QStringList& tables) const
{
    if (!connection.isOk())
        return false;
    for (const QString& table : tables) {
        const sql::Result answer = run(compose("SELECT 1 FROM %1 LIMIT 0;", Identifier(table)));
        if (!answer.isCommand() && !answer.isTuples()) {
            say(fill(QStringLiteral("Проверка прав доступа к '%1': ОШИБКА (%2)\n"), table, answer.errorMessage()));
            return false;
        }
    }
    return true;
}

bool ProjectSession::setAudit()
{
    const bool enabled = !auditEnabled;
    const QString same = reconnectionInfo();
    const Statement statement =
        compose("ALTER DATABASE %1 SET app.audit_enabled = '%2'", Identifier(databaseIn(same)), enabled ? "on" : "off");
    if (!run(statement).isCommand())
        return false;
    connection.finish();
    if (!connectWith(same))
        return false;
    auditEnabled = enabled;
    return true;
}
