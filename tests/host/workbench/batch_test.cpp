// The program run as a shell runs it.
#include "support/full_disk.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

struct Outcome {
    int code = -1;
    QString out, err;
};

Outcome runProgram(const QStringList& arguments)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
        environment.remove(QString::fromLatin1(name));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(TERVA_PROGRAM), arguments);
    Outcome run;
    if (process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit)
        run.code = process.exitCode();
    run.out = QString::fromUtf8(process.readAllStandardOutput());
    run.err = QString::fromUtf8(process.readAllStandardError());
    return run;
}

class BatchTest : public ::testing::Test {
protected:
    QString script(const char* text)
    {
        QFile file(folder.filePath(QStringLiteral("сценарий.txt")));
        file.open(QIODevice::WriteOnly);
        file.write(text);
        return file.fileName();
    }

    Outcome play(const char* text, const QStringList& more = {})
    {
        return runProgram(QStringList{QStringLiteral("--no-module"), QStringLiteral("--batch"), script(text)} + more);
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(BatchTest, PrintsTheConsoleAsTheUserWouldSeeIt)
{
    const Outcome run = play("command CIRCLE\npoint 1,2\nreal 5\ncount 1\n");
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(run.out, QStringLiteral("Команда: CIRCLE\nЦентр окружности: 1,2\nРадиус: 5\n"));
    EXPECT_EQ(run.err, QString());
}

TEST_F(BatchTest, AFailureNamesFileAndLine)
{
    const Outcome run = play("# первая\ncommand CIRCLE\npoint 1,2\nenter\ncount 1\n");
    EXPECT_EQ(run.code, 1);
    EXPECT_TRUE(run.err.startsWith(folder.filePath(QStringLiteral("сценарий.txt")) + QStringLiteral(":5: ")))
        << run.err.toStdString();
}

TEST_F(BatchTest, VariablesAreGivenOnTheCommandLine)
{
    const Outcome run = play(
        "echo ${A} ${B}\n",
        {QStringLiteral("--var"), QStringLiteral("A=раз=1"), QStringLiteral("--var"), QStringLiteral("B=два слова")});
    EXPECT_EQ(run.out, QStringLiteral("раз=1 два слова\n"));
    EXPECT_EQ(play("echo", {QStringLiteral("--var"), QStringLiteral("БезЗначения")}).code, 2);
}

TEST_F(BatchTest, ADrawingIsSavedAndOpenedAgain)
{
    const QStringList out = {QStringLiteral("--var"), QStringLiteral("OUT=") + folder.path()};
    const Outcome first = play("command TEXT\npoint 1,2\nreal 5\nenter\nstring \"Скважина № 1\"\n"
                               "command SAVEAS\nstring ${OUT}/a.dxf\nexists ${OUT}/a.dxf\n",
                               out);
    EXPECT_EQ(first.code, 0) << first.err.toStdString();
    const Outcome second =
        play("documents 1\ncount 1 class=NcDbText\n", QStringList{folder.filePath(QStringLiteral("a.dxf"))});
    EXPECT_EQ(second.code, 0) << second.err.toStdString();
    EXPECT_EQ(play("echo", {folder.filePath(QStringLiteral("нет.dxf"))}).code, 1);
}

TEST_F(BatchTest, PicturesAreTheSameInAnyLanguage)
{
    const char* text = "command TEXT\npoint 0,0\nreal 5\nenter\nstring Съёмка\ncommand EXPORT\nstring ${OUT}\nenter\n";
    QByteArray pictures[2];
    const char* languages[] = {"C", "ru_RU.UTF-8"};
    for (int i = 0; i < 2; ++i) {
        qputenv("LANG", languages[i]);
        QFile file(folder.filePath(QStringLiteral("a.png")));
        const Outcome run = play(text, {QStringLiteral("--var"), QStringLiteral("OUT=") + file.fileName()});
        EXPECT_EQ(run.code, 0) << run.err.toStdString();
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        pictures[i] = file.readAll();
    }
    EXPECT_EQ(pictures[0], pictures[1]);
}

// A script does not go on as if the file were there, and the one before stays.
TEST_F(BatchTest, AFileThatCannotBeWrittenEndsTheRunWithItsReason)
{
    const char* const drawn = "command TEXT\npoint 0,0\nreal 5\nenter\nstring А\ncommand ";
    for (const char* const command : {"SAVEAS\nstring ${OUT}/a.dxf\n", "EXPORT\nstring ${OUT}/a.png\nenter\n"}) {
        const QByteArray text = QByteArray(drawn) + command + "echo дальше\n";
        const QStringList out = {QStringLiteral("--var"), QStringLiteral("OUT=") + folder.path()};
        ASSERT_EQ(play(text.constData(), out).code, 0);
        const QString name = folder.filePath(QString::fromLatin1(text).contains("a.dxf") ? "a.dxf" : "a.png");
        const qint64 before = QFileInfo(name).size();
        ASSERT_GT(before, 1000);
        script(text.constData());
        const FileSizeLimit limit(800);
        const Outcome run = runProgram(QStringList{QStringLiteral("--no-module"), QStringLiteral("--batch"),
                                                   folder.filePath(QStringLiteral("сценарий.txt"))}
                                       + out);
        EXPECT_EQ(run.code, 1) << command;
        EXPECT_TRUE(run.err.contains(QStringLiteral("не записан: "))) << run.err.toStdString();
        EXPECT_FALSE(run.out.contains(QStringLiteral("дальше"))) << run.out.toStdString();
        EXPECT_EQ(QFileInfo(name).size(), before) << command;
    }
}

TEST_F(BatchTest, BadOptionsAndModulesAreRefused)
{
    EXPECT_EQ(runProgram({QStringLiteral("--batch"), script("echo"), QStringLiteral("--bad")}).code, 2);
    const Outcome run = runProgram({QStringLiteral("--batch"), script("echo"), QStringLiteral("--module"),
                                    folder.filePath(QStringLiteral("нет.nrx"))});
    EXPECT_EQ(run.code, 2);
    EXPECT_FALSE(run.err.isEmpty());
    EXPECT_EQ(play("echo", {QStringLiteral("--timeout"), QStringLiteral("0")}).code, 2);
}

TEST_F(BatchTest, HelpIsPrintedInRussian)
{
    const Outcome run = runProgram({QStringLiteral("--help")});
    EXPECT_EQ(run.code, 0);
    EXPECT_TRUE(run.out.contains(QStringLiteral("Вызов:"))) << run.out.toStdString();
    EXPECT_TRUE(run.out.contains(QStringLiteral("--batch <файл>")));
    EXPECT_FALSE(run.out.contains(QStringLiteral("Options")));
}

TEST_F(BatchTest, TheVersionIsPrinted)
{
    for (const char* option : {"--version", "-v"}) {
        const Outcome run = runProgram({QString::fromLatin1(option)});
        EXPECT_EQ(run.code, 0);
        EXPECT_TRUE(QRegularExpression(QStringLiteral("^Терва \\d+\\.\\d+\\.\\d+\\n$")).match(run.out).hasMatch())
            << run.out.toStdString();
    }
}
