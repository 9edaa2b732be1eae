// Palette sets, with a main window and without.
#include "window_fixture.h"

#include <nrx/palettes.h>

#include <drawing/application.h>

#include <QAction>
#include <QCoreApplication>
#include <QDockWidget>
#include <QLabel>
#include <QMainWindow>
#include <QTabWidget>
#include <QVBoxLayout>
#include <gtest/gtest.h>

#include <map>

namespace {

// Tells when it is deleted.
struct CountedPalette : hostQtPalette {
    explicit CountedPalette(int& count) : count_(count) { ++count_; }
    ~CountedPalette() override { --count_; }
    int& count_;
};

std::unique_ptr<hostUiQtPaletteSet> makeSet(QWidget* parent, int& count,
                                            const QString& title = QStringLiteral("Состав проекта"))
{
    auto set = std::make_unique<hostUiQtPaletteSet>();
    EXPECT_TRUE(hostUiPaletteSet_Create(set.get(), title, 0x50410000, QRect(30, 50, 270, 300), parent, 46));
    hostUiPaletteSet_EnableDocking(set.get(), kDockAnySide);
    hostUiPaletteSet_RestoreControlBar(set.get(), 59420);
    for (const char* title : {"Состав", "Циклы"}) {
        auto* palette = new CountedPalette(count);
        EXPECT_TRUE(hostQtPalette_Create(palette, 0x50000000, QString::fromUtf8(title)));
        hostUiPaletteSet_AddPalette(set.get(), palette);
        auto* column = new QVBoxLayout(hostQtPalette_paletteWidget(palette));
        column->addWidget(new QLabel(QString::fromUtf8(title)));
    }
    return set;
}

} // namespace

TEST(Palettes, ASetIsAWindowOfItsOwnWithoutAMainWindow)
{
    int count = 0;
    const auto set = makeSet(nullptr, count);
    EXPECT_FALSE(IsWindowVisible(set.get())) << "made hidden";
    hostUiPaletteSet_Show(set.get(), true);
    EXPECT_TRUE(IsWindowVisible(set.get()));
    EXPECT_TRUE(set->window()->isWindow());
    EXPECT_EQ(set->window()->windowTitle(), QStringLiteral("Состав проекта"));
    EXPECT_GE(set->window()->height(), 300);
}

TEST(Palettes, ASetIsAsWideAsAFormThatComesLater)
{
    int count = 0;
    const auto set = makeSet(nullptr, count);
    hostUiPaletteSet_Show(set.get(), true);
    auto* form = new QLabel;
    form->setMinimumWidth(380);
    set->window()->findChild<QLabel*>()->parentWidget()->layout()->addWidget(form);
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    EXPECT_GE(set->window()->width(), 380);
    form->setMinimumWidth(5000);
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    EXPECT_LT(set->window()->width(), 600) << "what is wider than a page may be is scrolled";
}

TEST(Palettes, PagesAreTabsInTheirOrder)
{
    int count = 0;
    const auto set = makeSet(nullptr, count);
    const auto* tabs = set->window()->findChild<QTabWidget*>();
    ASSERT_EQ(tabs->count(), 2);
    EXPECT_EQ(tabs->tabText(1), QStringLiteral("Циклы"));
    EXPECT_EQ(hostUiPaletteSet_GetPaletteCount(set.get()), 2);
    const QWidget* second = hostQtPalette_paletteWidget(hostUiPaletteSet_GetPalette(set.get(), 1));
    EXPECT_TRUE(tabs->widget(1)->isAncestorOf(second));
    EXPECT_EQ(hostUiPaletteSet_GetPalette(set.get(), 2), nullptr);
    EXPECT_TRUE(hostUiPaletteSet_SetActivePalette(set.get(), 1));
    EXPECT_EQ(tabs->currentIndex(), 1);
    EXPECT_FALSE(hostUiPaletteSet_SetActivePalette(set.get(), 7));
}

TEST(Palettes, ClosingOnlyHides)
{
    int count = 0;
    const auto set = makeSet(nullptr, count);
    hostUiPaletteSet_Show(set.get(), true);
    set->window()->close();
    EXPECT_FALSE(IsWindowVisible(set.get()));
    EXPECT_EQ(count, 2);
    hostUiPaletteSet_Show(set.get(), true);
    EXPECT_TRUE(IsWindowVisible(set.get()));
}

TEST(Palettes, DestroyingTakesThePagesAlong)
{
    int count = 0;
    const auto set = makeSet(nullptr, count);
    hostUiPaletteSet_DestroyWindow(set.get());
    EXPECT_EQ(count, 0);
    EXPECT_EQ(set->window(), nullptr);
    EXPECT_FALSE(IsWindowVisible(set.get()));
    hostUiPaletteSet_Show(set.get(), true);
    hostUiPaletteSet_DestroyWindow(set.get());
    EXPECT_EQ(hostUiPaletteSet_GetPaletteCount(set.get()), 0);
}

TEST(Palettes, ASetIsADockOfTheMainWindow)
{
    QMainWindow window;
    setMainWindow(&window);
    window.show();
    int count = 0;
    {
        const auto set = makeSet(ndsw_ncadMainWnd(), count);
        hostUiPaletteSet_Show(set.get(), true);
        auto* dock = qobject_cast<QDockWidget*>(set->window());
        ASSERT_NE(dock, nullptr);
        EXPECT_EQ(dock->parentWidget(), &window);
        EXPECT_FALSE(dock->isFloating());
        EXPECT_EQ(hostUiPaletteSet_GetClientRect(set.get()).size(), dock->findChild<QTabWidget*>()->size());
    }
    EXPECT_EQ(count, 0);
    EXPECT_TRUE(window.findChildren<QDockWidget*>().isEmpty());
    setMainWindow(nullptr);
}

TEST(Palettes, ASetOutlivesItsMainWindow)
{
    int count = 0;
    auto window = std::make_unique<QMainWindow>();
    const auto set = makeSet(window.get(), count);
    window.reset();
    EXPECT_EQ(set->window(), nullptr);
    EXPECT_FALSE(IsWindowVisible(set.get()));
    EXPECT_EQ(hostQtPalette_paletteWidget(hostUiPaletteSet_GetPalette(set.get(), 0)), nullptr);
    hostUiPaletteSet_Show(set.get(), true);
}

TEST(Palettes, AModalFormStandsOverTheMiddleOfItsHost)
{
    QMainWindow window;
    window.resize(400, 300);
    QWinWidget bridge(&window);
    bridge.showCentered();
    EXPECT_EQ(bridge.pos(), window.rect().center());
    EXPECT_FALSE(bridge.isVisible());
    QWinWidget free(nullptr);
    free.showCentered();
    EXPECT_FALSE(free.isVisible());
}

namespace {

const QStringList kTitles = {QStringLiteral("Состав проекта"), QStringLiteral("Параметры проекта"),
                             QStringLiteral("Элементы ГМН")};

// The real window with a module's three palettes, each with the command that toggles it.
class PalettesOfTheWindow : public MainWindowTest {
protected:
    void SetUp() override
    {
        MainWindowTest::SetUp();
        sets().clear();
        for (int i = 0; i < kTitles.size(); ++i)
            addHostCommand(commandOf(i), [i](const QStringList&) {
                auto& set = sets()[i];
                if (set)
                    return hostUiPaletteSet_Show(set.get(), !IsWindowVisible(set.get()));
                set = makeSet(ndsw_ncadMainWnd(), count(), kTitles[i]);
                hostUiPaletteSet_Show(set.get(), true);
            });
    }
    void TearDown() override
    {
        sets().clear();
        MainWindowTest::TearDown();
    }

    static QString commandOf(int i) { return QStringLiteral("PALETTE%1").arg(i); }
    static std::map<int, std::unique_ptr<hostUiQtPaletteSet>>& sets()
    {
        static std::map<int, std::unique_ptr<hostUiQtPaletteSet>> made;
        return made;
    }
    static int& count()
    {
        static int made = 0;
        return made;
    }

    void toggle(int i)
    {
        window->runLine(commandOf(i));
        QTest::qWait(300);
    }
    QDockWidget* dock(int i) { return window->findChild<QDockWidget*>(kTitles[i]); }
    bool isSeen(int i) { return dock(i)->isVisible() && !dock(i)->visibleRegion().isEmpty(); }
    void openAnew()
    {
        window->close();
        closeAllDocuments();
        sets().clear();
        window.reset();
        window = std::make_unique<MainWindow>(folder.filePath(QStringLiteral("p.ini")));
        window->show();
        openStartDocument();
        window->restorePalettes();
        QTest::qWait(300);
    }
};

} // namespace

TEST_F(PalettesOfTheWindow, OpenedOneAfterTheOtherAreTabsAndTheNewestIsInFront)
{
    for (int i = 0; i < 3; ++i)
        toggle(i);
    EXPECT_EQ(window->tabifiedDockWidgets(dock(0)).size(), 3) << "both others, and the properties that are closed";
    EXPECT_TRUE(isSeen(2));
    EXPECT_FALSE(isSeen(0));
    EXPECT_FALSE(isSeen(1));
    EXPECT_GT(dock(2)->height(), window->height() / 2) << "it has the whole side";
    EXPECT_GT(view()->width(), 200);
    if (qEnvironmentVariableIsSet("TERVA_PICTURES"))
        window->grab().save(qEnvironmentVariable("TERVA_PICTURES") + QStringLiteral("/palettes-as-tabs.png"));

    toggle(0);
    EXPECT_TRUE(isSeen(0)) << "the command of one that is behind brings it to the front";
    toggle(0);
    EXPECT_TRUE(dock(0)->isHidden());
    toggle(0);
    EXPECT_TRUE(isSeen(0));
}

TEST_F(PalettesOfTheWindow, StandAtTheNextStartAsTheyStood)
{
    for (int i = 0; i < 3; ++i)
        toggle(i);
    dock(1)->raise();
    QTest::qWait(300);
    openAnew();
    EXPECT_EQ(window->tabifiedDockWidgets(dock(1)).size(), 3);
    EXPECT_TRUE(isSeen(1)) << "the one that was in front";
    EXPECT_FALSE(isSeen(2));

    window->addDockWidget(Qt::LeftDockWidgetArea, dock(2));
    QTest::qWait(300);
    openAnew();
    EXPECT_EQ(window->dockWidgetArea(dock(2)), Qt::LeftDockWidgetArea) << "where the user put it";
    EXPECT_TRUE(isSeen(2));
    EXPECT_TRUE(isSeen(1));
    EXPECT_FALSE(window->tabifiedDockWidgets(dock(1)).contains(dock(2)));
}

TEST_F(PalettesOfTheWindow, AResetOfTheLayoutMakesThemTabsAgain)
{
    for (int i = 0; i < 3; ++i)
        toggle(i);
    window->addDockWidget(Qt::LeftDockWidgetArea, dock(0));
    dock(1)->setFloating(true);
    QTest::qWait(300);
    for (QAction* action : window->findChildren<QAction*>())
        if (action->text() == QStringLiteral("Рас&положение по умолчанию"))
            action->trigger();
    QTest::qWait(300);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(window->dockWidgetArea(dock(i)), Qt::RightDockWidgetArea) << i;
        EXPECT_FALSE(dock(i)->isFloating()) << i;
    }
    EXPECT_EQ(window->tabifiedDockWidgets(dock(0)).size(), 3);
    EXPECT_EQ(int(isSeen(0)) + int(isSeen(1)) + int(isSeen(2)), 1);
}

TEST_F(PalettesOfTheWindow, ThePropertiesComeToTheFrontWhenAskedFor)
{
    toggle(0);
    auto* properties = window->findChild<QDockWidget*>(QStringLiteral("propertiesDock"));
    properties->toggleViewAction()->trigger();
    QTest::qWait(300);
    EXPECT_FALSE(properties->visibleRegion().isEmpty());
    EXPECT_FALSE(isSeen(0));
}
