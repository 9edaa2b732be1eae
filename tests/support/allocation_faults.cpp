#include "support/allocation_faults.h"

#include "support/preloaded.h"

#include <QFile>
#include <QTemporaryDir>

AllocationRun runShortOfMemory(const QString& program, const QStringList& arguments, const QString& start,
                               const QString& folder, AllocationFault fault)
{
    constexpr int longest = 60000; // ms
    const QTemporaryDir own;
    const QString count = own.filePath(QStringLiteral("count"));
    QProcessEnvironment environment = preloading(QStringLiteral("libterva_allocation_faults.so"));
    environment.insert(QStringLiteral("QT_HASH_SEED"), QStringLiteral("0")); // attributes stand in one order
    environment.insert(QStringLiteral("TERVA_ALLOCATION_START"), start);
    environment.insert(QStringLiteral("TERVA_ALLOCATION_FOLDER"), folder);
    environment.insert(QStringLiteral("TERVA_ALLOCATION_AT"), QString::number(fault.at));
    environment.insert(QStringLiteral("TERVA_ALLOCATION_COUNT"), count);
    if (fault.onAndOn)
        environment.insert(QStringLiteral("TERVA_ALLOCATION_ON"), QStringLiteral("1"));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    AllocationRun run;
    if (!process.waitForFinished(longest)) {
        process.kill();
        process.waitForFinished();
        run.hung = true;
        return run;
    }
    run.told = process.readAll();
    run.died = process.exitStatus() != QProcess::NormalExit;
    if (!run.died)
        run.exitCode = process.exitCode();
    QFile file(count);
    const QList<QByteArray> numbers = file.open(QIODevice::ReadOnly) ? file.readAll().split(' ') : QList<QByteArray>();
    run.calls = numbers.value(0).toInt();
    run.firstWrite = numbers.value(1).toInt();
    run.lastMove = numbers.value(2).toInt();
    return run;
}
