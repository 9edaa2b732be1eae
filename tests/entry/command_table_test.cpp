// The commands, their order, guards and flags.
#include "drawing/forms/insertion_commands.h"
#include "entry/command_table.h"
#include "session/forms/palette_refresh.h"
#include "session/project_dialogs.h"
#include "session/project_session.h"
#include "support/console_capture.h"

#include <drawing/application.h>

#include <QStringList>
#include <algorithm>
#include <gtest/gtest.h>
#include <iostream>
#include <iterator>

namespace {

// How many commands may still be without an area. Lower it whenever one is built.

const Command& command(const char* name)
{
    const auto& table = commandTable();
    const auto found =
        std::find_if(table.begin(), table.end(), [name](const Command& row) { return qstrcmp(row.name, name) == 0; });
    if (found == table.end())
        ADD_FAILURE() << "no command " << name;
    return found == table.end() ? table.front() : *found;
}

// Name and guards of every command, in the order of registration. Commands
// with checks of their own, and the benchmarks, stand without a guard.
const char* const kExpected[] = {
    "HELLOQTMODALDLG",
    "HELLOQTPALETTE",
    "TERVA_PROJECT_SETTINGS",
    "TERVA_LOADPROJECT",
    "TERVA_NEW_PROJECT",
    "TERVA_SAVEPROJECT",
    "TERVA_SAVEPROJECT_AS",
    "TERVA_PROJECT_EXPLORER",
    "TERVA_SYNC_DWG_DB",
    "TERVA_SYNC_DB_DWG C2 P2",
    "TERVA_ELEMENT_LIST",
    "TERVA_INSERT_DM P3",
    "TERVA_INSERT_DMT P3",
    "TERVA_INSERT_DMGL P3",
    "TERVA_INSERT_DMPV P3",
    "TERVA_INSERT_DM_ENUMERATOR",
    "TERVA_INSERT_TS P3",
    "TERVA_INSERT_TT P3",
    "TERVA_INSERT_TS_ENUMERATOR",
    "TERVA_INSERT_TSS P3",
    "TERVA_INSERT_TSS_ENUMERATOR",
    "TERVA_ADMIN",
    "TERVA_INSERT_GGS P3",
    "TERVA_INSERT_GGS_ENUMERATOR",
    "TERVA_INSERT_RPGL",
    "TERVA_INSERT_RPGR",
    "TERVA_INSERT_RPST",
    "TERVA_INSERT_RPVR",
    "TERVA_INSERT_RP_ENUMERATOR",
    "TERVA_INSERT_IGS P3",
    "TERVA_INSERT_IGS_ENUMERATOR",
    "TERVA_IMPORT_DM_MEASURE C1",
    "TERVA_IMPORT_TS_MEASURE C1",
    "TERVA_IMPORT_RP_MEASURE C1",
    "TERVA_IMPORT_TSS_MEASURE C1",
    "TERVA_IMPORT_GGS_MEASURE C1",
    "TERVA_IMPORT_ELEMENTS C1",
    "TERVA_DEFORMATION_MAP C2 P2",
    "TERVA_TEMPERATURE_MAP C2 P2",
    "TERVA_TEMP_DIFF_MAP C2 P2",
    "TERVA_TEMP_DIFF_PROFILE C2 P2",
    "TERVA_TEMPERATURE_PROFILE C2 P2",
    "TERVA_MAP_LEGEND",
    "TERVA_EGE C1",
    "TERVA_OBJECT_INSPECTOR",
    "TERVA_ALIGN_BY_UCS C2",
    "TERVA_ALIGN_LABELS_BY_UCS C2",
    "TERVA_ALIGN_BY_VP C2",
    "TERVA_REPORTS",
    "TERVA_MASK_ATTRIBUTES",
    "TERVA_ABOUT",
    "TERVA_POSITION_PROPS P1",
    "TERVA_SETTLEMENTS C2 P2",
    "TERVA_POSITION_ADD_DM_PROFILE P1",
    "TERVA_POSITION_ADD_TS_PROFILE P1",
    "TERVA_POSITION_ADD_CONTOUR P1",
    "TERVA_POSITION_DRAW P1",
    "TERVA_POSITION_SUMMARY C2",
    "TERVA_GET_UCS C3",
    "TERVA_SET_UCS C3",
    "TERVA_RENUM",
    "TERVA_DWG_TO_PG C2 P2",
    "TERVA_DWG_BACKGROUND",
    "TERVA_DEF_LINES_PROFILE C2 P2",
    "TERVA_ELEMENT_INSPECTIONS",
    "TERVA_ELEMENT_MEASURES",
    "TERVA_TSG_CATALOG C1",
    "TERVA_INSERT_TSGV P3",
    "TERVA_INSERT_TSGN P3",
    "TERVA_INSERT_TSGVN P3",
    "TERVA_INSERT_TSG_ENUMERATOR",
    "TERVA_IMPORT_TSG_MEASURE C1",
    "TERVA_DEFORMATION_PREDICTION C2 P2",
    "TERVA_HELP",
    "TERVA_DB_BACKUP C5",
    "TERVA_IMPORT_INSPECTIONS C4",
    "TERVA_IMPORT_GEOLOGY C1",
    "TERVA_EXPORT_INSPECTIONS C4",
    "TERVA_AUDIT_LOG C1",
};

QString guardCode(Guard guard)
{
    static const char* const codes[] = {"", "C1", "C2", "C3", "C4", "C5", "P1", "P2", "P3", "P4"};
    return QString::fromLatin1(codes[size_t(guard)]);
}

QString nameAndGuards(const Command& row)
{
    QStringList words{QString::fromLatin1(row.name), guardCode(row.connection), guardCode(row.position)};
    words.removeAll(QString());
    return words.join(QLatin1Char(' '));
}

} // namespace

TEST(CommandTable, HoldsTheCommandsInTheirOrderWithTheirGuards)
{
    ASSERT_EQ(std::size(kExpected), kCommandCount);
    for (size_t i = 0; i < kCommandCount; ++i)
        EXPECT_EQ(nameAndGuards(commandTable()[i]), QString::fromLatin1(kExpected[i])) << "row " << i + 1;
}

TEST(CommandTable, InsertionsAreBoundToTheirKinds)
{
    struct Binding {
        const char* name;
        NcCommandHandler action;
    };
    const Binding bindings[] = {
        {"TERVA_INSERT_DM", insertCommand<0>},     {"TERVA_INSERT_DMT", insertCommand<11>},
        {"TERVA_INSERT_DMGL", insertCommand<12>},  {"TERVA_INSERT_DMPV", insertCommand<13>},
        {"TERVA_INSERT_TS", insertCommand<2>},     {"TERVA_INSERT_TT", insertCommand<14>},
        {"TERVA_INSERT_TSS", insertCommand<20>},   {"TERVA_INSERT_GGS", insertCommand<3>},
        {"TERVA_INSERT_IGS", insertCommand<17>},   {"TERVA_INSERT_RPGL", insertCommand<8>},
        {"TERVA_INSERT_RPGR", insertCommand<9>},   {"TERVA_INSERT_RPST", insertCommand<10>},
        {"TERVA_INSERT_RPVR", insertCommand<21>},  {"TERVA_INSERT_TSGN", insertCommand<18>},
        {"TERVA_INSERT_TSGVN", insertCommand<19>}, {"TERVA_INSERT_TSGV", insertCommand<5>},
    };
    for (const Binding& row : bindings)
        EXPECT_EQ(command(row.name).action, row.action) << row.name;
}

TEST(CommandTable, OnlyTheObjectInspectorWorksOnWhatIsSelected)
{
    for (const Command& row : commandTable())
        EXPECT_EQ(row.flags, qstrcmp(row.name, "TERVA_OBJECT_INSPECTOR") == 0 ? 6 : 1) << row.name;
}

TEST(CommandTable, AMissingCommandSaysSoInOnePlainLine)
{
    int missing = 0;
    for (const Command& row : commandTable()) {
        if (row.action)
            continue;
        ++missing;
        ConsoleCapture console;
        runCommand({row.name, Guard::None, Guard::None, row.flags, row.action});
        EXPECT_EQ(console.text(), QStringLiteral("\nКоманда ") + row.name + QStringLiteral(" пока недоступна\n"));
    }
    std::cout << missing << " of " << kCommandCount << " commands are not available yet\n";
}

TEST(CommandTable, AMissingCommandKeepsItsGuard)
{
    ConsoleCapture console;
    session().currentPositionId = -1;
    runCommand({"ANY", Guard::None, Guard::P1, 1, nullptr});
    EXPECT_EQ(console.take(), QString::fromUtf8(guardMessage(Guard::P1)));
    session().currentPositionId = 1;
    runCommand({"ANY", Guard::None, Guard::P1, 1, nullptr});
    EXPECT_EQ(console.take(), QStringLiteral("\nКоманда ANY пока недоступна\n"));
    session().currentPositionId = -1;
}

TEST(CommandTable, LoadingRefreshesThePalettesEvenWhenNothingWasChosen)
{
    ConsoleCapture console;
    int refreshed = 0;
    setPaletteRefresh({[&refreshed] { ++refreshed; }, {}});
    setProjectDialogs(nullptr); // every question counts as cancelled
    command("TERVA_LOADPROJECT").action();
    setPaletteRefresh({});
    EXPECT_EQ(refreshed, 1);
    EXPECT_EQ(console.text(), QString());
}

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
