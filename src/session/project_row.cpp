// The project's row. A database holds one project: the two statements here
// are how that stays true.
#include "session/project_session.h"

#include "base/statement.h"
#include "base/text.h"

void ProjectSession::saveProjectRow()
{
    if (!checkConnection())
        return;
    const sql::Result rows = run("select project_id from projects");
    if (!rows.isTuples())
        return;
    if (rows.ntuples() == 0) {
        projectId = int(secondsNow());
        run(compose("INSERT INTO projects (project_id, name, owner, location, code) "
                    "OVERRIDING SYSTEM VALUE VALUES (%1, '%2', '%3', '%4', '%5')",
                    projectId, projectName, projectOwner, projectLocation, projectCode));
        return;
    }
    projectId = rows.toInt(0, 0);
    run(compose("UPDATE projects SET (name, owner, location, code) = "
                "('%1','%2','%3','%4') WHERE project_id = %5",
                projectName, projectOwner, projectLocation, projectCode, projectId));
}
