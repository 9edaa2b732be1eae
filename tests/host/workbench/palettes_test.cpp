// Palette sets, with a main window and without.
#include <nrx/palettes.h>

#include <drawing/application.h>

#include <QCoreApplication>
#include <QDockWidget>
#include <QLabel>
#include <QMainWindow>
#include <QTabWidget>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace {

// Tells when it is deleted.
struct CountedPalette : hostQtPalette {
    explicit CountedPalette(int& count) : count_(count) { ++count_; }
    ~CountedPalette() override { --count_; }
    int& count_;
};

std::unique_ptr<hostUiQtPaletteSet> makeSet(QWidget* parent, int& count)
{
    auto set = std::make_unique<hostUiQtPaletteSet>();
    EXPECT_TRUE(hostUiPaletteSet_Create(set.get(), QStringLiteral("Состав проекта"), 0x50410000,
                                        QRect(30, 50, 270, 300), parent, 46));
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
