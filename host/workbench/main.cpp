// The program `terva`: loads modules, plays scripts, or opens the workbench.
#include "batch.h"
#include "desk_state.h"
#include "options.h"
#include "workbench.h"

#include <commands/host_commands.h>
#include <drawing/application.h>
#include <drawing/module_host.h>
#include <ui/russian_texts.h>

#include <QApplication>
#include <QFileInfo>
#include <cstdio>

namespace {

// What makes the program itself fail, as told to the shell.
constexpr int kBadUse = 2;

void print(std::FILE* stream, const QString& text) { std::fprintf(stream, "%s\n", text.toUtf8().constData()); }

QStringList modulesOf(const Options& options)
{
    const QString beside = QCoreApplication::applicationDirPath() + QStringLiteral("/terva.nrx");
    if (options.defaultModule && QFileInfo::exists(beside))
        return {beside};
    return options.modules;
}

bool loadModules(ModuleHost& host, const QStringList& paths)
{
    for (const QString& path : paths) {
        QString error;
        if (!host.load(path, &error)) {
            print(stderr, error);
            return false;
        }
    }
    return true;
}

// Batch work and help need no display, and show nothing on one.
bool needsNoDisplay(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i)
        for (const char* option : {"--batch", "--help", "-h", "--version", "-v"})
            if (qstrncmp(argv[i], option, qstrlen(option)) == 0)
                return true;
    return false;
}

// What the toolkit says about a machine without a display is no news to batch work.
void dropDisplayNews(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (text.startsWith(QLatin1String("This plugin does not support"))
        || text.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR")))
        return;
    print(stderr, qFormatLogMessage(type, context, text));
}

} // namespace

int main(int argc, char** argv)
{
    if (needsNoDisplay(argc, argv) && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(dropDisplayNews);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("terva"));
    QApplication::setApplicationDisplayName(QStringLiteral("Терва"));
    installRussianTexts();

    Options options;
    QString message;
    bool good = false;
    if (!parseOptions(QCoreApplication::arguments(), options, message, good)) {
        print(good ? stdout : stderr, message);
        return good ? 0 : kBadUse;
    }
    registerHostCommands();
    registerDeskCommands();
    addTemplateFolder(QCoreApplication::applicationDirPath());
    ModuleHost modules;
    if (!options.batch.isEmpty())
        return loadModules(modules, modulesOf(options)) ? runBatch(options) : kBadUse;
    return runWorkbench(options, [&] { return loadModules(modules, modulesOf(options)); });
}
