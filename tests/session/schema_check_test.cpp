// Tables and columns that a database lacks.
#include "session/schema_check.h"

#include "session_fixture.h"

#include <QSet>

namespace {

class SchemaCheck : public SessionTest { };

} // namespace

TEST_F(SchemaCheck, ExpectsWhatTheScriptLays)
{
    QStringList laid, expected;
    for (const QStringList& row : database_.rows(
             "select c.relname, a.attname from pg_class c join pg_attribute a on a.attrelid = c.oid "
             "where c.relkind in ('r', 'v') and a.attnum > 0 and not a.attisdropped and c.relnamespace = "
             "'public'::regnamespace and not exists (select 1 from pg_depend d where d.objid = c.oid and d.deptype = "
             "'e')"))
        laid << row.join('.');
    for (const SchemaTable& table : expectedSchema())
        for (const QString& column : table.columns)
            expected << table.name + '.' + column;
    laid.sort();
    expected.sort();
    EXPECT_EQ(expected, laid);
}

TEST_F(SchemaCheck, NamesWhatIsMissingInOneLine)
{
    ASSERT_TRUE(session_.connect());
    EXPECT_EQ(missingInSchema(session_), QStringList());
    tellMissingInSchema(session_);
    EXPECT_EQ(console_.take(), QString());
    database_.exec("alter table devices drop column serial cascade; drop table performers cascade");
    EXPECT_EQ(missingInSchema(session_), (QStringList{"столбец devices.serial", "таблица performers"}));
    tellMissingInSchema(session_);
    EXPECT_EQ(console_.take(),
              QString("\nСхема базы данных отличается от ожидаемой, часть команд работать не будет. "
                      "Не найдено: столбец devices.serial, таблица performers\n"));
}

// A right that is lacking is told where it is needed.
TEST_F(SchemaCheck, ATableWithoutRightsIsThere)
{
    PlainRole role(database_);
    session_.sqlUser = role.name();
    session_.sqlPass = "plain";
    ASSERT_TRUE(session_.openConnection(session_.buildConnInfo()));
    EXPECT_EQ(missingInSchema(session_), QStringList());
}

TEST_F(SchemaCheck, AServerThatDoesNotSayIsNoMissingTable) { EXPECT_EQ(missingInSchema(session_), QStringList()); }
