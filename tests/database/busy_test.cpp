// Statements that take long, servers that say nothing.
#include "database/sql/busy.h"
#include "database/sql/connection.h"
#include "support/silent_server.h"
#include "support/test_database.h"

#include <QElapsedTimer>
#include <gtest/gtest.h>

namespace {

struct Seen {
    int begun = 0;
    int asked = 0;
    int ended = 0;
    int giveUpAt = -1;
    std::function<void()> meanwhile;
};

class CountingBusy : public sql::Busy {
public:
    explicit CountingBusy(Seen& seen) : seen_(seen) { ++seen_.begun; }
    ~CountingBusy() override { ++seen_.ended; }
    bool goOn() override
    {
        if (seen_.meanwhile)
            seen_.meanwhile();
        return ++seen_.asked != seen_.giveUpAt;
    }

private:
    Seen& seen_;
};

class BusyTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        before_ = sql::setBusyHook([this] { return std::make_unique<CountingBusy>(seen_); });
    }
    void TearDown() override { sql::setBusyHook(before_); }

    Seen seen_;
    sql::BusyHook before_;
    TestDatabase database_{TestDatabase::Content::Empty};
    sql::Connection connection_{database_.conninfo()};
};

} // namespace

TEST_F(BusyTest, ShortStatementsPassWithoutAWord)
{
    EXPECT_TRUE(connection_.run("select pg_sleep(0.1)").isTuples());
    EXPECT_EQ(seen_.begun, 0);
}

TEST_F(BusyTest, ALongOneIsShownAndItsAnswerComesAllTheSame)
{
    const sql::Result result = connection_.run("select pg_sleep(1.5), 42");
    EXPECT_EQ(result.getvalue(0, 1), QString("42"));
    EXPECT_EQ(seen_.begun, 1);
    EXPECT_EQ(seen_.ended, 1);
    EXPECT_GT(seen_.asked, 1);
}

TEST_F(BusyTest, ATimeOutOfTheServersIsAFailureAndTheNextStatementWorks)
{
    ASSERT_TRUE(connection_.run("set statement_timeout = 100").isCommand());
    const sql::Result result = connection_.run("select pg_sleep(30)");
    EXPECT_EQ(result.status(), sql::Status::FatalError);
    EXPECT_TRUE(result.errorMessage().contains("statement timeout")) << result.errorMessage();
    EXPECT_EQ(connection_.run("select 7").getvalue(0, 0), QString("7"));
}

TEST_F(BusyTest, GivingUpCancelsTheStatementAndKeepsTheConnection)
{
    seen_.giveUpAt = 2;
    QElapsedTimer clock;
    clock.start();
    const sql::Result result = connection_.run("select pg_sleep(30)");
    EXPECT_LT(clock.elapsed(), 10000);
    EXPECT_EQ(result.status(), sql::Status::FatalError);
    EXPECT_FALSE(result.errorMessage().isEmpty());
    EXPECT_EQ(result.errorMessage(), connection_.errorMessage());
    EXPECT_EQ(connection_.run("select 7").getvalue(0, 0), QString("7"));
}

TEST_F(BusyTest, ALockedRowCanBeGivenUp)
{
    database_.exec("create table t (a int); insert into t values (1)");
    const sql::Connection other(database_.conninfo());
    ASSERT_TRUE(other.run("begin").isCommand());
    ASSERT_TRUE(other.run("update t set a = 2").isCommand());
    seen_.giveUpAt = 1;
    EXPECT_FALSE(connection_.run("update t set a = 3").isCommand());
    ASSERT_TRUE(other.run("rollback").isCommand());
    EXPECT_TRUE(connection_.run("update t set a = 4").isCommand());
}

// What the window does meanwhile must not mix with the statement.
TEST_F(BusyTest, NothingElseIsSentMeanwhile)
{
    QString message;
    bool opened = true;
    seen_.meanwhile = [&] {
        EXPECT_TRUE(sql::isStatementUnderWay());
        message = connection_.run("select 1").errorMessage();
        opened = connection_.open(database_.conninfo());
        connection_.finish();
    };
    EXPECT_EQ(connection_.run("select pg_sleep(1.2), 42").getvalue(0, 1), QString("42"));
    EXPECT_EQ(message, QString("Запрос не отправлен: предыдущий ещё выполняется"));
    EXPECT_FALSE(opened);
    EXPECT_FALSE(sql::isStatementUnderWay());
    EXPECT_EQ(connection_.errorMessage(), QString());
    EXPECT_TRUE(connection_.run("select 1").isTuples());
}

TEST_F(BusyTest, AStalledLinkCanBeLeft)
{
    StallingLink link;
    sql::Connection stalled(link.conninfo(database_.name()));
    ASSERT_TRUE(stalled.isOk());
    ASSERT_TRUE(stalled.run("select 1").isTuples());
    link.stall();
    seen_.giveUpAt = 1;
    QElapsedTimer clock;
    clock.start();
    // Larger than any buffer between: sending it stalls too.
    const sql::Result result = stalled.run("select octet_length($1::bytea)", {sql::binary(QByteArray(50000000, 'x'))});
    EXPECT_LT(clock.elapsed(), 15000);
    EXPECT_EQ(result.errorMessage(), QString("Запрос прерван: сервер не отвечает"));
    EXPECT_EQ(stalled.errorMessage(), result.errorMessage());
    EXPECT_FALSE(stalled.isOpen());
    // The next guard opens it anew.
    EXPECT_TRUE(stalled.open(database_.conninfo()));
}

TEST(Connecting, ToAServerThatSaysNothingEndsWithAMessage)
{
    const SilentServer server;
    qputenv("PGCONNECT_TIMEOUT", "2");
    QElapsedTimer clock;
    clock.start();
    const sql::Connection connection(server.conninfo());
    EXPECT_FALSE(connection.isOk());
    EXPECT_LT(clock.elapsed(), 8000);
    EXPECT_FALSE(connection.errorMessage().isEmpty());
    qunsetenv("PGCONNECT_TIMEOUT");
}

TEST(Connecting, GivesUpAfterTenSecondsUnlessToldOtherwise)
{
    qunsetenv("PGCONNECT_TIMEOUT");
    const sql::Connection refused(QStringLiteral("hostaddr=127.0.0.1 port=1 dbname=a user=a password=a "));
    EXPECT_FALSE(refused.isOk());
    EXPECT_EQ(qgetenv("PGCONNECT_TIMEOUT"), QByteArray("10"));
}
