#include "entry/desk.h"

#include "entry/command_table.h"
#include "session/forms/palette_refresh.h"
#include "session/project_session.h"
#include "session/saved_copy.h"

namespace {

QString cycleName(const ProjectSession& session, int id)
{
    const QStringList cycle = session.cycles.value(id);
    return cycle.size() < 2 ? QString() : QStringLiteral("%1 (%2)").arg(cycle[0], cycle[1]);
}

// At the start a connection is tried without parameters: what failed then was none.
bool knowsDatabase(const ProjectSession& session)
{
    return session.connection.isOk() || (session.connection.isOpen() && !session.sqlDatabase.isEmpty());
}

QString connectionName(const ProjectSession& session)
{
    if (!knowsDatabase(session))
        return QStringLiteral("нет");
    return session.connection.isOk() ? QStringLiteral("да") : QStringLiteral("потеряна");
}

QString positionName(const ProjectSession& session)
{
    if (session.currentPositionId == -1)
        return {};
    return session.currentObjectName.isEmpty()
        ? session.currentPositionName
        : session.currentObjectName + QStringLiteral(" / ") + session.currentPositionName;
}

// A lost connection is opened anew by the guard itself: only one that never was
// is a hindrance.
QString refusalOf(const Command& command, const ProjectSession& session)
{
    if (!command.action)
        return QStringLiteral("Команда пока недоступна");
    if (command.connection != Guard::None && !knowsDatabase(session))
        return QString::fromUtf8(guardMessage(command.connection)).trimmed();
    if (command.position != Guard::None && session.currentPositionId == -1)
        return QString::fromUtf8(guardMessage(command.position)).trimmed();
    return {};
}

} // namespace

void tellDesk(const DeskTeller& tell)
{
    const ProjectSession& now = session();
    tell(QStringLiteral("project"), now.projectName);
    tell(QStringLiteral("projectFile"), now.projectFile);
    tell(QStringLiteral("position"), positionName(now));
    tell(QStringLiteral("database"), knowsDatabase(now) ? now.sqlDatabase : QString());
    tell(QStringLiteral("connection"), connectionName(now));
    tell(QStringLiteral("baseCycle"), cycleName(now, now.baseCycleId));
    tell(QStringLiteral("currentCycle"), cycleName(now, now.currentCycleId));
    for (const Command& command : commandTable()) {
        const QString refusal = refusalOf(command, now);
        if (!refusal.isEmpty())
            tell(QStringLiteral("refused:") + QString::fromLatin1(command.name), refusal);
    }
}

bool isDrawingNotStored(const QString& path) { return wasSavedSince(path); }

void openProjectOfDesk(const QString& path)
{
    session().loadProject(path);
    refreshPalettes();
}
