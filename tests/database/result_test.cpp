#include "database/sql/result.h"
#include "support/test_database.h"

#include <gtest/gtest.h>
#include <utility>

namespace {

using sql::Result;
using sql::Status;

class ResultTest : public ::testing::Test {
protected:
    TestDatabase database_{TestDatabase::Content::Empty};
    sql::Connection& connection_ = database_.connection();
};

TEST(NullResult, IsSafeToReadAndNoSuccess)
{
    const Result result;
    EXPECT_TRUE(result.isNullResult());
    EXPECT_EQ(result.status(), Status::FatalError);
    EXPECT_FALSE(result.isTuples());
    EXPECT_FALSE(result.isCommand());
    EXPECT_EQ(result.ntuples(), 0);
    EXPECT_EQ(result.nfields(), 0);
    EXPECT_EQ(result.fname(0), QString());
    EXPECT_EQ(result.getvalue(0, 0), QString());
    EXPECT_EQ(result.getlength(0, 0), 0);
    EXPECT_TRUE(result.isNull(0, 0));
    EXPECT_EQ(result.bytes(0, 0), QByteArray());
    EXPECT_EQ(result.unescapedBytes(0, 0), QByteArray());
    EXPECT_EQ(result.toInt(0, 0), 0);
    EXPECT_EQ(result.toDouble(0, 0), 0.0);
    EXPECT_EQ(result.cmdTuples(), QString());
    EXPECT_EQ(result.errorMessage(), QString());
}

TEST_F(ResultTest, QueryGivesTuplesExactly)
{
    const Result result = connection_.run("select 1 as one, 'два' as two");
    EXPECT_EQ(result.status(), Status::TuplesOk);
    EXPECT_TRUE(result.isTuples());
    EXPECT_FALSE(result.isCommand());
    EXPECT_EQ(result.ntuples(), 1);
    EXPECT_EQ(result.nfields(), 2);
    EXPECT_EQ(result.fname(0), QString("one"));
    EXPECT_EQ(result.fname(1), QString("two"));
    EXPECT_EQ(result.getvalue(0, 0), QString("1"));
    EXPECT_EQ(result.getvalue(0, 1), QString("два"));
    EXPECT_EQ(result.getlength(0, 1), 6);
    EXPECT_EQ(result.errorMessage(), QString());
}

TEST_F(ResultTest, QueryWithoutRowsStillGivesTuples)
{
    const Result result = connection_.run("select 1 where false");
    EXPECT_TRUE(result.isTuples());
    EXPECT_EQ(result.ntuples(), 0);
    EXPECT_EQ(result.toInt(0, 0), 0);
}

TEST_F(ResultTest, CommandGivesCommandExactlyAndItsCount)
{
    ASSERT_TRUE(connection_.run("create table t (a integer)").isCommand());
    const Result result = connection_.run("insert into t values (1), (2), (3)");
    EXPECT_TRUE(result.isCommand());
    EXPECT_FALSE(result.isTuples());
    EXPECT_EQ(result.cmdTuples(), QString("3"));
    EXPECT_TRUE(connection_.run("insert into t values (4) returning a").isTuples());
}

TEST_F(ResultTest, FailedStatementIsNeitherAndKeepsTheMessage)
{
    const Result result = connection_.run("select * from no_such_table");
    EXPECT_EQ(result.status(), Status::FatalError);
    EXPECT_FALSE(result.isTuples());
    EXPECT_FALSE(result.isCommand());
    EXPECT_TRUE(result.errorMessage().contains("no_such_table"));
    EXPECT_TRUE(connection_.errorMessage().contains("no_such_table"));
}

TEST_F(ResultTest, EmptyTextIsNeither)
{
    const Result result = connection_.run("");
    EXPECT_EQ(result.status(), Status::EmptyQuery);
    EXPECT_FALSE(result.isTuples());
    EXPECT_FALSE(result.isCommand());
}

TEST_F(ResultTest, AbsentValueReadsAsNothing)
{
    const Result result = connection_.run("select null::integer, '', 7");
    EXPECT_TRUE(result.isNull(0, 0));
    EXPECT_FALSE(result.isNull(0, 1));
    EXPECT_EQ(result.getvalue(0, 0), QString());
    EXPECT_EQ(result.toInt(0, 0), 0);
    EXPECT_EQ(result.toDouble(0, 0), 0.0);
    EXPECT_EQ(result.toInt(0, 2), 7);
}

TEST_F(ResultTest, HasARowOnlyWithTuplesAndOneOfThem)
{
    EXPECT_TRUE(connection_.run("select 1").hasRow());
    EXPECT_FALSE(connection_.run("select 1 where false").hasRow());
    EXPECT_FALSE(connection_.run("select * from no_such_table").hasRow());
    EXPECT_FALSE(connection_.run("create table r (a integer)").hasRow());
    EXPECT_FALSE(Result().hasRow());
}

TEST_F(ResultTest, ColumnBeyondTheStatementsEndsATest)
{
    const Result one = connection_.run("select 1");
    const Result none = connection_.run("select 1 where false");
    EXPECT_DEATH(one.getvalue(0, 1), "column 1 is read of a result with 1");
    EXPECT_DEATH(one.isNull(0, -1), "column -1 is read of a result with 1");
    EXPECT_DEATH(none.toInt(0, 1), "column 1 is read of a result with 1");
    EXPECT_EQ(connection_.run("select * from no_such_table").getvalue(0, 0), QString());
}

TEST_F(ResultTest, CellsOutOfRangeReadAsNothing)
{
    qunsetenv("TERVA_STRICT_COLUMNS");
    const Result result = connection_.run("select 1");
    for (const auto& cell :
         {std::make_pair(1, 0), std::make_pair(0, 1), std::make_pair(-1, 0), std::make_pair(0, -1)}) {
        EXPECT_TRUE(result.isNull(cell.first, cell.second));
        EXPECT_EQ(result.getvalue(cell.first, cell.second), QString());
        EXPECT_EQ(result.bytes(cell.first, cell.second), QByteArray());
        EXPECT_EQ(result.getlength(cell.first, cell.second), 0);
    }
    EXPECT_EQ(result.fname(1), QString());
    EXPECT_EQ(result.fname(-1), QString());
    qputenv("TERVA_STRICT_COLUMNS", "1");
}

TEST_F(ResultTest, NumbersTellWhetherTheyConverted)
{
    const Result result = connection_.run("select '12a', ' 12 ', '2.5', '99999999999', 'inf'");
    bool ok = true;
    EXPECT_EQ(result.toInt(0, 0, &ok), 0);
    EXPECT_FALSE(ok);
    EXPECT_EQ(result.toInt(0, 1, &ok), 12);
    EXPECT_TRUE(ok);
    EXPECT_EQ(result.toDouble(0, 2, &ok), 2.5);
    EXPECT_TRUE(ok);
    EXPECT_EQ(result.toInt(0, 3, &ok), 0);
    EXPECT_FALSE(ok);
    result.toDouble(0, 4, &ok);
    EXPECT_TRUE(ok);
}

TEST_F(ResultTest, UnescapesABinaryValueOfATextAnswer)
{
    const Result result = connection_.run("select '\\x00ff5c27'::bytea, null::bytea");
    EXPECT_EQ(result.unescapedBytes(0, 0), QByteArray::fromHex("00ff5c27"));
    EXPECT_EQ(result.unescapedBytes(0, 1), QByteArray());
}

TEST_F(ResultTest, MovesAndLeavesANullResultBehind)
{
    Result first = connection_.run("select 5");
    Result second = std::move(first);
    EXPECT_EQ(second.toInt(0, 0), 5);
    EXPECT_TRUE(first.isNullResult());
    EXPECT_EQ(first.ntuples(), 0);
}

} // namespace
