// Reading and emptying the log of a real database.
#include "database/audit/audit_log.h"

#include "base/placeholders.h"
#include "support/session_database.h"

#include <QThread>

namespace {

const AuditPeriod kDay = {QDateTime(QDate(2026, 1, 1), QTime(0, 0)), QDateTime(QDate(2026, 1, 2), QTime(0, 0))};

bool always(int, int) { return true; }

class AuditLog : public SessionDatabase {
protected:
    void SetUp() override
    {
        SessionDatabase::SetUp();
        database.exec("truncate audit_log");
    }
    void makeEntries(int count)
    {
        database.exec(fill("insert into audit_log (table_name, operation, changed_by, changed_at, old_data, new_data) "
                           "select 'devices', 'INSERT', 'me', timestamp '2026-01-01' + i * interval '1 second', null, "
                           "jsonb_build_object('device_id', i) from generate_series(1, %1) i",
                           count));
    }
    // Whether the connection is free for others: no transaction was left open.
    QString transaction()
    {
        return database.value(fill("select state from pg_stat_activity where pid = %1",
                                   session().run("select pg_backend_pid()").getvalue(0, 0)));
    }
};

} // namespace

TEST_F(AuditLog, TheStatementIsWhatItHasAlwaysBeen)
{
    EXPECT_EQ(auditStatement(kDay).text(),
              QString("select table_name, operation, changed_by, TO_CHAR(changed_at, 'YYYY-MM-DD HH24:MI:SS') as "
                      "changed_time, old_data::text, new_data::text from audit_log where changed_at between "
                      "'2026-01-01 00:00:00'::timestamp and '2026-01-02 00:00:00'::timestamp "));
}

TEST_F(AuditLog, ReadsThePeriodWithBothItsEnds)
{
    database.exec("insert into audit_log (table_name, operation, changed_by, changed_at, old_data, new_data) values "
                  "('early', 'INSERT', 'a', '2025-12-31 23:59:59', null, null),"
                  "('first', 'UPDATE', 'Иван', '2026-01-01', '{\"a\": 1}', '{\"a\": \"О''Генри\"}'),"
                  "('last', 'DELETE', 'b', '2026-01-02', '{}', null),"
                  "('late', 'INSERT', 'c', '2026-01-02 00:00:00.5', null, null)");
    AuditEntries entries;
    ASSERT_EQ(loadAuditLog(kDay, entries, always), AuditLoad::Done);
    ASSERT_EQ(entries.count(), 2);
    QStringList cells;
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < AuditEntries::ColumnCount; ++column)
            cells << entries.text(row, AuditEntries::Column(column));
    }
    EXPECT_EQ(cells,
              (QStringList{"first", "UPDATE", "Иван", "2026-01-01 00:00:00", "{\"a\": 1}", "{\"a\": \"О'Генри\"}",
                           "last", "DELETE", "b", "2026-01-02 00:00:00", "{}", ""}));
    EXPECT_EQ(transaction(), QString("idle"));
}

TEST_F(AuditLog, APeriodThatEndsBeforeItStartsIsEmpty)
{
    makeEntries(3);
    AuditEntries entries;
    EXPECT_EQ(loadAuditLog({kDay.end, kDay.start}, entries, always), AuditLoad::Done);
    EXPECT_EQ(entries.count(), 0);
}

TEST_F(AuditLog, ReadsPortionByPortionAndTellsHowFarItIs)
{
    makeEntries(4500);
    AuditEntries entries;
    QStringList told;
    EXPECT_EQ(loadAuditLog(kDay, entries,
                           [&told](int done, int total) {
                               told << fill("%1/%2", done, total);
                               return true;
                           }),
              AuditLoad::Done);
    EXPECT_EQ(told, (QStringList{"0/4500", "2000/4500", "4000/4500", "4500/4500"}));
    ASSERT_EQ(entries.count(), 4500);
    EXPECT_EQ(entries.text(4499, AuditEntries::NewData), QString("{\"device_id\": 4500}"));
}

TEST_F(AuditLog, ReadingCanBeStopped)
{
    makeEntries(4500);
    AuditEntries entries;
    EXPECT_EQ(loadAuditLog(kDay, entries, [](int done, int) { return done < 2000; }), AuditLoad::Cancelled);
    EXPECT_EQ(transaction(), QString("idle"));
    AuditEntries again;
    EXPECT_EQ(loadAuditLog(kDay, again, always), AuditLoad::Done);
}

TEST_F(AuditLog, WithoutTheTableOrTheServerReadingFails)
{
    database.exec("alter table audit_log rename to elsewhere");
    AuditEntries entries;
    EXPECT_EQ(loadAuditLog(kDay, entries, always), AuditLoad::Failed);
    EXPECT_EQ(transaction(), QString("idle"));
    EXPECT_TRUE(session().run("select 1").isTuples());
    database.exec("alter table elsewhere rename to audit_log");
    makeEntries(3000);
    AuditEntries cut;
    EXPECT_EQ(loadAuditLog(kDay, cut,
                           [this](int done, int) {
                               if (done > 0)
                                   session().connection.finish();
                               return true;
                           }),
              AuditLoad::Failed);
    AuditEntries none;
    EXPECT_EQ(loadAuditLog(kDay, none, always), AuditLoad::Failed);
}

TEST_F(AuditLog, IsEmptied)
{
    makeEntries(3);
    EXPECT_FALSE(emptyAuditLog());
    EXPECT_EQ(database.value("select count(*) from audit_log"), QString("0"));
    database.exec("alter table audit_log rename to elsewhere");
    const auto message = emptyAuditLog();
    ASSERT_TRUE(message);
    EXPECT_TRUE(message->contains("audit_log")) << *message;
}

TEST_F(AuditLog, TheOthersAreListed)
{
    EXPECT_EQ(otherConnections(), QStringList("Пользователь postgres  Адрес 127.0.0.1")) << "the test's own";
    database.connection().finish();
    // The server lets go of a connection a moment after its end.
    for (int i = 0; i < 100 && !otherConnections().isEmpty(); ++i)
        QThread::msleep(50);
    EXPECT_EQ(otherConnections(), QStringList());
}
