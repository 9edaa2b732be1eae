// What a host with menus of its own is told.
#include "entry/command_table.h"
#include "entry/desk.h"
#include "session/project_session.h"

#include <QHash>
#include <gtest/gtest.h>

namespace {

QHash<QString, QString> told()
{
    QHash<QString, QString> all;
    tellDesk([&all](const QString& key, const QString& value) { all.insert(key, value); });
    return all;
}

class Desk : public ::testing::Test {
protected:
    void TearDown() override
    {
        session().currentPositionId = -1;
        session().currentPositionName.clear();
        session().currentObjectName.clear();
        session().currentCycleId = -1;
        session().cycles.clear();
    }
};

} // namespace

TEST_F(Desk, WithoutAProjectCommandsSayTheWordsOfTheirGuards)
{
    const QHash<QString, QString> all = told();
    EXPECT_EQ(all.value("refused:TERVA_INSERT_DM"), QStringLiteral("Не установлена рабочая позиция в проекте"));
    EXPECT_EQ(all.value("refused:TERVA_POSITION_SUMMARY"), QStringLiteral("Не установлено соединение с базой данных"));
    EXPECT_EQ(all.value("refused:TERVA_DB_BACKUP"), QStringLiteral("Ошибка: База данных не подключена."));
    for (const char* free : {"TERVA_INSERT_RPGL", "TERVA_INSERT_DM_ENUMERATOR", "TERVA_LOADPROJECT", "TERVA_ABOUT"})
        EXPECT_FALSE(all.contains(QStringLiteral("refused:") + free)) << free;
    for (const Command& command : commandTable()) {
        if (!command.action) {
            EXPECT_EQ(all.value(QStringLiteral("refused:") + command.name), QStringLiteral("Команда пока недоступна"));
        }
    }
    EXPECT_EQ(all.value("connection"), QStringLiteral("нет"));
    EXPECT_EQ(all.value("position"), QString());
}

TEST_F(Desk, PositionAndCyclesAreNamed)
{
    session().currentPositionId = 7;
    session().currentPositionName = QStringLiteral("Площадка");
    session().currentObjectName = QStringLiteral("Цех 1");
    session().cycles.insert(3, {"12", "01.10.25", "05.10.25", ""});
    session().currentCycleId = 3;
    const QHash<QString, QString> all = told();
    EXPECT_EQ(all.value("position"), QStringLiteral("Цех 1 / Площадка"));
    EXPECT_EQ(all.value("currentCycle"), QStringLiteral("12 (01.10.25)"));
    EXPECT_EQ(all.value("baseCycle"), QString());
    EXPECT_FALSE(all.contains("refused:TERVA_INSERT_DM"));
}
