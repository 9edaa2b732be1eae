// One run of the dump utility. Small scripts stand in for utilities that are broken.
#include "database/backup/dump_run.h"

#include "stand_in.h"
#include "support/test_database.h"

#include <QDir>
#include <QElapsedTimer>
#include <gtest/gtest.h>

namespace {

class DumpRun : public StandIns {
protected:
    DumpTask task() const { return {{"127.0.0.1", "5432", "city", "me", "Секрет 1"}, target()}; }

    DumpResult run(const QString& program, const DumpLimits& limits = DumpLimits())
    {
        return runDump(
            program, task(), [](int, int) { return true; }, limits);
    }
};

TEST_F(DumpRun, TheUtilityIsGivenItsArgumentsInOrder)
{
    EXPECT_EQ(dumpArguments({"127.0.0.1", "5432", "city", "me", "secret"}),
              (QStringList{"-h", "127.0.0.1", "-p", "5432", "-U", "me", "--inserts", "city"}));
}

TEST_F(DumpRun, ThePasswordStandsInTheChildsEnvironmentAlone)
{
    const DumpResult result = run(
        standIn("pg_dump", "tr '\\0' ' ' </proc/$$/cmdline; echo; echo \"$PGPASSWORD|$LC_MESSAGES|$LC_ALL|$HOME\""));
    EXPECT_EQ(result.end, DumpEnd::Done);
    const QStringList lines = QString::fromUtf8(written()).split('\n');
    EXPECT_TRUE(lines.value(0).endsWith("pg_dump -h 127.0.0.1 -p 5432 -U me --inserts city ")) << lines.value(0);
    EXPECT_FALSE(lines.value(0).contains("Секрет"));
    EXPECT_EQ(lines.value(1), "Секрет 1|C||" + qEnvironmentVariable("HOME"));
    EXPECT_FALSE(qEnvironmentVariableIsSet("PGPASSWORD"));
}

TEST_F(DumpRun, OutputGoesToTheTargetInPlaceOfWhatItHeld)
{
    write(target(), "an old and much longer backup");
    EXPECT_EQ(run(standIn("pg_dump", "printf 'new'; printf 'a remark' >&2")).end, DumpEnd::Done);
    EXPECT_EQ(written(), QByteArray("new"));
}

TEST_F(DumpRun, AProgramThatIsNotThereLeavesTheOldBackup)
{
    write(target(), "old");
    EXPECT_EQ(run(folder_.filePath("no_such")).end, DumpEnd::NotStarted);
    EXPECT_EQ(run("no_such_program_anywhere").end, DumpEnd::NotStarted);
    EXPECT_EQ(run("C:\\Program Files\\PostgreSQL\\16\\bin\\pg_dump.exe").end, DumpEnd::NotStarted);
    write(folder_.filePath("text"), "no program");
    EXPECT_EQ(run(folder_.filePath("text")).end, DumpEnd::NotStarted);
    EXPECT_EQ(written(), QByteArray("old"));
}

TEST_F(DumpRun, AFileThatIsNoProgramDoesNotStart)
{
    const QString broken = folder_.filePath("broken");
    write(broken,
          "\x7f"
          "ELF and nothing of it");
    makeExecutable(broken);
    EXPECT_EQ(run(broken).end, DumpEnd::NotStarted);
}

TEST_F(DumpRun, ATargetThatCannotBeOpenedIsToldApart)
{
    DumpTask elsewhere = task();
    elsewhere.target = "/no/such/folder/backup.sql";
    const DumpResult result = runDump(standIn("pg_dump", "true"), elsewhere, [](int, int) { return true; });
    EXPECT_EQ(result.end, DumpEnd::NotWritable);
}

TEST_F(DumpRun, WhatTheUtilitySaysOfItsFailureIsKept)
{
    const DumpResult mismatch =
        run(standIn("old", "echo 'pg_dump: error: aborting because of server version mismatch' >&2; exit 1"));
    EXPECT_EQ(mismatch.end, DumpEnd::VersionMismatch);
    EXPECT_EQ(mismatch.details, QString("pg_dump: error: aborting because of server version mismatch\n"));
    const DumpResult failed = run(standIn("broken", "echo 'нет места' >&2; exit 3"));
    EXPECT_EQ(failed.end, DumpEnd::Failed);
    EXPECT_EQ(failed.details, QString("нет места\n"));
    const DumpResult russian = run(standIn("windows", "printf '\\355\\345\\362' >&2; exit 1"));
    EXPECT_EQ(russian.details, QString("нет"));
}

TEST_F(DumpRun, ASilentFailureIsToldByItsCode)
{
    const DumpResult silent = run(standIn("silent", "exit 7"));
    EXPECT_EQ(silent.end, DumpEnd::Failed);
    EXPECT_EQ(silent.details, QString("Код завершения 7"));
    const DumpResult killed = run(standIn("killed", "printf part; kill -9 $$"));
    EXPECT_EQ(killed.end, DumpEnd::Failed);
    EXPECT_EQ(killed.details, QString("Программа завершилась аварийно"));
    EXPECT_EQ(written(), QByteArray("part"));
}

TEST_F(DumpRun, AUtilityThatTakesTooLongIsStoppedAndItsPartStays)
{
    DumpLimits limits;
    limits.finish = 400;
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(run(standIn("slow", "printf part; echo $$ >" + quoted("pid") + "; exec sleep 60"), limits).end,
              DumpEnd::TimedOut);
    EXPECT_LT(clock.elapsed(), 30000);
    EXPECT_EQ(written(), QByteArray("part"));
    EXPECT_FALSE(isRunning("pid"));
}

TEST_F(DumpRun, AUtilityThatDoesNotListenIsKilled)
{
    DumpLimits limits;
    limits.finish = 400;
    EXPECT_EQ(
        run(standIn("deaf", "trap '' TERM; echo $$ >" + quoted("pid") + "; while :; do sleep 1; done"), limits).end,
        DumpEnd::TimedOut);
    EXPECT_FALSE(isRunning("pid"));
}

TEST_F(DumpRun, TheUserMayStopIt)
{
    int looks = 0;
    int allowed = 0;
    const DumpResult result =
        runDump(standIn("slow", "echo $$ >" + quoted("pid") + "; exec sleep 60"), task(), [&](int, int limit) {
            allowed = limit;
            return ++looks < 5;
        });
    EXPECT_EQ(result.end, DumpEnd::Cancelled);
    EXPECT_EQ(looks, 5);
    EXPECT_EQ(allowed, 60000);
    EXPECT_FALSE(isRunning("pid"));
}

TEST_F(DumpRun, NobodyIsAskedForAPassword)
{
    EXPECT_EQ(run(standIn("asks", "read answer || printf 'no answer'")).end, DumpEnd::Done);
    EXPECT_EQ(written(), QByteArray("no answer"));
}

// --- the real one --------------------------------------------------------------------

class RealDump : public DumpRun {
protected:
    DumpResult dump(const QString& file, const QString& password)
    {
        const ConnectionParameters at = {TestServer::host(), TestServer::port(), database_.name(), TestServer::user(),
                                         password};
        return runDump("pg_dump", {at, file}, [](int, int) { return true; });
    }
    TestDatabase database_;
};

TEST_F(RealDump, AFullDiskIsTold)
{
    const DumpResult result = dump("/dev/full", TestServer::password());
    EXPECT_EQ(result.end, DumpEnd::Failed);
    EXPECT_TRUE(result.details.contains("No space left on device")) << result.details;
}

TEST_F(RealDump, AWrongPasswordIsToldWithoutThePassword)
{
    const DumpResult result = dump(target(), "wrong-secret");
    EXPECT_EQ(result.end, DumpEnd::Failed);
    EXPECT_TRUE(result.details.contains("password authentication failed")) << result.details;
    EXPECT_FALSE(result.details.contains("wrong-secret")) << result.details;
}

} // namespace
