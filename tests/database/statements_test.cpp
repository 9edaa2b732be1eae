// Every statement of the programs runs on the schema: statements.txt holds
// them with values of sample.sql filled in. A line is: for whom, what comes
// back, the statement. For whom: "one" as it stands, or a list of families for
// each of which {p} is the prefix, {key} the key of the measures and {type} a
// type of the family. What comes back: "tuples N" or "command N", N being the
// number of rows returned or touched ("command -" where nothing is counted,
// "tuples *" where the number depends on the server), or "refused -".
#include "base/placeholders.h"
#include "support/test_database.h"

#include <QFile>
#include <QMap>
#include <QTextStream>
#include <gtest/gtest.h>

namespace {

struct Family {
    QString prefix;
    QString key;
    QString type;
};

struct Line {
    int number = 0;
    QString scope;
    QString expected;
    QString statement;
};

QString readFile(const QString& name)
{
    QFile file(QStringLiteral(TERVA_SOURCE_DIR "/tests/database/") + name);
    if (!file.open(QIODevice::ReadOnly))
        ADD_FAILURE() << name.toStdString() << " cannot be read";
    return QString::fromUtf8(file.readAll());
}

QVector<Line> readLines()
{
    QVector<Line> lines;
    int number = 0;
    for (const QString& text : readFile("statements.txt").split('\n')) {
        ++number;
        if (text.isEmpty() || text.startsWith('#'))
            continue;
        const QString scope = text.section(' ', 0, 0);
        const QString expected = text.section(' ', 1, 2);
        lines.append({number, scope, expected, text.mid(scope.size() + expected.size() + 2)});
    }
    return lines;
}

QVector<Family> familiesOf(const QString& scope)
{
    static const Family dm{"dm", "meas_dm_id", "dm_t"}, ts{"ts", "meas_ts_id", "tt"}, rp{"rp", "meas_rp_id", "rp_vr"},
        ggs{"ggs", "meas_id", "ggs"}, tsg{"tsg", "meas_id", "tsg_vs"}, tss{"tss", "meas_id", "tss_p"},
        igs{"igs", QString(), "skv"};
    static const QMap<QString, QVector<Family>> scopes{{"one", {Family()}},
                                                       {"seven", {dm, ts, rp, ggs, tsg, tss, igs}},
                                                       {"six", {dm, ts, rp, ggs, tsg, tss}},
                                                       {"numbers", {dm, rp, ggs}},
                                                       {"layers", {igs, ts}},
                                                       {"tsg", {tsg}}};
    return scopes.value(scope);
}

QString forFamily(QString statement, const Family& family)
{
    return statement.replace("{p}", family.prefix).replace("{key}", family.key).replace("{type}", family.type);
}

QString answerOf(const sql::Result& result)
{
    if (result.isTuples())
        return fill("tuples %1", result.ntuples());
    if (result.isCommand())
        return fill("command %1", result.cmdTuples().isEmpty() ? QString("-") : result.cmdTuples());
    return "failure " + result.errorMessage();
}

bool isExpected(const sql::Result& result, const QString& expected)
{
    if (expected == "refused -")
        return !result.isTuples() && !result.isCommand();
    if (expected == "tuples *")
        return result.isTuples();
    return answerOf(result) == expected;
}

TEST(Statements, AllRunOnTheSchemaWithTheExpectedAnswer)
{
    TestDatabase database;
    ASSERT_TRUE(database.exec(readFile("sample.sql")));
    const sql::Connection& connection = database.connection();
    int count = 0;
    for (const Line& line : readLines()) {
        const QVector<Family> families = familiesOf(line.scope);
        EXPECT_FALSE(families.isEmpty()) << "line " << line.number;
        for (const Family& family : families) {
            const QString statement = forFamily(line.statement, family);
            connection.run("begin");
            const sql::Result result = connection.run(Statement::whole(statement));
            EXPECT_TRUE(isExpected(result, line.expected))
                << "line " << line.number << ": " << statement << "\nexpected " << line.expected << ", is "
                << answerOf(result);
            connection.run("rollback");
            ++count;
        }
    }
    EXPECT_GT(count, 600);
}

struct Bound {
    const char* statement;
    QVector<sql::Parameter> parameters;
    QString expected;
};

TEST(Statements, WithBoundValuesRunOnTheSchema)
{
    TestDatabase database;
    ASSERT_TRUE(database.exec(readFile("sample.sql")));
    ASSERT_TRUE(database.exec("insert into positions (subobject_id, position) values (1, 'Вторая')"));
    const sql::Parameter one = sql::text(1), photo = sql::text(QString("photo"));
    const sql::Parameter bytes = sql::binary(QByteArray::fromHex("0300ff"));
    QVector<Bound> table{
        {"select content from positions_files  where position_id=$1::integer", {one}, "tuples 1"},
        {"select content,position from positions_files left join positions using(position_id)  where "
         "position_id=$1::integer",
         {one},
         "tuples 1"},
        {"update positions_files set content = $2::bytea  where position_id=$1::integer", {one, bytes}, "command 1"},
        {"insert into positions_files (position_id, content) values ($1::integer,$2::bytea) returning file_id",
         {sql::text(2), bytes},
         "tuples 1"},
    };
    for (const Family& family : familiesOf("six")) {
        const QVector<Bound> perFamily{
            {"select content from {p}_files where element_id=$1::integer and file_type=$2::filetype",
             {one, photo},
             "tuples 1"},
            {"insert into {p}_files (element_id , file_type, content) values ($1::integer, $2::filetype, $3::bytea) "
             "returning file_id",
             {one, sql::text(QString("geocol")), bytes},
             "tuples 1"},
            {"update {p}_files set (element_id , file_type, content) = ($1::integer, $2::filetype, $3::bytea) where "
             "file_id=1",
             {one, sql::text(QString("abris")), bytes},
             "command 1"},
            {"update {p}_inspection set photos = $1::bytea where inspect_id=$2::integer", {bytes, one}, "command 1"},
            {"select photos from {p}_inspection where inspect_id=$1::integer", {one}, "tuples 1"},
        };
        for (const Bound& bound : perFamily) {
            const QString statement = forFamily(bound.statement, family);
            EXPECT_EQ(answerOf(database.connection().run(Statement::whole(statement), bound.parameters)),
                      bound.expected)
                << statement.toStdString();
        }
    }
    for (const Bound& bound : table)
        EXPECT_EQ(answerOf(database.connection().run(Statement::whole(bound.statement), bound.parameters)),
                  bound.expected)
            << bound.statement;
    EXPECT_EQ(database.connection()
                  .run("select content from positions_files where position_id=2", {}, sql::Format::Binary)
                  .bytes(0, 0),
              QByteArray::fromHex("0300ff"));
    EXPECT_EQ(database.connection().run("select photos from tss_inspection", {}, sql::Format::Binary).bytes(0, 0),
              QByteArray::fromHex("0300ff"));
}

} // namespace
