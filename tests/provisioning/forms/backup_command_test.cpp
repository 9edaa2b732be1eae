// TERVA_DB_BACKUP with its questions and boxes, and the real utility.
#include "database/forms/administration_commands.h"
#include "database/forms/backup_dialogs.h"

#include "support/session_database.h"

#include <script/modal_driver.h>

#include <QFile>
#include <QFileDialog>
#include <QTemporaryDir>

namespace {

class BackupCommand : public SessionDatabase {
protected:
    QString standIn(const QString& name, const QByteArray& body)
    {
        const QString path = folder_.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n" + body + "\n");
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return path;
    }
    QString target() const { return folder_.filePath("Копия.sql"); }
    QByteArray written() const
    {
        QFile file(target());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static QString filterOf(QWidget* window, const QString& expected)
    {
        auto* dialog = qobject_cast<QFileDialog*>(window);
        const QString met = dialog ? dialog->nameFilters().join(";;") : QString("not a file dialog");
        return met == expected ? QString() : met;
    }

    QTemporaryDir folder_;
    ModalDriver driver_;
};

TEST_F(BackupCommand, SavesTheDatabaseAndTellsSo)
{
    driver_.expect("Сохранить резервную копию базы данных")
        .call([](QWidget* window) { return filterOf(window, "SQL Dump (*.sql)"); })
        .files({folder_.filePath("Копия")});
    driver_.expect("Успех").text("Резервное копирование успешно завершено.\nФайл: " + target()).press("OK");
    backUpDatabase();
    EXPECT_TRUE(driver_.done()) << driver_.report();
    EXPECT_EQ(console.text(),
              "\nВыполняется резервное копирование базы данных '" + database.name()
                  + "'...\n\nБэкап создан: " + target() + "\n");
    EXPECT_TRUE(written().contains("INSERT INTO public.projects")) << written().left(200).constData();
    EXPECT_TRUE(written().contains("PostgreSQL database dump complete"));
}

TEST_F(BackupCommand, ALeftQuestionEndsIt)
{
    driver_.expect("Сохранить резервную копию базы данных").close();
    backUpDatabase();
    EXPECT_TRUE(driver_.done()) << driver_.report();
    EXPECT_EQ(console.text(), QString());
}

TEST_F(BackupCommand, ABackupThatIsThereIsReplacedOnlyWhenWanted)
{
    QFile file(target());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("old");
    file.close();
    driver_.expect("Сохранить резервную копию базы данных").files({target()});
    driver_.expect("Внимание").text("Файл '" + target() + "' уже существует.\nЗаменить его?").press("Нет");
    backUpDatabase();
    EXPECT_TRUE(driver_.done()) << driver_.report();
    EXPECT_EQ(written(), QByteArray("old"));
}

TEST_F(BackupCommand, TheUserChoosesAUtilityWhenNoneSuits)
{
    DatabaseBackup backup({standIn("old", "echo 'server version mismatch' >&2; exit 1")});
    const QString own = standIn("pg_dump", "printf own");
    driver_.expect("Конфликт версий")
        .text("Версия pg_dump не подходит для этого сервера.\n\nДетали:\nserver version mismatch\n")
        .press("OK");
    driver_.expect("Настройка pg_dump").textContains("из папки 'bin' вашей версии").press("OK");
    driver_.expect("Найти pg_dump.exe")
        .call([](QWidget* window) { return filterOf(window, "pg_dump.exe (pg_dump.exe);;pg_dump (pg_dump)"); })
        .files({own});
    driver_.expect("Успех").press("OK");
    BackupBoxes boxes;
    EXPECT_TRUE(backup.run({{}, target()}, boxes));
    EXPECT_TRUE(driver_.done()) << driver_.report();
    EXPECT_EQ(written(), QByteArray("own"));
    EXPECT_EQ(backup.remembered(), own);
}

TEST_F(BackupCommand, ALongBackupShowsItselfAndCanBeStopped)
{
    DatabaseBackup backup({standIn("slow", "exec sleep 60")});
    driver_.expect("Резервное копирование")
        .text("Сохраняется база данных. Подождите...")
        .step("press", {"Отмена", "now"});
    BackupBoxes boxes;
    EXPECT_FALSE(backup.run({{}, target()}, boxes));
    EXPECT_TRUE(driver_.done()) << driver_.report();
    EXPECT_TRUE(console.text().endsWith("\nРезервная копия не создана.\n")) << console.text();
}

} // namespace
