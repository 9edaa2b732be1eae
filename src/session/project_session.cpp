// The one session, its construction and the smallest of its operations.
#include "session/project_session.h"

#include "hostkit/console.h"
#include "session/module_folder.h"

#include <nrx/application.h>

namespace {

/// The folder of the module that this code was linked into.
QString folderOfThisModule()
{
    static const char here = 0;
    return folderOfModule(ncModulePath(&here));
}

} // namespace

ProjectSession& session()
{
    static ProjectSession theSession;
    return theSession;
}

namespace {

// The session exists before the host's first message.
[[maybe_unused]] const ProjectSession& builtWithTheModule = session();

} // namespace

ProjectSession::ProjectSession() : moduleDir(folderOfThisModule()), templateDir(moduleDir + QStringLiteral("templates"))
{
    reloadLevelMaps();
}

ProjectSession::~ProjectSession() = default;

sql::Result ProjectSession::run(const Statement& statement) const { return connection.run(statement); }

sql::Result ProjectSession::run(const Statement& statement, const QVector<sql::Parameter>& parameters,
                                sql::Format answer) const
{
    return connection.run(statement, parameters, answer);
}

bool ProjectSession::requirePosition()
{
    if (!checkConnection()) {
        say(QStringLiteral("Не установлено соединение с базой данных"));
        return false;
    }
    if (currentPositionId == -1) {
        say(QStringLiteral("Не выбрана текущая позиция с базой данных"));
        return false;
    }
    return true;
}
