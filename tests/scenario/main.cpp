// The tests; with --play one script instead, in a host of its own.
#include "player.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("TZ", "UTC");
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
