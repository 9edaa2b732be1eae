#include "base/statement.h"
#include "database/sql/connection.h"
#include "support/test_database.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

namespace {

using sql::Connection;
using sql::Result;
using sql::Status;

class ConnectionTest : public ::testing::Test {
protected:
    QString otherConninfo(const QString& key, const QString& value) const
    {
        return database_.conninfo() + key + "=" + value;
    }

    // Ends the connection's server process from another connection.
    void loseServer()
    {
        const QString pid = connection_.run("select pg_backend_pid()").getvalue(0, 0);
        const Connection other(database_.conninfo());
        ASSERT_EQ(other.run(compose("select pg_terminate_backend(%1, 5000)", Numeral(pid))).getvalue(0, 0),
                  QString("t"));
    }

    TestDatabase database_{TestDatabase::Content::Empty};
    Connection connection_{database_.conninfo()};
};

TEST(NoConnection, GivesNullResultsAndEmptyTexts)
{
    const Connection connection;
    EXPECT_FALSE(connection.isOpen());
    EXPECT_FALSE(connection.isOk());
    EXPECT_TRUE(connection.run("select 1").isNullResult());
    EXPECT_TRUE(connection.run("select $1::integer", {sql::text(1)}).isNullResult());
    EXPECT_TRUE(connection.runScript("select 1").isNullResult());
    EXPECT_FALSE(connection.run("select 1").isTuples());
    EXPECT_EQ(connection.escapeLiteral("a"), QString());
    EXPECT_EQ(connection.escapeIdentifier("a"), QString());
    EXPECT_FALSE(connection.errorMessage().isEmpty());
}

TEST_F(ConnectionTest, OpensAndFinishes)
{
    EXPECT_TRUE(connection_.isOk());
    EXPECT_EQ(connection_.run("select current_database()").getvalue(0, 0), database_.name());
    connection_.finish();
    EXPECT_FALSE(connection_.isOpen());
    EXPECT_FALSE(connection_.isOk());
    EXPECT_TRUE(connection_.run("select 1").isNullResult());
}

TEST_F(ConnectionTest, OpenReplacesTheHandle)
{
    const QString before = connection_.run("select pg_backend_pid()").getvalue(0, 0);
    ASSERT_TRUE(connection_.open(database_.conninfo()));
    EXPECT_NE(connection_.run("select pg_backend_pid()").getvalue(0, 0), before);
}

TEST_F(ConnectionTest, RefusesAWrongPasswordAndKeepsTheMessage)
{
    const Connection refused(otherConninfo("password", "wrong"));
    EXPECT_TRUE(refused.isOpen());
    EXPECT_FALSE(refused.isOk());
    EXPECT_TRUE(refused.errorMessage().contains("password"));
    EXPECT_FALSE(refused.run("select 1").isTuples());
}

TEST_F(ConnectionTest, RefusesAHostGivenAsAName)
{
    EXPECT_FALSE(Connection(otherConninfo("hostaddr", "localhost")).isOk());
}

TEST_F(ConnectionTest, RefusesAPortWhereNobodyListens)
{
    const Connection refused(otherConninfo("port", "1"));
    EXPECT_FALSE(refused.isOk());
    EXPECT_FALSE(refused.rawErrorMessage().isEmpty());
}

TEST_F(ConnectionTest, RunRefusesTwoStatementsAndChangesNothing)
{
    ASSERT_TRUE(connection_.run("create table t (a text)").isCommand());
    const Result result = connection_.run("insert into t values ('a'); drop table t");
    EXPECT_EQ(result.status(), Status::FatalError);
    EXPECT_EQ(connection_.run("select count(*) from t").getvalue(0, 0), QString("0"));
}

TEST_F(ConnectionTest, RunAcceptsAStatementWithItsSemicolon)
{
    EXPECT_TRUE(connection_.run("select 1;").isTuples());
    EXPECT_TRUE(connection_.run("select 1; ").isTuples());
    EXPECT_TRUE(connection_.run("create table t (a text);\n").isCommand());
}

TEST_F(ConnectionTest, RunScriptTakesManyStatementsInOneTransaction)
{
    EXPECT_TRUE(connection_.runScript("create table a (n integer); insert into a values (1)").isCommand());
    EXPECT_FALSE(connection_.runScript("insert into a values (2); insert into no_such_table values (1)").isCommand());
    EXPECT_EQ(connection_.run("select count(*) from a").getvalue(0, 0), QString("1"));
}

TEST_F(ConnectionTest, BinaryValueComesBackAsItWent)
{
    QByteArray bytes;
    for (int i = 0; i < 256 * 300; ++i)
        bytes.append(char(i % 256));
    ASSERT_TRUE(connection_.run("create table f (id integer, content bytea)").isCommand());
    const Result inserted = connection_.run("insert into f (id, content) values ($1::integer,$2::bytea) returning id",
                                            {sql::text(7), sql::binary(bytes)});
    ASSERT_TRUE(inserted.isTuples());
    EXPECT_EQ(inserted.toInt(0, 0), 7);

    const Result binary =
        connection_.run("select content from f where id=$1::integer", {sql::text(7)}, sql::Format::Binary);
    EXPECT_EQ(binary.getlength(0, 0), bytes.size());
    EXPECT_EQ(binary.bytes(0, 0), bytes);
    EXPECT_EQ(connection_.run("select content from f").unescapedBytes(0, 0), bytes);
}

TEST_F(ConnectionTest, ParametersOfEveryKindArrive)
{
    const Result result =
        connection_.run("select $1::text, $2::integer + 1, $3::text is null, octet_length($4::bytea)",
                        {sql::text(QString("О'Нил \"%1\"")), sql::text(41), sql::null(), sql::binary(QByteArray())});
    ASSERT_TRUE(result.isTuples());
    EXPECT_EQ(result.getvalue(0, 0), QString("О'Нил \"%1\""));
    EXPECT_EQ(result.getvalue(0, 1), QString("42"));
    EXPECT_EQ(result.getvalue(0, 2), QString("t"));
    EXPECT_EQ(result.getvalue(0, 3), QString("0"));
}

TEST_F(ConnectionTest, AnApostropheInATextMakesTheStatementFail)
{
    EXPECT_FALSE(connection_.run(compose("select '%1'", QString("О'Нил"))).isTuples());
    EXPECT_TRUE(connection_.run("select 1").isTuples());
}

TEST_F(ConnectionTest, ARefusedStatementIsNotSentAndFailsWithItsReason)
{
    ASSERT_TRUE(connection_.run("create table t (a text)").isCommand());
    const Statement statement = compose("insert into t values ('%1')", QString("x'); delete from t --"));
    const Result result = connection_.run(statement);
    EXPECT_EQ(result.status(), Status::FatalError);
    EXPECT_FALSE(result.isNullResult());
    EXPECT_EQ(result.ntuples(), 0);
    EXPECT_EQ(result.errorMessage(), statement.refusal());
    EXPECT_EQ(connection_.errorMessage(), statement.refusal());
    EXPECT_EQ(connection_.run("select count(*) from t").getvalue(0, 0), QString("0"));
    EXPECT_EQ(connection_.errorMessage(), QString());
}

// The server sets the texts of a role free of backslashes; a statement relies on it.
TEST_F(ConnectionTest, BackslashesMeanNothingAlsoWhereTheDatabaseSaysOtherwise)
{
    ASSERT_TRUE(
        connection_
            .run(compose("alter database %1 set standard_conforming_strings = off", Identifier(database_.name())))
            .isCommand());
    ASSERT_TRUE(connection_.open(database_.conninfo()));
    EXPECT_EQ(connection_.run(compose("select '%1'", QString("a\\"))).getvalue(0, 0), QString("a\\"));
}

TEST_F(ConnectionTest, ScriptsOfSeveralStatementsGiveTheLastAnswer)
{
    EXPECT_EQ(connection_.runScript("select 1; select 2; select 3").getvalue(0, 0), QString("3"));
    EXPECT_EQ(connection_.runScript("select 1; select 1/0; select 3").status(), Status::FatalError);
    EXPECT_EQ(connection_.run("select 4").getvalue(0, 0), QString("4"));
}

TEST_F(ConnectionTest, ACopyThatNobodyFeedsEndsWithTheNextStatement)
{
    ASSERT_TRUE(connection_.run("create table t (a text)").isCommand());
    EXPECT_EQ(connection_.run("copy t from stdin").status(), Status::CopyIn);
    EXPECT_EQ(connection_.run("select count(*) from t").getvalue(0, 0), QString("0"));
    EXPECT_EQ(connection_.run("copy (select generate_series(1, 1000)) to stdout").status(), Status::CopyOut);
    EXPECT_EQ(connection_.run("select 5").getvalue(0, 0), QString("5"));
}

TEST_F(ConnectionTest, EscapesNamesAndValues)
{
    EXPECT_EQ(connection_.escapeIdentifier("a\"b"), QString("\"a\"\"b\""));
    EXPECT_EQ(connection_.escapeLiteral("О'Нил"), QString("'О''Нил'"));
    EXPECT_EQ(connection_.run(compose("select %1", connection_.literal("a'; drop table t --"))).getvalue(0, 0),
              QString("a'; drop table t --"));
}

// A link that died without a word is asked for after ten seconds and given up within half a minute.
TEST_F(ConnectionTest, TheLinkIsAskedWhetherItIsAlive)
{
    const auto option = [](int socket, int level, int name) {
        int value = -1;
        socklen_t size = sizeof value;
        return getsockopt(socket, level, name, &value, &size) == 0 ? value : -1;
    };
    int found = 0;
    for (int socket = 3; socket < 1024; ++socket) {
        sockaddr_in server{};
        socklen_t size = sizeof server;
        if (getpeername(socket, reinterpret_cast<sockaddr*>(&server), &size) != 0
            || ntohs(server.sin_port) != TestServer::port().toInt())
            continue;
        ++found;
        EXPECT_EQ(option(socket, SOL_SOCKET, SO_KEEPALIVE), 1);
        EXPECT_EQ(option(socket, IPPROTO_TCP, TCP_KEEPIDLE), 10);
        EXPECT_EQ(option(socket, IPPROTO_TCP, TCP_KEEPINTVL), 5);
        EXPECT_EQ(option(socket, IPPROTO_TCP, TCP_KEEPCNT), 3);
        EXPECT_EQ(option(socket, IPPROTO_TCP, TCP_USER_TIMEOUT), 30000);
    }
    EXPECT_GT(found, 0);
}

TEST_F(ConnectionTest, ALostServerFailsTheStatementAndANewConnectionHeals)
{
    loseServer();
    const Result result = connection_.run("select 1");
    EXPECT_FALSE(result.isTuples());
    EXPECT_EQ(result.ntuples(), 0);
    EXPECT_FALSE(connection_.isOk());
    EXPECT_TRUE(connection_.isOpen());
    EXPECT_FALSE(connection_.errorMessage().isEmpty());
    EXPECT_FALSE(connection_.run("select $1::text", {sql::text(1)}).isTuples());
    EXPECT_FALSE(connection_.runScript("select 1; select 2").isTuples());

    ASSERT_TRUE(connection_.open(database_.conninfo()));
    EXPECT_TRUE(connection_.run("select 1").isTuples());
}

TEST_F(ConnectionTest, NoticesOfTheServerStayOutOfTheConsole)
{
    ::testing::internal::CaptureStderr();
    connection_.run("drop table if exists no_such_table");
    connection_.run("do $$ begin raise warning 'attention'; end $$");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST_F(ConnectionTest, TextsTravelAsUtf8WhateverTheEnvironmentSays)
{
    qputenv("PGCLIENTENCODING", "WIN1251");
    const Connection other(database_.conninfo());
    qunsetenv("PGCLIENTENCODING");
    EXPECT_EQ(other.run("select 'марка №1'").getvalue(0, 0), QString("марка №1"));
    EXPECT_EQ(other.run("select length('марка №1')").getvalue(0, 0), QString("8"));
}

TEST(ServerMessage, IsReadAsUtf8)
{
    EXPECT_EQ(sql::decodeServerMessage(QByteArray("ошибка\n")), QString("ошибка\n"));
    EXPECT_EQ(sql::decodeServerMessage(QByteArray()), QString());
}

TEST(ServerMessage, IsReadAsWindows1251WhenItIsNoUtf8)
{
    EXPECT_EQ(sql::decodeServerMessage(QByteArray("\xEE\xF8\xE8\xE1\xEA\xE0: user\n")), QString("ошибка: user\n"));
}

TEST(ServerMessage, LosesAnUnfinishedSequenceAtItsEnd)
{
    EXPECT_EQ(sql::decodeServerMessage(QByteArray("user \xEE")), QString("user "));
}

} // namespace
