#include "support/write_faults.h"

#include "support/preloaded.h"

#include <QFile>
#include <QTemporaryDir>

FaultRun runWithFault(const QString& program, const QStringList& arguments, const QString& folder, int at, int error)
{
    const QTemporaryDir own;
    const QString count = own.filePath(QStringLiteral("count"));
    QProcessEnvironment environment = preloading(QStringLiteral("libterva_faults.so"));
    environment.insert(QStringLiteral("TERVA_FAULT_FOLDER"), folder + QLatin1Char('/'));
    environment.insert(QStringLiteral("TERVA_FAULT_AT"), QString::number(at));
    environment.insert(QStringLiteral("TERVA_FAULT"), error == 0 ? QStringLiteral("kill") : QString::number(error));
    environment.insert(QStringLiteral("TERVA_FAULT_COUNT"), count);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    FaultRun run;
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return run;
    run.exitCode = process.exitCode();
    QFile file(count);
    run.reached = file.open(QIODevice::ReadOnly) && file.readAll().toInt() >= at;
    return run;
}
