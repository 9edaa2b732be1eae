// The databases that tests are given.
#include "base/statement.h"
#include "support/test_database.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace {

QString databases(const QString& name)
{
    const sql::Connection server(TestServer::conninfo("postgres"));
    return server.run(compose("select count(*) from pg_database where datname = '%1'", name)).getvalue(0, 0);
}

TEST(TestDatabases, AreFreshAndApart)
{
    TestDatabase one, other;
    EXPECT_NE(one.name(), other.name());
    one.exec("insert into cycles (number) values (1)");
    EXPECT_EQ(one.value("select count(*) from cycles"), QString("1"));
    EXPECT_EQ(other.value("select count(*) from cycles"), QString("0"));
}

TEST(TestDatabases, EmptyOnesAreGoneAtTheEnd)
{
    QString name;
    {
        TestDatabase empty(TestDatabase::Content::Empty);
        name = empty.name();
        EXPECT_EQ(databases(name), QString("1"));
    }
    EXPECT_EQ(databases(name), QString("0"));
}

TEST(TestDatabases, AUsedOneIsMadeAsNew)
{
    const char* const content = "select (select count(*) from cycles), (select count(*) from audit_log),"
                                " (select md5(string_agg(n::text, '|' order by norm_id)) from norm_sp22_13330 n),"
                                " (select count(*) from states), (select count(*) from spatial_ref_sys)";
    const QString insert = "insert into cycles (number) values (1) returning cycle_id";
    QString name, first;
    QVector<QStringList> fresh;
    {
        TestDatabase used;
        name = used.name();
        fresh = used.rows(content);
        first = used.value(insert);
        used.exec("delete from states; update norm_sp22_13330 set description = 'x'; insert into spatial_ref_sys "
                  "(srid, auth_name, auth_srid, proj4text) values (9999, 'TERVA', 9999, '+proj=longlat'); "
                  "alter sequence cycles_cycle_id_seq restart with 500");
        EXPECT_NE(used.rows(content), fresh);
    }
    TestDatabase again;
    EXPECT_EQ(again.name(), name);
    EXPECT_EQ(again.rows(content), fresh);
    EXPECT_EQ(again.value(insert), first);
}

TEST(TestDatabases, AChangedOneIsNotUsedAgain)
{
    for (const char* change : {"alter table cycles add extra int",
                               "drop trigger if exists no_such on cycles; "
                               "create function extra() returns int language sql as 'select 1'",
                               "grant select on cycles to public", "create schema extra"}) {
        QString name;
        {
            TestDatabase changed;
            name = changed.name();
            changed.exec(change);
        }
        TestDatabase next;
        EXPECT_NE(next.name(), name) << change;
        EXPECT_EQ(databases(name), QString("0")) << change;
    }
}

TEST(TestDatabases, AFailedStatementFailsTheTest)
{
    static TestDatabase database(TestDatabase::Content::Empty);
    EXPECT_NONFATAL_FAILURE(database.exec("select * from no_such_table"), "no_such_table");
    EXPECT_NONFATAL_FAILURE(database.value("select * from no_such_table"), "no_such_table");
    EXPECT_NONFATAL_FAILURE(database.rows("select * from no_such_table"), "no_such_table");
}

TEST(TestDatabases, AnUntoldServerFailsTheTest)
{
    const QByteArray host = qgetenv("TERVA_PG_HOST");
    qunsetenv("TERVA_PG_HOST");
    EXPECT_NONFATAL_FAILURE(TestDatabase(), "tools/pg start");
    qputenv("TERVA_PG_HOST", host);
}

} // namespace
