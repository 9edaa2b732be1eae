#include "database/forms/backup_dialogs.h"

#include "formkit/boxes.h"
#include "formkit/file_questions.h"
#include "formkit/progress_box.h"

#include <QDir>

using namespace formkit;

namespace {

// The first place that is there: the server's own installer's, or other systems'.
QString utilityFolder()
{
    for (const char* folder : {"C:\\Program Files\\PostgreSQL", "/usr/lib/postgresql"}) {
        if (QDir(QString::fromLatin1(folder)).exists())
            return QString::fromLatin1(folder);
    }
    return {};
}

} // namespace

QString askBackupFile()
{
    OverHost host;
    return askFileToSave(host, {"Сохранить резервную копию базы данных", "SQL Dump (*.sql)"});
}

BackupBoxes::BackupBoxes() = default;
BackupBoxes::~BackupBoxes() = default;

void BackupBoxes::tell(const BackupMessage& message)
{
    progress_.reset();
    (message.good ? inform : warn)(nullptr, message.text, message.title);
}

// The second filter is for systems where programs have no suffix.
QString BackupBoxes::chooseUtility()
{
    OverHost host;
    return askFileToOpen(host, {"Найти pg_dump.exe", "pg_dump.exe (pg_dump.exe);;pg_dump (pg_dump)", utilityFolder()});
}

bool BackupBoxes::goOn(int elapsed, int limit)
{
    if (!progress_)
        progress_ =
            std::make_unique<ProgressBox>(nullptr, "Резервное копирование", "Сохраняется база данных. Подождите...");
    return progress_->step(qMin(elapsed, limit), limit);
}
