#include "database/backup/database_backup.h"

#include "base/placeholders.h"
#include "hostkit/console.h"

#include <QDir>
#include <algorithm>

namespace {

// The number in a folder's name, as in "16" and "pgsql-16".
int versionIn(const QString& folder)
{
    QString digits;
    for (const QChar letter : folder) {
        if (letter.isDigit())
            digits += letter;
    }
    return digits.toInt();
}

// Folders that are named after a version, the newest first.
QStringList versionFolders(const QString& parent, const QString& pattern)
{
    QStringList folders = QDir(parent).entryList({pattern}, QDir::Dirs | QDir::NoDotAndDotDot);
    std::sort(folders.begin(), folders.end(),
              [](const QString& one, const QString& other) { return versionIn(one) > versionIn(other); });
    return folders;
}

// No other utility would do better.
bool isLast(DumpEnd end) { return end == DumpEnd::Done || end == DumpEnd::Cancelled || end == DumpEnd::NotWritable; }

} // namespace

QStringList dumpUtilityCandidates()
{
    QStringList candidates = {QStringLiteral("pg_dump"),
                              QStringLiteral("C:\\Program Files\\PostgreSQL\\16\\bin\\pg_dump.exe")};
    struct Place {
        const char* parent;
        const char* pattern;
    };
    for (const Place& place : {Place{"/usr/lib/postgresql", "*"}, Place{"/usr", "pgsql-*"}}) {
        for (const QString& folder : versionFolders(place.parent, place.pattern))
            candidates << fill(QStringLiteral("%1/%2/bin/pg_dump"), place.parent, folder);
    }
    return candidates;
}

std::optional<BackupMessage> messageOf(const DumpResult& result, const QString& target)
{
    switch (result.end) {
    case DumpEnd::Done:
        return BackupMessage{QStringLiteral("Успех"),
                             QStringLiteral("Резервное копирование успешно завершено.\nФайл: ") + target, true};
    case DumpEnd::TimedOut:
        return BackupMessage{QStringLiteral("Ошибка"), QStringLiteral("Превышено время ожидания (60 сек).")};
    case DumpEnd::VersionMismatch:
        return BackupMessage{QStringLiteral("Конфликт версий"),
                             QStringLiteral("Версия pg_dump не подходит для этого сервера.\n\nДетали:\n")
                                 + result.details};
    case DumpEnd::Failed:
        return BackupMessage{QStringLiteral("Ошибка pg_dump"),
                             QStringLiteral("Не удалось создать бэкап.\n\nДетали:\n") + result.details};
    case DumpEnd::NotWritable:
        return BackupMessage{QStringLiteral("Ошибка"), QStringLiteral("Не удалось записать файл ") + target};
    case DumpEnd::NotStarted:
    case DumpEnd::Cancelled: break;
    }
    return std::nullopt;
}

bool DatabaseBackup::run(const DumpTask& task, BackupDialogs& dialogs)
{
    say(fill(QStringLiteral("\nВыполняется резервное копирование базы данных '%1'...\n"), task.database.database));
    const DumpEnd end = search(task, dialogs);
    if (end != DumpEnd::Done)
        say(QStringLiteral("\nРезервная копия не создана.\n"));
    return end == DumpEnd::Done;
}

DumpEnd DatabaseBackup::search(const DumpTask& task, BackupDialogs& dialogs)
{
    QStringList programs = candidates_;
    if (!remembered_.isEmpty())
        programs.prepend(remembered_);
    for (const QString& program : programs) {
        const DumpEnd end = attempt(program, task, dialogs);
        if (isLast(end))
            return end;
    }
    dialogs.tell({QStringLiteral("Настройка pg_dump"),
                  QStringLiteral("Не удалось найти подходящую версию утилиты pg_dump автоматически.\n"
                                 "Пожалуйста, выберите файл pg_dump.exe вручную из папки 'bin' вашей версии "
                                 "PostgreSQL (рекомендуется v15 или v16).")});
    const QString chosen = dialogs.chooseUtility();
    return chosen.isEmpty() ? DumpEnd::Cancelled : attempt(chosen, task, dialogs);
}

DumpEnd DatabaseBackup::attempt(const QString& program, const DumpTask& task, BackupDialogs& dialogs)
{
    const DumpResult result = runDump(
        program, task, [&dialogs](int elapsed, int limit) { return dialogs.goOn(elapsed, limit); }, limits_);
    if (result.end == DumpEnd::Done)
        remembered_ = program;
    if (const std::optional<BackupMessage> message = messageOf(result, task.target))
        dialogs.tell(*message);
    if (result.end == DumpEnd::Done)
        say(fill(QStringLiteral("\nБэкап создан: %1\n"), task.target));
    return result.end;
}
