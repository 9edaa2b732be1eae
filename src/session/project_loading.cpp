// Opening a project: the file, its folders, the connection, the position, the
// reference lists.
#include "session/project_session.h"

#include "base/placeholders.h"
#include "hostkit/console.h"
#include "session/project_dialogs.h"
#include "session/project_file.h"
#include "session/project_folders.h"
#include "session/schema_check.h"
#include "session/working_drawing.h"

#include <QFile>
#include <QTextCodec>
#include <utility>

namespace {

std::optional<ProjectFile> readFile(const QString& path, const ProjectSession& defaults)
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        say(fill(QStringLiteral("Ошибка загрузки файла %1"), path));
        return std::nullopt;
    }
    std::optional<ProjectFile> project = readProjectFile(file, defaults);
    if (!project)
        say(fill(QStringLiteral("Ошибка разбора файла %1"), path));
    return project;
}

void setParameters(ProjectSession& session, const ConnectionParameters& parameters)
{
    session.sqlHost = parameters.host;
    session.sqlPort = parameters.port;
    session.sqlDatabase = parameters.database;
    session.sqlUser = parameters.user;
    session.sqlPass = parameters.password;
}

/// One opening of a project file.
class Loading {
public:
    Loading(ProjectSession& session, const QString& path, const ProjectFile& file)
        : session_(session), path_(path), file_(file), asRead_(file)
    { }

    void run()
    {
        checkFolders();
        connect();
        if (!ok_) {
            reopenOwnConnection();
            tellTrouble();
            return;
        }
        takeConnection();
        commitProject();
        tellMissingInSchema(session_);
        choosePosition();
        commitChoices();
        reloadLists();
        chooseStates();
        say(fill(QStringLiteral("\nУспешная загрузка проекта %1 \n"), path_));
        rewriteChangedFile();
    }

private:
    void checkFolders()
    {
        ProjectFolders folders{file_.workDir, file_.tempDir, file_.templateDir};
        ok_ = checkProjectFolders(folders);
        file_.workDir = folders.work;
        file_.templateDir = folders.templates;
    }

    // The file's database is tried by a session of its own: what it finds
    // becomes the session's with everything else, or not at all.
    void connect()
    {
        say(QStringLiteral("Соединение с БД: "));
        trial_.sqlType = file_.sqlType;
        if (connectOrAsk() && ok_)
            say(QStringLiteral("Успешно \n"));
    }

    bool connectOrAsk()
    {
        for (setParameters(trial_, file_.database); !trial_.connect(); setParameters(trial_, file_.database)) {
            say(QStringLiteral("Ошибка соединения \n"));
            if (!projectDialogs() || !projectDialogs()->askConnection(file_.database)) {
                ok_ = false;
                return false;
            }
            say(QStringLiteral("Повторная попытка соединения...\n"));
        }
        return true;
    }

    // The project before goes on with its own connection.
    void reopenOwnConnection()
    {
        if (!session_.connection.isOpen())
            return;
        const bool was = session_.connected;
        session_.connected = session_.openConnection(session_.connection.conninfo());
        if (was && !session_.connected)
            say(QStringLiteral("Соединение с базой данных прежнего проекта потеряно\n"));
    }

    // The drawing of the position before gives way to that of the position to
    // come, although its folder may be another by then.
    void takeConnection()
    {
        if (session_.currentPositionId != -1 && file_.positionId != -1)
            closeDrawingBefore();
        if (!isSameDatabase(session_.connection.conninfo(), trial_.connection.conninfo()))
            session_.forgetDatabase();
        session_.connection = std::move(trial_.connection);
        session_.connected = trial_.connected;
        session_.projectId = trial_.projectId;
        session_.auditEnabled = trial_.auditEnabled;
        session_.superuser = trial_.superuser;
    }

    void closeDrawingBefore()
    {
        const QString& before = session_.currentDrawingPath;
        // One that is laid anew at once is told of there.
        if (before != positionDrawing(file_.tempDir, file_.positionId))
            tellNotStored(session_.currentPositionId, before);
        closeDrawing(before);
    }

    void tellTrouble() const
    {
        if (projectDialogs())
            projectDialogs()->tellTrouble(fill(QStringLiteral("При открытии проекта '%1' возникли ошибки\n Проверьте "
                                                              "командную строку для информации."),
                                               path_));
        say(QStringLiteral("\nЧто-то пошло не так! Проект не открыт.\n"));
    }

    void commitProject()
    {
        session_.projectFile = path_;
        session_.workDir = file_.workDir;
        session_.tempDir = file_.tempDir;
        session_.templateDir = file_.templateDir;
        session_.sqlType = file_.sqlType;
        setParameters(session_, file_.database);
        session_.projectName = file_.projectName;
        session_.projectCode = file_.projectCode;
        session_.projectOwner = file_.projectOwner;
        session_.projectLocation = file_.projectLocation;
        for (int i = 0; i < enumeratorCount; ++i)
            session_.*enumeratorsInUse[i] = file_.enumerators[size_t(i)];
    }

    // "позичия": users' notes and the manual know the messages so.
    void choosePosition()
    {
        if (session_.setCurrentPosition(file_.positionId))
            say(fill(QStringLiteral("\nУстановлена текущая позичия проекта ID: %1 '%2'\n"), session_.currentPositionId,
                     session_.currentPositionName));
        else
            say(QStringLiteral("\nНе установлена текущая позичия проекта\n"));
    }

    void commitChoices()
    {
        session_.baseCycleId = file_.baseCycleId;
        session_.currentCycleId = file_.currentCycleId;
        session_.deformationColormapId = file_.deformationColormapId;
        session_.dynamicTemperatureColormapId = file_.dynamicTemperatureColormapId;
        session_.temperatureColormapId = file_.temperatureColormapId;
        session_.exportPath = file_.exportPath;
    }

    void reloadLists()
    {
        session_.reloadLevelMaps();
        session_.reloadCycles();
        session_.reloadPredictions();
        session_.reloadStates();
    }

    void chooseStates()
    {
        if (file_.stateFilter.isEmpty()) {
            session_.stateFilter = session_.states;
            return;
        }
        session_.stateFilter.clear();
        for (auto state = file_.stateFilter.begin(); state != file_.stateFilter.end(); ++state)
            if (session_.states.contains(state.key()))
                session_.stateFilter.insert(state.key(), state.value());
    }

    // Another port or database name alone is no reason to write.
    void rewriteChangedFile()
    {
        const bool changed = session_.sqlHost != asRead_.database.host || session_.sqlPass != asRead_.database.password
            || session_.sqlUser != asRead_.database.user || session_.workDir != asRead_.workDir
            || session_.tempDir != asRead_.tempDir || session_.templateDir != asRead_.templateDir;
        if (!changed)
            return;
        session_.saveProject();
        say(QStringLiteral("Файл проекта обновлен с новыми параметрами.\n"));
    }

    ProjectSession& session_;
    ProjectSession trial_;
    const QString path_;
    ProjectFile file_;
    const ProjectFile asRead_;
    bool ok_ = true;
};

} // namespace

void ProjectSession::loadProject(const QString& path)
{
    if (path.isEmpty())
        return;
    if (const std::optional<ProjectFile> file = readFile(path, *this))
        Loading(*this, path, *file).run();
}

void ProjectSession::chooseAndLoadProject()
{
    if (projectDialogs())
        loadProject(projectDialogs()->openProjectFile(projectFile));
}
