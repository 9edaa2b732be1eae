#include "player.h"

#include "expected_rows.h"
#include "relay.h"
#include "support/test_database.h"

#include <commands/host_commands.h>
#include <drawing/application.h>
#include <drawing/module_host.h>
#include <script/script_runner.h>
#include <ui/russian_texts.h>

#include <QCoreApplication>
#include <QMap>
#include <cstdio>

namespace {

using Variables = QMap<QString, QString>;

void write(std::FILE* stream, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stream);
    std::fflush(stream);
}

Variables variablesOf(const QStringList& arguments)
{
    Variables variables;
    for (const QString& argument : arguments)
        variables[argument.section(QLatin1Char('='), 0, 0)] = argument.section(QLatin1Char('='), 1);
    return variables;
}

void addVerbs(ScriptRunner& runner, const sql::Connection& connection, Relay& relay)
{
    runner.addVerb(QStringLiteral("sql"), [&connection](const QStringList& words) {
        const sql::Result result = connection.runScript(words.value(0));
        return result.isTuples() || result.isCommand() ? QString() : result.errorMessage();
    });
    runner.addVerb(QStringLiteral("database"), [&connection](const QStringList& words) {
        return differenceOfRows(connection, words.value(0), words.mid(1));
    });
    runner.addVerb(QStringLiteral("server"), [&relay](const QStringList& words) {
        if (words.value(0) == QLatin1String("stop"))
            relay.stop();
        else if (words.value(0) != QLatin1String("start") || !relay.start())
            return QStringLiteral("server start, server stop");
        return QString();
    });
}

} // namespace

int playScenario(const QStringList& arguments)
{
    installRussianTexts();
    registerHostCommands();
    addTemplateFolder(QCoreApplication::applicationDirPath());
    ModuleHost modules;
    QString error;
    if (!modules.load(QCoreApplication::applicationDirPath() + QStringLiteral("/terva.nrx"), &error)) {
        write(stderr, error + QLatin1Char('\n'));
        return 2;
    }
    const Variables variables = variablesOf(arguments.mid(1));
    const sql::Connection connection(TestServer::conninfo(variables[QStringLiteral("DATABASE")]));
    const QString port = variables.value(QStringLiteral("RELAY"));
    Relay relay(quint16(port.toUInt()), TestServer::host(), quint16(TestServer::port().toUInt()));
    ScriptRunner runner;
    runner.setSink([](const QString& text) { write(stdout, text); });
    runner.enableWatchdog([](const QString& text) { write(stderr, text + QLatin1Char('\n')); });
    for (auto variable = variables.begin(); variable != variables.end(); ++variable)
        runner.setVariable(variable.key(), variable.value());
    addVerbs(runner, connection, relay);
    openStartDocument();
    if (runner.playFile(arguments.value(0)))
        return 0;
    write(stderr, runner.failure()->toString() + QLatin1Char('\n'));
    return 1;
}
