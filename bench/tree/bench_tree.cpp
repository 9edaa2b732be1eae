// The project tree of a large project: seconds and statements of a refresh.
#include "database/hierarchy/forms/project_explorer_widget.h"
#include "support/console_capture.h"
#include "support/position_session.h"

#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <functional>

namespace {

constexpr int objects = 20;
constexpr int subobjects = 200;
constexpr int positions = 2000;
constexpr int runs = 5;              // the median is told
constexpr double plainBound = 0.5;   // seconds without counts
constexpr double countedBound = 1.5; // seconds with counts

struct Measured {
    double seconds = 0.0;
    int statements = 0;
};

// Each statement of the session's connection is a transaction of its own.
int statementsSoFar()
{
    session().run("select pg_stat_force_next_flush()");
    return session().run("select xact_commit from pg_stat_database where datname = current_database()").toInt(0, 0);
}

Measured measure(const std::function<void()>& work)
{
    std::vector<double> seconds;
    const int before = statementsSoFar();
    for (int run = 0; run < runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        work();
        seconds.push_back(double(timer.nsecsElapsed()) / 1e9);
    }
    std::sort(seconds.begin(), seconds.end());
    // Two statements are the counting's own.
    return {seconds[runs / 2], (statementsSoFar() - before - 2) / runs};
}

bool tell(const char* what, const Measured& measured, double bound)
{
    const bool within = measured.seconds <= bound;
    std::printf("%-42s %7.3f s  %6d statements  %s\n", what, measured.seconds, measured.statements,
                within ? "" : "MISSED");
    std::fflush(stdout);
    return within;
}

// What the server alone takes for the same rows.
void readPlainly(const ProjectNode& parent, bool withCounts)
{
    for (const NamedNode& named : readNodes(parent.level + 1, parent.id)) {
        if (named.node.level < PositionLevel)
            readPlainly(named.node, withCounts);
        else if (withCounts)
            positionCounts(named.node.id);
    }
}

void fillProject(PositionSession& database)
{
    database->exec("delete from positions; delete from subobjects; delete from objects;"
                   "insert into objects (object_id, project_id, object, appearence) select i, 1, 'Объект ' || i, i "
                   "from generate_series(1, 20) i;"
                   "insert into subobjects (subobject_id, object_id, subobject, appearence) "
                   "select i, 1 + i % 20, 'Подобъект ' || i, i from generate_series(1, 200) i;"
                   "insert into positions (position_id, subobject_id, position, appearence) "
                   "select i, 1 + i % 200, 'Позиция ' || i, i from generate_series(1, 2000) i;"
                   "insert into ts_elements (element_name, state_id, position_id) "
                   "select 'Т' || i, 'exist', 1 + i % 2000 from generate_series(1, 20000) i;"
                   "insert into dm_elements (element_name, state_id, position_id) "
                   "select 'М' || i, 'exist', 1 + i % 2000 from generate_series(1, 20000) i;"
                   "analyze");
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    ConsoleCapture console;
    PositionSession database;
    fillProject(database);
    std::printf("%d objects, %d subobjects, %d positions, 40,000 elements\n", objects, subobjects, positions);

    ProjectExplorerWidget explorer;
    explorer.show();
    bool within = tell("tree without counts", measure([&] { explorer.refreshTree(); }), plainBound);
    tell("  its statements alone", measure([] { readPlainly({1, ProjectLevel, 0}, false); }), plainBound);
    explorer.findChild<QCheckBox*>("ShowStatCB")->setChecked(true);
    within = tell("tree with counts", measure([&] { explorer.refreshTree(); }), countedBound) && within;
    tell("  its statements alone", measure([] { readPlainly({1, ProjectLevel, 0}, true); }), countedBound);
    return within ? 0 : 1;
}
