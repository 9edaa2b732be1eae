// Menus and tool bars made of the tables of commands.
#include "window_fixture.h"

#include <workbench/command_menus.h>
#include <workbench/command_table.h>
#include <workbench/desk_icons.h>

#include <QAction>
#include <QFile>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSet>
#include <QTabWidget>
#include <QToolBar>

namespace {

QVector<MenuRow> moduleRows()
{
    QFile file(QStringLiteral(TERVA_SOURCE_DIR "/share/config/menu.csv"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return parseMenuTable(QString::fromUtf8(file.readAll()));
}

QVector<MenuRow> allRows() { return hostMenuTable() + moduleRows(); }

QStringList commandsOf(const QVector<MenuRow>& rows)
{
    QStringList names;
    for (const MenuRow& row : rows)
        names << row.command;
    names.removeAll(QString());
    return names;
}

QString mnemonicOf(const QString& caption)
{
    const int at = caption.indexOf(QLatin1Char('&'));
    return at < 0 ? QString() : caption.mid(at + 1, 1).toLower();
}

class CommandMenusTest : public ::testing::Test {
protected:
    CommandMenusTest() : menus(window, [this](const QString& command) { ran << command; }) { }

    QMainWindow window;
    QStringList ran;
    CommandMenus menus;
};

// Every menu of the bar and in them: no letter is a key of two.
void expectOneKeyEach(const QList<QAction*>& actions, const QString& where)
{
    QHash<QString, QString> keys;
    for (const QAction* action : actions) {
        const QString key = mnemonicOf(action->text());
        if (!key.isEmpty() && action->isVisible()) {
            EXPECT_FALSE(keys.contains(key)) << where.toStdString() << ": " << action->text().toStdString() << " and "
                                             << keys.value(key).toStdString();
        }
        keys.insert(key, action->text());
        if (action->menu())
            expectOneKeyEach(action->menu()->actions(), action->text());
    }
}

} // namespace

TEST_F(CommandMenusTest, TheyStandAsTheWorkGoes)
{
    menus.build(allRows(), commandsOf(allRows()), {});
    QStringList shown;
    for (const QAction* action : window.menuBar()->actions())
        if (action->isVisible())
            shown << QString(action->text()).remove(QLatin1Char('&'));
    EXPECT_EQ(shown,
              (QStringList{"Проект", "Правка", "Элементы", "Измерения", "Чертёж", "Карты", "Отчёты", "Справочники",
                           "Сервис", "Справка"}))
        << shown.join(' ').toStdString();
}

TEST_F(CommandMenusTest, NoKeyBelongsToTwo)
{
    menus.build(allRows(), commandsOf(allRows()), {});
    expectOneKeyEach(window.menuBar()->actions(), QStringLiteral("the bar"));
}

TEST_F(CommandMenusTest, SamplesStandInNoMenuAndWhatNoRowNamesInOneOfTheirOwn)
{
    menus.build(allRows(), commandsOf(allRows()) << QStringLiteral("TERVA_NEWER"),
                {QStringLiteral("HELLOQTPALETTE"), QStringLiteral("TERVA_NEWER")});
    EXPECT_EQ(window.findChild<QAction*>(QStringLiteral("HELLOQTPALETTE")), nullptr);
    ASSERT_NE(window.findChild<QAction*>(QStringLiteral("TERVA_NEWER")), nullptr);
    EXPECT_TRUE(menus.menu(QStringLiteral("Прочее"))->menuAction()->isVisible());
}

TEST_F(CommandMenusTest, EveryRowHasADrawingAndSaysWhatItDoes)
{
    for (const MenuRow& row : allRows()) {
        if (row.command.isEmpty() || row.menu == QLatin1String("-"))
            continue;
        EXPECT_TRUE(QFile::exists(QStringLiteral(TERVA_SOURCE_DIR "/share/icons/") + row.icon + ".svg"))
            << row.command.toStdString() << ": " << row.icon.toStdString();
        EXPECT_FALSE(row.tip.isEmpty()) << row.command.toStdString();
        if (!row.bar.isEmpty()) {
            EXPECT_NE(menus.bar(row.bar), nullptr) << row.bar.toStdString();
        }
    }
}

TEST_F(CommandMenusTest, AChosenOneRuns)
{
    menus.build(allRows(), commandsOf(allRows()), {});
    window.findChild<QAction*>(QStringLiteral("MOVE"))->trigger();
    window.findChild<QAction*>(QStringLiteral("TERVA_RENUM"))->trigger();
    EXPECT_EQ(ran, (QStringList{"MOVE", "TERVA_RENUM"}));
}

TEST_F(CommandMenusTest, WhatWouldDoNothingIsGreyAndSaysWhy)
{
    menus.build(allRows(), commandsOf(allRows()), {});
    DeskState state;
    state.refusals.insert(QStringLiteral("TERVA_INSERT_DM"),
                          QStringLiteral("Не установлена рабочая позиция в проекте"));
    menus.refresh(state);
    auto* insert = window.findChild<QAction*>(QStringLiteral("TERVA_INSERT_DM"));
    EXPECT_FALSE(insert->isEnabled());
    EXPECT_TRUE(insert->toolTip().contains(QStringLiteral("Не установлена рабочая позиция в проекте")));
    EXPECT_TRUE(window.findChild<QAction*>(QStringLiteral("TERVA_INSERT_RPGL"))->isEnabled());
    menus.refresh({});
    EXPECT_TRUE(insert->isEnabled());
    EXPECT_FALSE(insert->toolTip().contains(QStringLiteral("Не установлена")));
}

TEST_F(CommandMenusTest, TheyAreBuiltAnewWithoutDoubles)
{
    for (int i = 0; i < 2; ++i)
        menus.build(allRows(), commandsOf(allRows()), {});
    QSet<QString> met;
    for (const QAction* action : window.findChildren<QAction*>()) {
        if (action->objectName().startsWith(QLatin1String("TERVA_"))) {
            EXPECT_FALSE(met.contains(action->objectName())) << action->objectName().toStdString();
        }
        met.insert(action->objectName());
    }
    EXPECT_TRUE(met.contains(QStringLiteral("TERVA_ADMIN")));
    menus.build({}, {}, {});
    EXPECT_EQ(window.findChild<QAction*>(QStringLiteral("TERVA_ADMIN")), nullptr);
}

TEST_F(MainWindowTest, TheMenusOfTheWindowHaveAKeyEach)
{
    expectOneKeyEach(window->menuBar()->actions(), QStringLiteral("the bar"));
}

TEST_F(MainWindowTest, TheStartPageGivesWayToWhatIsDone)
{
    window->showStartPage();
    auto* tabs = window->findChild<QTabWidget*>(QStringLiteral("documentTabs"));
    EXPECT_EQ(tabs->tabText(tabs->currentIndex()), QStringLiteral("Начало"));
    EXPECT_TRUE(window->windowTitle().startsWith(QStringLiteral("Начало")));
    window->runLine(QStringLiteral("SCREENSHOT \"%1\"").arg(folder.filePath(QStringLiteral("start.png"))));
    EXPECT_EQ(tabs->currentIndex(), 0) << "a picture shows what stands in front";
    EXPECT_FALSE(QImage(folder.filePath(QStringLiteral("start.png"))).isNull());
    window->runLine(QStringLiteral("CIRCLE 0,0 5"));
    EXPECT_EQ(tabs->currentIndex(), 1) << "the drawing that the command worked on is in sight";
    emit tabs->tabCloseRequested(0);
    EXPECT_EQ(tabs->count(), 1);
    window->showStartPage();
    EXPECT_EQ(tabs->count(), 2);
}
