// Guards print their own wording and let nothing else happen.
#include "entry/command_table.h"
#include "entry/guards.h"
#include "session/session_fixture.h"

namespace {

struct Wording {
    Guard guard;
    const char* message;
};

const Wording kConnectionWordings[] = {
    {Guard::C1, "\n Не установлено соединение с базой данных"},
    {Guard::C2, "Не установлено соединение с базой данных"},
    {Guard::C3, "Не установлено соединение с базой данных\n"},
    {Guard::C4, "\nОшибка: Нет соединения с базой данных.\n"},
    {Guard::C5, "\nОшибка: База данных не подключена.\n"},
};

const Wording kPositionWordings[] = {
    {Guard::P1, "\nНе установлена текущая позиция"},
    {Guard::P2, "Не выбрана текущая позиция с базой данных"},
    {Guard::P3, "\n Не установлена рабочая позиция в проекте"},
    {Guard::P4, "Не выбрана текущая позиция"},
};

bool g_ran = false;
void note() { g_ran = true; }

class Guards : public ::testing::Test {
protected:
    void SetUp() override
    {
        ProjectSession& s = session();
        s.connection.finish();
        s.sqlHost = s.sqlPort = s.sqlDatabase = s.sqlUser = s.sqlPass = QString();
        s.currentPositionId = -1;
        g_ran = false;
    }
    void TearDown() override { SetUp(); }

    ConsoleCapture console;
};

} // namespace

TEST_F(Guards, ConnectionGuardsHaveTheirOwnWordings)
{
    for (const Wording& row : kConnectionWordings) {
        EXPECT_FALSE(passes(row.guard));
        EXPECT_EQ(console.take(), QString::fromUtf8(row.message));
    }
}

TEST_F(Guards, PositionGuardsAskTheSessionAlone)
{
    for (const Wording& row : kPositionWordings) {
        EXPECT_FALSE(passes(row.guard));
        EXPECT_EQ(console.take(), QString::fromUtf8(row.message));
    }
    session().currentPositionId = 7;
    for (const Wording& row : kPositionWordings)
        EXPECT_TRUE(passes(row.guard));
    EXPECT_EQ(console.text(), QString());
}

TEST_F(Guards, ALiveDatabaseSatisfiesTheConnectionGuards)
{
    TestDatabase database;
    pointAt(session(), database.name());
    for (const Wording& row : kConnectionWordings)
        EXPECT_TRUE(passes(row.guard));
    EXPECT_EQ(console.text(), QString());
}

TEST_F(Guards, TheConnectionIsCheckedBeforeThePosition)
{
    runCommand({"ANY", Guard::C2, Guard::P2, 1, note});
    EXPECT_EQ(console.text(), QString::fromUtf8(guardMessage(Guard::C2)));
    EXPECT_FALSE(g_ran);
}

TEST_F(Guards, WithAConnectionThePositionIsAskedFor)
{
    TestDatabase database;
    pointAt(session(), database.name());
    runCommand({"ANY", Guard::C2, Guard::P2, 1, note});
    EXPECT_EQ(console.text(), QString::fromUtf8(guardMessage(Guard::P2)));
    EXPECT_FALSE(g_ran);
    session().currentPositionId = 1;
    runCommand({"ANY", Guard::C2, Guard::P2, 1, note});
    EXPECT_TRUE(g_ran);
}
