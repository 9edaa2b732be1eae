// The tests; with --play one script instead, in a host of its own.
#include "player.h"

#include <QApplication>
#include <cstdio>
#include <gtest/gtest.h>

namespace {

// What the toolkit says about a machine without a display is no news to a script.
void dropDisplayNews(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (!text.startsWith(QLatin1String("This plugin does not support"))
        && !text.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR")))
        std::fprintf(stderr, "%s\n", qFormatLogMessage(type, context, text).toUtf8().constData());
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("TZ", "UTC");
    qputenv("TERVA_STRICT_COLUMNS", "1");
    qInstallMessageHandler(dropDisplayNews);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    ::testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("--play")) {
        QCoreApplication::setApplicationName(QStringLiteral("terva"));
        return playScenario(arguments.mid(2));
    }
    return RUN_ALL_TESTS();
}
