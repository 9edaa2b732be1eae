// Opening a large project over a bad link: seconds, bytes, statements, and whether the user saw that
// something goes on.
#include "base/placeholders.h"
#include "entry/module.h"
#include "exchange/elements/element_import.h"
#include "scenario.h"
#include "session/project_session.h"
#include "support/session_wiring.h"
#include "support/silent_server.h"

#include <commands/host_commands.h>
#include <drawing/application.h>
#include <script/script_runner.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QProgressDialog>
#include <QTemporaryDir>
#include <cstdio>

namespace {

constexpr int elements = 5000;
constexpr int delay = 50;            // ms, each way
constexpr double lost = 0.01;        // of the packets
constexpr double bound = 60.0;       // seconds
constexpr double unseenBound = 15.0; // seconds for which nothing may change before the user's eyes

// The longest time in which neither a line was printed nor a box moved.
class Eyes : public QObject {
public:
    Eyes()
    {
        clock_.start();
        qApp->installEventFilter(this);
    }
    void see()
    {
        longest_ = qMax(longest_, clock_.elapsed());
        clock_.restart();
    }
    double longest() const { return double(longest_) / 1000.0; }
    int boxes() const { return boxes_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Show && qobject_cast<QProgressDialog*>(watched))
            ++boxes_;
        if (event->type() == QEvent::Paint)
            see();
        return false;
    }

private:
    QElapsedTimer clock_;
    qint64 longest_ = 0;
    int boxes_ = 0;
};

bool play(const QString& script, const Variables& variables, Eyes* eyes = nullptr)
{
    ScriptRunner runner;
    runner.setStepTimeout(600.0);
    for (auto variable = variables.begin(); variable != variables.end(); ++variable)
        runner.setVariable(variable.key(), variable.value());
    if (eyes)
        runner.setSink([eyes](const QString&) { eyes->see(); });
    if (runner.playText(script, "script"))
        return true;
    std::fprintf(stderr, "%s\n", qPrintable(runner.failure()->toString()));
    return false;
}

QVector<ElementRecord> records()
{
    QVector<ElementRecord> made(elements);
    for (int i = 0; i < elements; ++i) {
        made[i].name = fill("М-%1", i);
        made[i].x = i % 100;
        made[i].y = i / 100;
        made[i].absoluteMark = 100.0;
    }
    return made;
}

// The position's elements, in their rows, in blocks, and the drawing in the database.
bool makeSite(TestDatabase& database, const Variables& variables)
{
    if (!database.exec(readText(scenarioFolder("common") + "/base.sql", {})))
        return false;
    openStartDocument();
    if (!play("include ${COMMON}/load.script", variables))
        return false;
    const auto made = importElements(records(), {0, 1, 1, -1}, {});
    if (made.inserted != elements || !play("command TERVA_SYNC_DWG_DB\nkeyword Чертеж\n", variables))
        return false;
    closeAllDocuments();
    disconnectSession();
    return database.exec("analyze");
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    TestDatabase database;
    const QTemporaryDir folder;
    Variables variables = {
        {"HOST", "127.0.0.1"},
        {"PORT", TestServer::port()},
        {"USER", TestServer::user()},
        {"PASSWORD64", QString::fromLatin1(TestServer::password().toUtf8().toBase64())},
        {"DATABASE", database.name()},
        {"FOLDER", folder.path()},
        {"PROJECT", folder.path() + "/project.terva"},
        {"COMMON", scenarioFolder("common")},
    };
    registerHostCommands();
    addTemplateFolder(QCoreApplication::applicationDirPath());
    initialiseModule(nullptr);
    if (!layFiles("load_project", folder.path(), variables) || !makeSite(database, variables))
        return 1;
    const QString stored = database.value("select length(content) from positions_files");

    StallingLink link;
    link.delay(delay);
    link.lose(lost);
    variables["PORT"] = link.port();
    if (!layFiles("load_project", folder.path(), variables))
        return 1;
    openStartDocument();
    if (!play("command TERVA_PROJECT_SETTINGS\ncommand TERVA_PROJECT_EXPLORER\ncommand TERVA_ELEMENT_LIST\n",
              variables))
        return 1;
    const int before =
        database.value("select xact_commit from pg_stat_database where datname = current_database()").toInt();
    Eyes eyes;
    QElapsedTimer clock;
    clock.start();
    const bool opened = play("include ${COMMON}/load.script", variables, &eyes);
    const double seconds = double(clock.elapsed()) / 1000.0;
    eyes.see();
    disconnectSession();
    database.value("select pg_stat_clear_snapshot()");
    const int after =
        database.value("select xact_commit from pg_stat_database where datname = current_database()").toInt();
    const bool kept = opened && seconds <= bound && eyes.longest() <= unseenBound && eyes.boxes() > 0;
    std::printf(
        "opening %d elements: %.1f s of %.0f, %lld bytes (the drawing %s), some %d statements, nothing to see for "
        "%.1f s at most, %d boxes%s\n",
        elements, seconds, bound, link.bytesToClient(), qPrintable(stored), after - before, eyes.longest(),
        eyes.boxes(), kept ? "" : "   MISSED");
    unloadModule();
    closeAllDocuments();
    return kept ? 0 : 1;
}
