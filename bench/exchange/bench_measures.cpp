// Measures into the database over a link of 50 ms a round trip: statements and
// seconds of reading, of one value for all rows, and of the import itself.
#include "base/placeholders.h"
#include "exchange/measure_import.h"
#include "exchange/measure_reading.h"
#include "session/project_session.h"
#include "support/console_capture.h"
#include "support/position_session.h"
#include "support/silent_server.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <cstdio>
#include <functional>

namespace {

constexpr int oneWay = 25;        // ms
constexpr int toldFor = 4000;     // rows that the seconds are reckoned up to
constexpr double rowBound = 1.05; // statements a row of the whole way
constexpr double minutesBound = 5.0;

// As the server counts them: each statement of the session is a transaction of its own.
int statementsSoFar(const sql::Connection& watcher)
{
    session().run("select pg_stat_force_next_flush()");
    return watcher.run("select xact_commit from pg_stat_database where datname = current_database()").toInt(0, 0);
}

class Steps {
public:
    Steps(const sql::Connection& watcher, int rows) : watcher_(watcher), rows_(rows) { }
    void take(const char* what, const std::function<void()>& work)
    {
        const int before = statementsSoFar(watcher_);
        QElapsedTimer timer;
        timer.start();
        work();
        const double seconds = double(timer.nsecsElapsed()) / 1e9;
        // Two transactions are the counting's own: its flush and its look.
        const int statements = statementsSoFar(watcher_) - before - 2;
        std::printf("%-28s %7d rows %9.2f s %8d statements %7.3f a row\n", what, rows_, seconds, statements,
                    double(statements) / rows_);
        std::fflush(stdout);
        seconds_ += seconds;
        statements_ += statements;
    }
    double seconds() const { return seconds_; }
    int statements() const { return statements_; }

private:
    const sql::Connection& watcher_;
    const int rows_;
    double seconds_ = 0.0;
    int statements_ = 0;
};

void fillProject(PositionSession& database, int rows)
{
    database->exec(
        fill("insert into dm_elements (element_id, element_name, state_id, position_id) overriding system "
             "value select n, 'М' || n, 'exist', 7 from generate_series(1, %1) n;"
             "insert into cycles (cycle_id, number, date_start, date_end) overriding system value values "
             "(1, 1, '2021-01-01', '2021-01-31'), (2, 2, '2021-02-01', '2021-02-28');"
             "insert into devices (device_id, name, serial) overriding system value values (1, 'Н', 'SN');"
             "insert into performers (performer_id, fullname, name) overriding system value values "
             "(1, 'И', 'И'); insert into positions_attributes (position_id, averagediff) values (7, 10);"
             "insert into dm_meas (element_id, cycle_id, meas) select n, 1, 100 from generate_series(1, %1) n;"
             "analyze",
             rows));
}

ReadingTask taskFor(int rows)
{
    ReadingTask task;
    task.lines << "Имя;Дата;Отметка;SN прибора";
    for (int row = 1; row <= rows; ++row)
        task.lines << fill("М%1;05.02.2021;100.01;SN", row);
    task.separator = ";";
    task.format = &importFamily(FamilyKey::Dm)->templates.last();
    task.positionId = PositionSession::position;
    loadScope("dm_elements", task.positionId, false, task.scope);
    loadCycles(task.lists);
    loadDevices(task.lists);
    loadPerformers(task.lists);
    return task;
}

bool measure(int rows)
{
    PositionSession database;
    fillProject(database, rows);
    const sql::Connection watcher(TestServer::conninfo(session().sqlDatabase));
    StallingLink link;
    session().connection.open(link.conninfo(session().sqlDatabase));
    link.delay(oneWay);
    ConsoleCapture console;
    const ImportFamily& family = *importFamily(FamilyKey::Dm);
    MeasureTable table(family);
    Steps steps(watcher, rows);
    steps.take("read and checked", [&] {
        const ReadingTask task = taskFor(rows);
        table.setMeasures(readMeasures(family, task), task.scope);
    });
    steps.take("one performer for all", [&] { table.givePerformer(1); });
    int written = 0;
    steps.take("imported", [&] {
        written = importMeasures(family, table.candidates(), [](const QString&) { return ImportAnswer::YesToAll; });
    });
    session().connection.finish();
    const double minutes = steps.seconds() / rows * toldFor / 60;
    const bool within = steps.statements() <= rows * rowBound + 20 && minutes <= minutesBound;
    std::printf("%d of %d rows written; %d rows take %.1f min at %d ms a round trip %s\n", written, rows, toldFor,
                minutes, 2 * oneWay, within ? "" : "MISSED");
    return within && written == rows;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    return measure(argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 400) ? 0 : 1;
}
