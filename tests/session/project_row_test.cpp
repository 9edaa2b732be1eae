// The project's only row.
#include "session_fixture.h"

#include "base/text.h"

namespace {

class ProjectRow : public SessionTest {
protected:
    void SetUp() override
    {
        SessionTest::SetUp();
        session_.projectName = "Имя";
        session_.projectOwner = "Владелец";
        session_.projectLocation = "Место";
        session_.projectCode = "Шифр %1";
    }
};

const char* const allRows = "select project_id::text, name, owner, location, code from projects order by project_id";

TEST_F(ProjectRow, IsInsertedUnderTheTimeInAnEmptyDatabase)
{
    const qint64 before = secondsNow();
    session_.saveProjectRow();
    EXPECT_GE(session_.projectId, before);
    EXPECT_LE(session_.projectId, secondsNow());
    EXPECT_EQ(database_.rows(allRows),
              (QVector<QStringList>{{QString::number(session_.projectId), "Имя", "Владелец", "Место", "Шифр %1"}}));
}

TEST_F(ProjectRow, IsUpdatedWhereThereIsOne)
{
    makeHierarchy();
    session_.projectId = 55;
    session_.saveProjectRow();
    EXPECT_EQ(session_.projectId, 7);
    EXPECT_EQ(database_.rows(allRows), (QVector<QStringList>{{"7", "Имя", "Владелец", "Место", "Шифр %1"}}));
}

TEST_F(ProjectRow, AnApostropheMakesTheStatementFail)
{
    makeHierarchy();
    session_.projectName = "О'Коннор";
    session_.saveProjectRow();
    EXPECT_EQ(database_.value("select name from projects"), QString("Город"));
    EXPECT_TRUE(console_.text().startsWith("\nДанные проекта не записаны в базу данных: ")) << console_.text();
}

TEST_F(ProjectRow, AnApostropheRunsNoSecondStatement)
{
    makeHierarchy();
    session_.projectName = "x','','','') where false; delete from positions; --";
    session_.saveProjectRow();
    EXPECT_EQ(database_.value("select count(*) from positions"), QString("2"));
}

TEST_F(ProjectRow, WithoutAConnectionNothingChanges)
{
    session_.sqlPass = "wrong";
    session_.saveProjectRow();
    EXPECT_EQ(session_.projectId, -1);
    EXPECT_EQ(database_.rows(allRows).size(), 0);
}

} // namespace
