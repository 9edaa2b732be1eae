// The audit log viewer on a large log. Entries are made by the server, as its
// triggers would: rows of elements before and after, of seven tables.
#include "database/audit/audit_log.h"
#include "database/forms/audit_log_form.h"
#include "spent_time.h"
#include "support/session_database.h"

#include <QApplication>
#include <QDateTimeEdit>
#include <QFile>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <cstdio>

namespace {

constexpr int kEntries = 1000000;
constexpr int kDayMs = 1000;    // a day opens within this
constexpr int kFilterMs = 1000; // a filter is there at once
constexpr int kMemoryMb = 400;  // what the whole period may add

// Megabytes that this process has of its own, without pages of files.
int memory()
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.startsWith("RssAnon:"))
            return line.mid(8).simplified().split(' ').value(0).toInt() / 1024;
    }
    return 0;
}

class AuditBench : public SessionDatabase {
public:
    using SessionDatabase::SetUp;
    using SessionDatabase::TearDown;
    void TestBody() override { }

    void makeEntries()
    {
        database.exec(fillStatement());
        database.exec("vacuum analyze audit_log");
    }
    QString logSize() { return database.value("select pg_size_pretty(pg_table_size('audit_log'))"); }

private:
    static QString fillStatement()
    {
        return QStringLiteral(
                   "truncate audit_log;"
                   "insert into audit_log (table_name, operation, changed_by, changed_at, old_data, new_data) "
                   "select (array['dm_elements','ts_meas','dm_meas','objects','positions','tsg_elements','tss_meas'])"
                   "[1 + i % 7], (array['INSERT','UPDATE','DELETE'])[1 + i % 3], 'user' || i % 5, "
                   "timestamp '2025-01-01' + i * interval '31.5 seconds', "
                   "case when i % 3 > 0 then r end, case when i % 3 < 2 then r end from "
                   "(select i, jsonb_build_object('element_id', i, 'element_name', 'ДМ.' || i, 'state_id', 'exist', "
                   "'x', 500000.123 + i, 'y', 7000000.5 - i, 'z', 12.5, 'h', 0.3, 'position_id', i % 100, 'geom', "
                   "'SRID=9999;POINT(' || i || ' 7000000.5)', 'note', md5(i::text)) as r "
                   "from generate_series(1, %1) i) s")
            .arg(kEntries);
    }
};

bool failed = false;

void measure(const char* what, const std::function<void()>& work, int bound = 0)
{
    const SpentTimer clock;
    work();
    QApplication::processEvents();
    const SpentTime spent = clock.spent();
    const bool late = bound > 0 && spent.judged() * 1000 > bound;
    failed = failed || late;
    std::printf("%-32s %7.0f ms (own %.0f + server %.0f)   %4d MB%s\n", what, spent.clock * 1000, spent.own * 1000,
                spent.server * 1000, memory(), late ? "   TOO LONG" : "");
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    AuditBench bench;
    bench.SetUp();
    measure("a million entries are made", [&bench] { bench.makeEntries(); });
    std::printf("audit_log: %s\n", qPrintable(bench.logSize()));
    {
        AuditLogViewerForm form;
        form.show();
        auto* log = form.findChild<QTableView*>("LogTable");
        const auto read = [&form](const QDate& from, const QDate& to) {
            form.findChild<QDateTimeEdit*>("StartTime")->setDateTime(QDateTime(from, QTime(0, 0)));
            form.findChild<QDateTimeEdit*>("EndTime")->setDateTime(QDateTime(to, QTime(0, 0)));
            form.findChild<QPushButton*>("ApplyBtn")->click();
        };
        const auto choose = [&form](const char* list, int row) {
            form.findChild<QListWidget*>(list)->setCurrentRow(row);
        };
        const int before = memory();
        measure(
            "a day",
            [&] {
                read({2025, 6, 1}, {2025, 6, 2});
            },
            kDayMs);
        std::printf("  %d entries\n", log->model()->rowCount());
        measure("a month", [&] { read({2025, 6, 1}, {2025, 7, 1}); });
        std::printf("  %d entries\n", log->model()->rowCount());
        measure("the whole period", [&] { read({2025, 1, 1}, {2026, 2, 1}); });
        failed = failed || log->model()->rowCount() != kEntries || memory() - before > kMemoryMb;
        std::printf("  %d entries, %d MB more than before\n", log->model()->rowCount(), memory() - before);
        measure(
            "filter: structure", [&] { choose("TablesList", 1); }, kFilterMs);
        measure(
            "filter: updates", [&] { choose("OperationsList", 2); }, kFilterMs);
        measure(
            "filter: all tables", [&] { choose("TablesList", 0); }, kFilterMs);
        measure(
            "filter: all operations", [&] { choose("OperationsList", 0); }, kFilterMs);
        measure(
            "an entry in the middle", [&] { log->selectRow(kEntries / 2); }, kFilterMs);
        measure("sorted by table", [&] { log->sortByColumn(0, Qt::AscendingOrder); });
        measure("sorted by time, latest first", [&] { log->sortByColumn(3, Qt::DescendingOrder); });
        measure("sorted by new data", [&] { log->sortByColumn(5, Qt::AscendingOrder); });
        measure("in the order of the log", [&] { log->sortByColumn(-1, Qt::AscendingOrder); });
    }
    bench.TearDown();
    return failed ? 1 : 0;
}
