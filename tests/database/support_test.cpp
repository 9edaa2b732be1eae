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

TEST(TestDatabases, AreFreshAndGoneAtTheEnd)
{
    QString first, second;
    {
        TestDatabase one, other;
        first = one.name();
        second = other.name();
        EXPECT_NE(first, second);
        one.exec("insert into cycles (number) values (1)");
        EXPECT_EQ(one.value("select count(*) from cycles"), QString("1"));
        EXPECT_EQ(other.value("select count(*) from cycles"), QString("0"));
        EXPECT_EQ(databases(first), QString("1"));
    }
    EXPECT_EQ(databases(first), QString("0"));
    EXPECT_EQ(databases(second), QString("0"));
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
