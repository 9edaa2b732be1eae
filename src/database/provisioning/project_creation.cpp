#include "database/provisioning/project_creation.h"

#include "base/statement.h"
#include "database/provisioning/database_making.h"
#include "database/provisioning/folder_copy.h"
#include "files/written_file.h"
#include "session/project_file.h"
#include "session/project_session.h"

#include <QDir>
#include <QFileInfo>
#include <utility>

namespace {

const QString done = QStringLiteral("ОК \n");

ConnectionParameters parametersOf(const ProjectSession& session)
{
    return {session.sqlHost, session.sqlPort, session.sqlDatabase, session.sqlUser, session.sqlPass};
}

} // namespace

ProjectCreation::ProjectCreation(ProjectSession& session, const NewProject& project, Log log,
                                 std::function<void()> open)
    : session_(session), project_(project), log_(std::move(log)), open_(std::move(open))
{ }

bool ProjectCreation::run()
{
    static const Step steps[] = {
        &ProjectCreation::takeName,        &ProjectCreation::takeCode,        &ProjectCreation::takeOrganization,
        &ProjectCreation::takeDescription, &ProjectCreation::makeWorkDir,     &ProjectCreation::makeTempDir,
        &ProjectCreation::makeTemplateDir, &ProjectCreation::takeProjectFile, &ProjectCreation::checkTested,
        &ProjectCreation::checkSchema,     &ProjectCreation::announce,        &ProjectCreation::makeDatabase,
        &ProjectCreation::laySchema,       &ProjectCreation::connectToIt,     &ProjectCreation::writeProject,
        &ProjectCreation::writeFile,       &ProjectCreation::openProject,
    };
    for (Step step : steps)
        if (!(this->*step)())
            return false;
    log_(QStringLiteral("\n\nПроект успешно создан!"));
    return true;
}

// --- what the user has given ---------------------------------------------------

bool ProjectCreation::refuseEmpty()
{
    log_(QStringLiteral("Поле не должно быть пустым\n"));
    return false;
}

bool ProjectCreation::takeRequired(const QString& label, const QString& value, QString& target)
{
    log_(label);
    if (value.isEmpty())
        return refuseEmpty();
    target = value;
    log_(done);
    return true;
}

bool ProjectCreation::takeName()
{
    return takeRequired(QStringLiteral("Наименование проекта: "), project_.name, session_.projectName);
}

bool ProjectCreation::takeCode()
{
    return takeRequired(QStringLiteral("Шифр проекта: "), project_.code, session_.projectCode);
}

bool ProjectCreation::takeOrganization()
{
    return takeRequired(QStringLiteral("Организация: "), project_.organization, session_.projectOwner);
}

bool ProjectCreation::takeDescription()
{
    log_(QStringLiteral("Описание проекта: "));
    session_.projectLocation = project_.description;
    log_(project_.description.isEmpty() ? QStringLiteral(" не заполнено!\n") : done);
    return true;
}

bool ProjectCreation::takeProjectFile()
{
    return takeRequired(QStringLiteral("Файл проекта: "), withProjectSuffix(project_.projectFile),
                        session_.projectFile);
}

bool ProjectCreation::checkTested()
{
    log_(QStringLiteral("Проверка соединения: "));
    log_(project_.connectionTested ? QStringLiteral("Проходила \n") : QStringLiteral("Не проходила\n"));
    return project_.connectionTested;
}

bool ProjectCreation::checkSchema()
{
    log_(QStringLiteral("Схема БД: "));
    const bool exists = !project_.schemaPath.isEmpty() && QFileInfo::exists(project_.schemaPath);
    log_(exists ? done : QStringLiteral("Не найдена\n"));
    return exists;
}

// --- folders ---------------------------------------------------------------------

/// A folder that cannot be made is told and does not end the run.
bool ProjectCreation::makeFolder(const QString& label, const QString& folder, QString& target,
                                 const std::function<bool()>& make)
{
    log_(label);
    if (folder.isEmpty())
        return refuseEmpty();
    target = folder;
    bool ok = QDir(folder).exists();
    if (!ok) {
        log_(QStringLiteral(" Создаём "));
        ok = make();
    }
    log_(ok ? done : QStringLiteral("Ошибка !\n"));
    return true;
}

// The working folder is made inside a folder that exists, the others with all
// their parents.
bool ProjectCreation::makeWorkDir()
{
    const QString& folder = project_.workDir;
    return makeFolder(QStringLiteral("Рабочая папка проекта: "), folder, session_.workDir, [&folder] {
        return QFileInfo(QFileInfo(folder).absolutePath()).isDir() && makePrivateFolder(folder);
    });
}

bool ProjectCreation::makeTempDir()
{
    const QString& folder = project_.tempDir;
    return makeFolder(QStringLiteral("Папка временных файлов: "), folder, session_.tempDir,
                      [&folder] { return makePrivateFolder(folder); });
}

bool ProjectCreation::makeTemplateDir()
{
    const QString samples = session_.moduleDir + QStringLiteral("templates");
    const QString& folder = project_.templateDir;
    return makeFolder(QStringLiteral("Папка шаблонов: "), folder, session_.templateDir, [this, &samples, &folder] {
        if (!makePrivateFolder(folder))
            return false;
        if (!project_.copyTemplates)
            return true;
        log_(QStringLiteral(" Копируем шаблоны "));
        return copyFolder(samples, folder);
    });
}

// --- the database ------------------------------------------------------------------

bool ProjectCreation::announce()
{
    log_(QStringLiteral("Все готово к созданию проекта! "));
    return true;
}

bool ProjectCreation::outcome(const std::optional<QString>& error)
{
    log_(error ? QStringLiteral("Ошибка \n") + *error + QStringLiteral("\n") : done);
    return !error;
}

bool ProjectCreation::makeDatabase()
{
    log_(QStringLiteral("Создание БД (подождите...)\n"));
    return outcome(createDatabase(parametersOf(session_)));
}

bool ProjectCreation::laySchema()
{
    log_(QStringLiteral("Развертывание БД (подождите...)\n"));
    return outcome(loadSchema(parametersOf(session_), project_.schemaPath));
}

bool ProjectCreation::connectToIt()
{
    log_(QStringLiteral("Соединение с БД "));
    if (session_.connect())
        return outcome(std::nullopt);
    return outcome(sql::decodeServerMessage(session_.connection.rawErrorMessage()));
}

// --- the end -----------------------------------------------------------------------

bool ProjectCreation::writeProject()
{
    log_(QStringLiteral("Обновление данных проекта\n "));
    session_.saveProjectRow();
    session_.proj4Text = project_.proj4Text;
    const bool projected = session_.saveProjection();
    const auto row = session_.run(compose("SELECT 1 FROM projects WHERE project_id = %1", session_.projectId));
    if (!projected || !row.hasRow())
        log_(QStringLiteral("Ошибка !\n"));
    return true;
}

bool ProjectCreation::writeFile()
{
    log_(QStringLiteral("Запись файла проекта\n "));
    const bool written = session_.saveProject();
    if (!written)
        log_(QStringLiteral("Ошибка !\n"));
    return written;
}

bool ProjectCreation::openProject()
{
    if (open_)
        open_();
    return true;
}
