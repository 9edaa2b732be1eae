// The project tree of a large project: seconds and statements of a refresh.
#include "database/hierarchy/forms/project_explorer_widget.h"
#include "median_run.h"
#include "support/console_capture.h"
#include "support/position_session.h"

#include <QApplication>
#include <QCheckBox>
#include <cstdio>

namespace {

constexpr int objects = 20;
constexpr int subobjects = 200;
constexpr int positions = 2000;
constexpr int runs = 5;              // the median is told
constexpr double plainBound = 0.5;   // seconds without counts
constexpr double countedBound = 1.5; // seconds with counts

bool tell(const char* what, const MedianRun& measured, double bound)
{
    const bool within = measured.judged() <= bound;
    std::printf("%-42s %7.3f s, processor %7.3f s  %6d statements  %s\n", what, measured.seconds, measured.processor,
                measured.statements, within ? "" : "MISSED");
    std::fflush(stdout);
    return within;
}

// What the server alone takes for the same rows.
void readPlainly(const ProjectNode& parent)
{
    for (const NamedNode& named : readNodes(parent.level + 1, parent.id)) {
        if (named.node.level < PositionLevel)
            readPlainly(named.node);
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
    const ProjectNode project{1, ProjectLevel, 0};
    bool within = tell("tree without counts", medianRun(runs, [&] { explorer.refreshTree(); }), plainBound);
    tell("  its statements alone", medianRun(runs, [&] { readPlainly(project); }), plainBound);
    explorer.findChild<QCheckBox*>("ShowStatCB")->setChecked(true);
    within = tell("tree with counts", medianRun(runs, [&] { explorer.refreshTree(); }), countedBound) && within;
    tell("  its statements alone",
         medianRun(runs,
                   [&] {
                       readPlainly(project);
                       hasPositionCounts();
                       readPositionCounts();
                   }),
         countedBound);
    return within ? 0 : 1;
}
