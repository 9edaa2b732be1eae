#include "session/project_folders.h"

#include "base/placeholders.h"
#include "files/written_file.h"
#include "hostkit/console.h"
#include "session/project_dialogs.h"

#include <QDir>
#include <QFileInfo>

namespace {

bool exists(const QString& folder) { return !folder.isEmpty() && QDir(folder).exists(); }

/// Says whether an existing folder can be written to; links are followed for
/// the check only. Says nothing of a missing one.
bool checkRights(const QString& folder)
{
    if (!exists(folder))
        return true;
    const QFileInfo canonical(QDir(folder).canonicalPath());
    const bool writable = canonical.isDir() && canonical.isWritable();
    say(writable ? QStringLiteral("  Ок\n") : QStringLiteral("  Нет прав записи\n"));
    return writable;
}

bool checkChosenFolder(QString& folder, const QString& title)
{
    bool ok = true;
    if (!exists(folder)) {
        say(QStringLiteral("  Отсутствует\n"));
        const QString chosen = projectDialogs() ? projectDialogs()->chooseFolder(title, folder) : QString();
        ok = !chosen.isEmpty();
        if (ok) {
            folder = chosen;
            say(fill(QStringLiteral("Выбран новый путь: %1\n"), folder));
        }
    }
    return checkRights(folder) && ok;
}

bool checkTemporaryFolder(const QString& folder)
{
    bool ok = true;
    if (!exists(folder)) {
        say(QStringLiteral("  Отсутствует. Пытаюсь создать...\n"));
        ok = !folder.isEmpty() && makePrivateFolder(folder);
        say(ok ? QStringLiteral("  Создана успешно\n") : QStringLiteral("  Ошибка создания\n"));
    }
    return checkRights(folder) && ok;
}

} // namespace

bool checkProjectFolders(ProjectFolders& folders)
{
    say(QStringLiteral("\nПроверка путей проекта\n"));
    say(QStringLiteral("Рабочая папка проекта: "));
    bool ok = checkChosenFolder(folders.work, QStringLiteral("Выберите рабочую папку проекта"));
    say(QStringLiteral("Временная папка проекта : "));
    ok = checkTemporaryFolder(folders.temporary) && ok;
    say(QStringLiteral("Шаблоны проекта : "));
    ok = checkChosenFolder(folders.templates, QStringLiteral("Выберите папку шаблонов проекта")) && ok;
    if (!ok)
        say(QStringLiteral("Загрузка проекта невозможна. Проверьте пути и права доступа."));
    return ok;
}
