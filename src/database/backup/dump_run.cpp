#include "database/backup/dump_run.h"

#include "base/placeholders.h"
#include "database/sql/connection.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>

namespace {

constexpr int kLook = 50;       // ms between two looks at the child
constexpr int kFarewell = 2000; // ms that a child has to end by itself

void stop(QProcess& child)
{
    child.terminate();
    if (child.state() == QProcess::NotRunning || child.waitForFinished(kFarewell))
        return;
    child.kill();
    child.waitForFinished(kFarewell);
}

bool canBeWritten(const QString& path) { return QFile(path).open(QIODevice::WriteOnly | QIODevice::Append); }

// The server's words may stand in the code page of its machine.
QString wordsOf(QProcess& child) { return sql::decodeServerMessage(child.readAllStandardError()); }

DumpResult failureOf(QProcess& child)
{
    const QString words = wordsOf(child);
    if (words.contains(QLatin1String("version mismatch")))
        return {DumpEnd::VersionMismatch, words};
    if (!words.isEmpty())
        return {DumpEnd::Failed, words};
    return {DumpEnd::Failed,
            child.exitStatus() == QProcess::CrashExit ? QStringLiteral("Программа завершилась аварийно")
                                                      : fill(QStringLiteral("Код завершения %1"), child.exitCode())};
}

} // namespace

QStringList dumpArguments(const ConnectionParameters& database)
{
    return {QStringLiteral("-h"), database.host, QStringLiteral("-p"),        database.port,
            QStringLiteral("-U"), database.user, QStringLiteral("--inserts"), database.database};
}

QProcessEnvironment dumpEnvironment(const QString& password)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("PGPASSWORD"), password);
    environment.remove(QStringLiteral("LC_ALL")); // it would outdo the next line
    environment.insert(QStringLiteral("LC_MESSAGES"), QStringLiteral("C"));
    return environment;
}

DumpResult runDump(const QString& program, const DumpTask& task, const DumpWatch& watch, const DumpLimits& limits)
{
    // Starting a child empties its output file even where the program is missing.
    if (QStandardPaths::findExecutable(program).isEmpty())
        return {DumpEnd::NotStarted, {}};
    QProcess child;
    child.setProcessEnvironment(dumpEnvironment(task.database.password));
    child.setStandardInputFile(QProcess::nullDevice()); // nobody would answer a question
    child.setStandardOutputFile(task.target, QIODevice::Truncate);
    child.start(program, dumpArguments(task.database), QIODevice::ReadOnly);
    if (!child.waitForStarted(limits.start))
        return {canBeWritten(task.target) ? DumpEnd::NotStarted : DumpEnd::NotWritable, child.errorString()};

    QElapsedTimer clock;
    clock.start();
    while (child.state() != QProcess::NotRunning && !child.waitForFinished(kLook)) {
        const int elapsed = int(clock.elapsed());
        const bool stopped = !watch(elapsed, limits.finish);
        if (child.state() == QProcess::NotRunning)
            break;
        if (stopped || elapsed >= limits.finish) {
            stop(child);
            return {stopped ? DumpEnd::Cancelled : DumpEnd::TimedOut, {}};
        }
    }
    if (child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0)
        return {DumpEnd::Done, {}};
    return failureOf(child);
}
