#include "workbench.h"

#include "main_window.h"

#include <commands/host_commands.h>

#include <QApplication>
#include <QTimer>
#include <cstdio>

int runWorkbench(const Options& options, const std::function<bool()>& loadModules)
{
    MainWindow window(options.profile);
    window.show();
    if (!loadModules())
        return 2;
    for (const QString& drawing : options.drawings)
        window.openDrawing(drawing);
    openStartDocument();
    if (!options.play.isEmpty())
        QTimer::singleShot(0, &window, [&] {
            const QString wrong = window.playScript(options.play, options.variables, options.stepTimeout);
            if (!wrong.isEmpty())
                std::fprintf(stderr, "%s\n", wrong.toUtf8().constData());
            QCoreApplication::exit(wrong.isEmpty() ? 0 : 1);
        });
    return QApplication::exec();
}
