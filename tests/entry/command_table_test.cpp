// The commands, their order, guards and flags.
#include "entry/command_table.h"
#include "entry/not_available.h"
#include "support/console_capture.h"

#include <drawing/application.h>

#include <QSet>
#include <QStringList>
#include <algorithm>
#include <gtest/gtest.h>
#include <iostream>

namespace {

// How many commands may still be without an area. Lower it whenever one is built.
constexpr size_t kMostNotAvailable = 28;

const Command& command(const char* name)
{
    const auto& table = commandTable();
    const auto found = std::find_if(table.begin(), table.end(),
                                    [name](const Command& row) { return qstrcmp(row.name, name) == 0; });
    EXPECT_NE(found, table.end()) << name;
    return *found;
}

struct GuardRule {
    const char* name;
    Guard connection;
    Guard position;
};

class CommandGuards : public ::testing::TestWithParam<GuardRule> {};

} // namespace

TEST(CommandTable, HoldsEveryCommandOnce)
{
    QSet<QString> names;
    for (const Command& row : commandTable())
        names.insert(QString::fromLatin1(row.name));
    EXPECT_EQ(names.size(), int(kCommandCount));
}

TEST(CommandTable, OnlyTheObjectInspectorWorksOnWhatIsSelected)
{
    for (const Command& row : commandTable())
        EXPECT_EQ(row.flags, qstrcmp(row.name, "TERVA_OBJECT_INSPECTOR") == 0 ? 6 : 1) << row.name;
}

TEST(CommandTable, CommandsWithoutAnActionAreExactlyTheListedOnes)
{
    QStringList without;
    for (const Command& row : commandTable()) {
        if (!row.action)
            without << QString::fromLatin1(row.name);
    }
    QStringList listed;
    for (const char* name : commandsNotAvailable())
        listed << QString::fromLatin1(name);
    EXPECT_EQ(without, listed);
}

TEST(CommandTable, TheListOfMissingCommandsOnlyShrinks)
{
    std::cout << commandsNotAvailable().size() << " of " << kCommandCount << " commands are not available yet\n";
    EXPECT_LE(commandsNotAvailable().size(), kMostNotAvailable);
}

TEST(CommandTable, AMissingCommandSaysSoInOnePlainLine)
{
    ConsoleCapture console;
    sayNotAvailable("TERVA_REPORTS");
    EXPECT_EQ(console.text(), QStringLiteral("\nКоманда TERVA_REPORTS пока недоступна\n"));
}

TEST_P(CommandGuards, StandBeforeTheAction)
{
    const GuardRule& rule = GetParam();
    EXPECT_EQ(command(rule.name).connection, rule.connection);
    EXPECT_EQ(command(rule.name).position, rule.position);
}

INSTANTIATE_TEST_SUITE_P(Table, CommandGuards, ::testing::Values(
    GuardRule{"TERVA_SYNC_DB_DWG", Guard::C2, Guard::P2},
    GuardRule{"TERVA_INSERT_DM", Guard::None, Guard::P3},
    GuardRule{"TERVA_INSERT_IGS", Guard::None, Guard::P3},
    GuardRule{"TERVA_INSERT_TSGVN", Guard::None, Guard::P3},
    GuardRule{"TERVA_INSERT_RPGL", Guard::None, Guard::None},
    GuardRule{"TERVA_INSERT_RPGR", Guard::None, Guard::None},
    GuardRule{"TERVA_INSERT_RPST", Guard::None, Guard::None},
    GuardRule{"TERVA_INSERT_RPVR", Guard::None, Guard::None},
    GuardRule{"TERVA_INSERT_DM_ENUMERATOR", Guard::None, Guard::None},
    GuardRule{"TERVA_IMPORT_TS_MEASURE", Guard::C1, Guard::None},
    GuardRule{"TERVA_TEMPERATURE_MAP", Guard::C2, Guard::P2},
    GuardRule{"TERVA_EGE", Guard::C1, Guard::None},
    GuardRule{"TERVA_ALIGN_BY_UCS", Guard::C2, Guard::None},
    GuardRule{"TERVA_POSITION_PROPS", Guard::None, Guard::P1},
    GuardRule{"TERVA_SETTLEMENTS", Guard::C2, Guard::P2},
    GuardRule{"TERVA_POSITION_SUMMARY", Guard::C2, Guard::None},
    GuardRule{"TERVA_GET_UCS", Guard::C3, Guard::None},
    GuardRule{"TERVA_SET_UCS", Guard::C3, Guard::None},
    GuardRule{"TERVA_DB_BACKUP", Guard::C5, Guard::None},
    GuardRule{"TERVA_IMPORT_INSPECTIONS", Guard::C4, Guard::None},
    GuardRule{"TERVA_EXPORT_INSPECTIONS", Guard::C4, Guard::None},
    GuardRule{"TERVA_AUDIT_LOG", Guard::C1, Guard::None}));

TEST(Registration, HandsTheTableToTheHostInItsOrder)
{
    registerCommands();
    std::vector<CommandInfo> ours;
    for (const CommandInfo& info : registeredCommands()) {
        if (info.group == QLatin1String("TERVA"))
            ours.push_back(info);
    }
    removeCommands();

    ASSERT_EQ(ours.size(), kCommandCount);
    for (size_t i = 0; i < kCommandCount; ++i) {
        const QString name = QString::fromLatin1(commandTable()[i].name);
        EXPECT_EQ(ours[i].localName, name);
        EXPECT_EQ(ours[i].globalName, QLatin1Char('_') + name);
        EXPECT_EQ(ours[i].flags, commandTable()[i].flags);
    }
    EXPECT_FALSE(hasCommand(QStringLiteral("TERVA_ABOUT"))) << "removing the group removes its commands";
}
