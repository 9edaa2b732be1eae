// A password stands in a project's file, and drawings are nobody else's business: what the program
// writes is its owner's alone whatever the user's mask says, and no command line holds a password.
#include "base/placeholders.h"
#include "writer_world.h"

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

constexpr int longest = 120000; // ms

// In octal, as users know them.
QString rightsOf(const QString& path)
{
    const int rights = int(QFileInfo(path).permissions());
    return QString::number((rights >> 12 & 7) << 6 | (rights >> 4 & 7) << 3 | (rights & 7), 8);
}

// The arguments of every process there is, each on a line.
QString commandLines()
{
    QString lines;
    for (const QString& process : QDir("/proc").entryList(QDir::Dirs)) {
        QFile file("/proc/" + process + "/cmdline");
        if (process.toInt() > 0 && file.open(QIODevice::ReadOnly))
            lines += QString::fromUtf8(file.readAll().replace('\0', ' ')) + '\n';
    }
    return lines;
}

void write(const QString& path, const QString& text)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path;
    file.write(text.toUtf8());
    file.close();
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

class NewDatabase {
public:
    explicit NewDatabase(const QString& name) : name_(name) { }
    ~NewDatabase()
    {
        sql::Connection(TestServer::conninfo("postgres"))
            .runScript(fill("drop database if exists %1 with (force)", name_));
    }
    NewDatabase(const NewDatabase&) = delete;
    NewDatabase& operator=(const NewDatabase&) = delete;

private:
    QString name_;
};

// The working drawing of a position and its project under a new name, then a project made anew.
const char* const filesAreWritten = R"(
command CIRCLE
point 5,5
real 1
command SAVE
command TERVA_SAVEPROJECT_AS
dialog "Файл проекта"
files ${OUT}/copy.terva
command TERVA_NEW_PROJECT
dialog "Создание проекта"
set SQL_host ${HOST}
set SQL_port ${PORT}
set Database ${NEW_DATABASE}
set Username ${USER}
set Password ${PASSWORD}
set Proj4Text "+proj=utm +zone=42 +datum=WGS84 +units=m +no_defs"
press btn_testconnect
press NextBtn
set ProjectName "Новый город"
set ProjectCode "НГ-1"
set ProjectOrganization "Строитель"
press NextBtn
press btn_OpenProject
dialog "Файл проекта"
files ${OUT}/new/city.terva
press CreateBtn
contains CreateLog "Проект успешно создан!"
press CancelBtn
)";

} // namespace

TEST(Privacy, WhatTheProgramWritesIsItsOwnersAlone)
{
    ASSERT_TRUE(TestServer::isKnown());
    WriterWorld world("load_stored_drawing", filesAreWritten);
    const QString fresh = world.database().name() + "_new";
    const NewDatabase dropped(fresh);
    world.layOld();
    // The copy that an earlier day left is open to all.
    const QString drawing = world.work() + "/temp/positionID1.dwg";
    ASSERT_TRUE(QFile::setPermissions(drawing, QFile::Permissions(0x6666)));
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PASSWORD", TestServer::password());
    environment.insert("HOST", TestServer::host());
    environment.insert("PORT", TestServer::port());
    environment.insert("USER", TestServer::user());
    environment.insert("NEW_DATABASE", fresh);
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start("/bin/sh",
                  QStringList{"-c", "umask 000; exec \"$0\" \"$@\"", WriterWorld::program()} + world.arguments());
    ASSERT_TRUE(process.waitForFinished(longest));
    ASSERT_EQ(process.exitCode(), 0) << process.readAll().toStdString();
    EXPECT_EQ(rightsOf(drawing), "600");
    EXPECT_EQ(rightsOf(world.out() + "/copy.terva"), "600");
    const QString made = world.out() + "/new";
    EXPECT_EQ(rightsOf(made + "/city.terva"), "600");
    for (const char* folder : {"", "/temp", "/templates"})
        EXPECT_EQ(rightsOf(made + folder), "700") << folder;
}

TEST(Privacy, TheUtilityThatSavesADatabaseIsHandedNoPassword)
{
    ASSERT_TRUE(TestServer::isKnown());
    WriterWorld world("backup", R"(
command TERVA_DB_BACKUP
dialog "Сохранить резервную копию базы данных"
files ${OUT}/copy.sql
dialog "Успех"
press OK
)");
    const QString password = TestServer::password();
    ASSERT_GT(password.size(), 8);
    const QString started = "--inserts " + world.database().name();
    bool seen = false;
    for (int round = 0; !seen && round < 5; ++round) { // it lives for a moment
        world.layOld();
        QProcess process;
        process.start(WriterWorld::program(), world.arguments());
        while (process.state() != QProcess::NotRunning && !process.waitForFinished(1)) {
            const QString lines = commandLines();
            seen = seen || lines.contains(started);
            ASSERT_FALSE(lines.contains(password));
        }
        EXPECT_EQ(process.exitCode(), 0) << process.readAll().toStdString();
    }
    EXPECT_TRUE(seen) << "pg_dump was looked at while it ran";
}

// The script itself, with programs that only tell what they were started with.
TEST(Privacy, TheSampleIsPlayedWithoutAPasswordOnACommandLine)
{
    const QTemporaryDir folder;
    const QString root = folder.path();
    ASSERT_TRUE(QFile::copy(TERVA_SOURCE_DIR "/run", root + "/run"));
    const QString tell = "#!/bin/sh\ntr '\\0' ' ' </proc/$$/cmdline >>" + root + "/lines\necho >>" + root
        + "/lines\necho \"$PASSWORD$PGPASSWORD\" >>" + root + "/environments\n";
    write(root + "/tools/setup", "#!/bin/sh\n");
    write(root + "/tools/build", "#!/bin/sh\n");
    write(root + "/tools/pg",
          "#!/bin/sh\n[ \"$1\" = env ] && echo 'export TERVA_PG_HOST=h TERVA_PG_PORT=1 "
          "TERVA_PG_USER=u TERVA_PG_PASSWORD=hush-hush'\nexit 0\n");
    write(root + "/build/release/bin/terva", tell);
    write(root + "/build/release/bin/templates/a.docx", "a");
    write(root + "/programs/psql", tell + "echo 0\n");
    write(root + "/.terva/sample/temp/positionID1.dwg", "a");
    // The wizard's part lays the sample's folder anew; what it makes is laid by a stand-in.
    write(root + "/programs/base64", "#!/bin/sh\necho YQ==\n");
    write(root + "/programs/cp", "#!/bin/sh\n");
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PATH", root + "/programs:" + environment.value("PATH"));
    environment.remove("TERVA_PG_DIR");
    for (const char* name : {"PASSWORD", "PGPASSWORD", "TERVA_PG_PASSWORD"})
        environment.remove(name);
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start("/bin/bash", {root + "/run"});
    ASSERT_TRUE(process.waitForFinished(longest));
    ASSERT_EQ(process.exitCode(), 0) << process.readAll().toStdString();
    QFile lines(root + "/lines"), environments(root + "/environments");
    ASSERT_TRUE(lines.open(QIODevice::ReadOnly) && environments.open(QIODevice::ReadOnly));
    const QString started = QString::fromUtf8(lines.readAll());
    EXPECT_FALSE(started.contains("hush-hush")) << started;
    EXPECT_GT(started.count("/terva "), 10) << started;
    EXPECT_GT(started.count("/psql "), 10) << started;
    for (const QByteArray& handed : environments.readAll().trimmed().split('\n'))
        EXPECT_EQ(handed, "hush-hush");
}
