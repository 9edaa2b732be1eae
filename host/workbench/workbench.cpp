#include "workbench.h"

#include "main_window.h"

#include <commands/host_commands.h>
#include <drawing/application.h>

#include <QApplication>
#include <QTimer>
#include <cstdio>

int runWorkbench(const Options& options, const std::function<bool()>& loadModules)
{
    MainWindow window(options.profile);
    window.show();
    if (!loadModules())
        return 2;
    window.restorePalettes();
    if (options.start.isEmpty())
        openStartDocument();
    const auto play = [&](const QString& script) {
        const QString wrong = window.playScript(script, options.variables, options.stepTimeout);
        if (!wrong.isEmpty())
            std::fprintf(stderr, "%s\n", wrong.toUtf8().constData());
        return wrong.isEmpty();
    };
    QTimer::singleShot(0, &window, [&] {
        window.greet();
        if (options.play.isEmpty())
            window.offerRecovery();
        for (const QString& file : options.drawings)
            window.openFile(file);
        if (!options.start.isEmpty())
            play(options.start);
        openStartDocument(); // if the script opened none
        // Not over what was recovered.
        const auto* now = dynamic_cast<const Document*>(ncDocManagerPtr()->curDocument());
        if (options.drawings.isEmpty() && options.start.isEmpty() && options.play.isEmpty() && now
            && !now->isModified())
            window.showStartPage();
        if (!options.play.isEmpty())
            QCoreApplication::exit(play(options.play) ? 0 : 1);
    });
    return QApplication::exec();
}
