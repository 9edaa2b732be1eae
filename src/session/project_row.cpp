// The project's row. A database holds one project: the two statements here
// are how that stays true.
#include "session/project_session.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "base/text.h"
#include "hostkit/console.h"

namespace {

void tellNotSaved(const QString& problem)
{
    say(fill(QStringLiteral("\nДанные проекта не записаны в базу данных: %1\n"), problem));
}

} // namespace

void ProjectSession::saveProjectRow()
{
    if (!checkConnection())
        return tellNotSaved(connection.errorMessage());
    const sql::Result rows = run("select project_id from projects");
    if (!rows.isTuples())
        return tellNotSaved(rows.errorMessage());
    const bool isNew = rows.ntuples() == 0;
    projectId = isNew ? int(secondsNow()) : rows.toInt(0, 0);
    const sql::Result saved = run(isNew ? compose("INSERT INTO projects (project_id, name, owner, location, code) "
                                                  "OVERRIDING SYSTEM VALUE VALUES (%1, '%2', '%3', '%4', '%5')",
                                                  projectId, projectName, projectOwner, projectLocation, projectCode)
                                        : compose("UPDATE projects SET (name, owner, location, code) = "
                                                  "('%1','%2','%3','%4') WHERE project_id = %5",
                                                  projectName, projectOwner, projectLocation, projectCode, projectId));
    if (!saved.isCommand())
        tellNotSaved(saved.errorMessage());
}
