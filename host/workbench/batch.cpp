#include "batch.h"

#include <commands/host_commands.h>
#include <drawing/application.h>
#include <script/script_runner.h>

#include <cstdio>

namespace {

void write(std::FILE* stream, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stream);
    std::fflush(stream);
}

} // namespace

int runBatch(const Options& options)
{
    ScriptRunner runner;
    runner.setSink([](const QString& text) { write(stdout, text); });
    runner.enableWatchdog([](const QString& text) { write(stderr, text + QLatin1Char('\n')); });
    runner.setStepTimeout(options.stepTimeout);
    for (const auto& variable : options.variables)
        runner.setVariable(variable.first, variable.second);
    for (const QString& drawing : options.drawings)
        if (!isOk(ncDocManagerPtr()->appContextOpenDocument(drawing))) {
            write(stderr, QStringLiteral("Чертёж «") + drawing + QStringLiteral("» не открывается\n"));
            return 1;
        }
    openStartDocument();
    const bool good = runner.playFile(options.batch);
    if (!runner.console().text().isEmpty() && !runner.console().text().endsWith(QLatin1Char('\n')))
        write(stdout, QStringLiteral("\n"));
    if (!good)
        write(stderr, runner.failure()->toString() + QLatin1Char('\n'));
    return good ? 0 : 1;
}
