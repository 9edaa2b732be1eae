// The module as the host sees it: one file, one entry point.
#include "entry/about_form.h"
#include "entry/help.h"
#include "entry/module.h"
#include "entry/palette_sets.h"
#include "session/session_fixture.h"
#include "support/pictures.h"

#include <drawing/application.h>
#include <drawing/module_host.h>
#include <nrx/palettes.h>
#include <ui/palette_watch.h>

#include <QCoreApplication>
#include <QDesktopServices>
#include <QLabel>
#include <QLibrary>
#include <QLineEdit>
#include <QTabWidget>
#include <gtest/gtest.h>

namespace {

QString moduleFile() { return QCoreApplication::applicationDirPath() + QStringLiteral("/terva.nrx"); }

class UrlCatcher : public QObject {
    Q_OBJECT
public slots:
    void open(const QUrl& url) { opened = url; }

public:
    QUrl opened;
};

} // namespace

TEST(Module, LoadsThroughItsEntryPointAndSaysNothingWithoutAProject)
{
    ConsoleCapture console;
    ModuleHost modules;
    QString error;
    ASSERT_TRUE(modules.load(moduleFile(), &error)) << error.toStdString();
    EXPECT_EQ(console.text(), QString());
    EXPECT_TRUE(hasCommand(QStringLiteral("TERVA_TEMPERATURE_MAP")));
    EXPECT_TRUE(hasCommand(QStringLiteral("_TERVA_TEMPERATURE_MAP")));

    EXPECT_TRUE(modules.unload(moduleFile()));
    EXPECT_FALSE(hasCommand(QStringLiteral("TERVA_TEMPERATURE_MAP")));
    EXPECT_EQ(console.text(), QString()) << "unloading a module that opened nothing says nothing";
}

TEST(Module, ExportsWhatTheHostAsksFor)
{
    QLibrary library(moduleFile());
    for (const char* name : {"ncrxEntryPoint", "_terva_module_id", "HelloUIDialogcmd", "showDialog", "terva_desk_state",
                             "terva_drawing_not_stored", "terva_open_project"})
        EXPECT_NE(library.resolve(name), nullptr) << name;
}

TEST(Module, IgnoresOtherMessages)
{
    QLibrary library(moduleFile());
    const auto entry = reinterpret_cast<int (*)(int, void*)>(library.resolve("ncrxEntryPoint"));
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry(77, nullptr), 0);
    EXPECT_FALSE(hasCommand(QStringLiteral("TERVA_ABOUT")));
}

TEST(Module, TellsOfAConnectionThatTheSessionAlreadyKnows)
{
    TestDatabase database;
    pointAt(session(), database.name());
    ConsoleCapture console;
    initialiseModule(nullptr);
    EXPECT_EQ(console.text(), QStringLiteral("\nСоединение с базой данных выполнено"));
    EXPECT_TRUE(hasCommand(QStringLiteral("TERVA_AUDIT_LOG")));

    unloadModule();
    EXPECT_FALSE(hasCommand(QStringLiteral("TERVA_AUDIT_LOG")));
    EXPECT_TRUE(session().connection.isOk()) << "the session keeps its connection to its own end";
    session().connection.finish();
    session().connected = false;
    session().sqlHost = session().sqlPort = session().sqlDatabase = session().sqlUser = session().sqlPass = QString();
}

TEST(Module, UnloadingDestroysThePaletteSetsInTheirOrderAndOnlyOnce)
{
    ConsoleCapture console;
    togglePaletteSet(PaletteSlot::ProjectSettings);
    togglePaletteSet(PaletteSlot::Sample);
    QStringList gone;
    for (PaletteSlot slot : {PaletteSlot::ProjectSettings, PaletteSlot::Sample}) {
        QWidget* window = paletteSet(slot)->window();
        QObject::connect(window, &QObject::destroyed, [&gone, title = window->windowTitle()] { gone << title; });
    }
    paletteSet(PaletteSlot::ProjectSettings)->window()->close(); // hidden, and destroyed all the same
    unloadModule();
    unloadModule();
    EXPECT_EQ(gone, (QStringList{"Test Qt Palette Set", "Параметры проекта"}));
    EXPECT_EQ(paletteSet(PaletteSlot::Sample), nullptr);
    EXPECT_EQ(paletteSet(PaletteSlot::ProjectSettings), nullptr);
}

TEST(Palettes, AreShownHiddenAndShownAgainByTheirCommand)
{
    ConsoleCapture console;
    EXPECT_EQ(paletteSet(PaletteSlot::Sample), nullptr);
    togglePaletteSet(PaletteSlot::Sample);
    hostUiPaletteSet* set = paletteSet(PaletteSlot::Sample);
    ASSERT_NE(set, nullptr);
    EXPECT_TRUE(IsWindowVisible(set));
    EXPECT_EQ(set->window()->windowTitle(), QStringLiteral("Test Qt Palette Set"));
    const auto* tabs = set->window()->findChild<QTabWidget*>();
    ASSERT_NE(tabs, nullptr);
    ASSERT_EQ(tabs->count(), 2);
    EXPECT_EQ(tabs->tabText(0), QStringLiteral("Test Qt Palette1"));
    EXPECT_EQ(tabs->tabText(1), QStringLiteral("Another Qt Palette1"));
    togglePaletteSet(PaletteSlot::Sample);
    EXPECT_FALSE(IsWindowVisible(set));

    togglePaletteSet(PaletteSlot::Sample);
    set->window()->close();
    EXPECT_FALSE(IsWindowVisible(set));
    EXPECT_EQ(paletteSet(PaletteSlot::Sample), set) << "closing with its own button only hides it";

    destroyPaletteSets();
    EXPECT_EQ(paletteSet(PaletteSlot::Sample), nullptr);
}

// Every number is the host's: a docked place is found again by it.
TEST(Palettes, AreMadeInThisOrderWithTheseNumbers)
{
    QStringList calls;
    setPaletteWatch([&calls](const QString& call) { calls << call; });
    const struct {
        PaletteSlot slot;
        QString create;
        QStringList pages;
    } cases[] = {
        {PaletteSlot::Sample, "Test Qt Palette Set 0x50400000", {"Test Qt Palette1", "Another Qt Palette1"}},
        {PaletteSlot::ProjectSettings, "Параметры проекта 0x50400000", {"Проект", "SQL", "Пути", "Расстановка"}},
        {PaletteSlot::ProjectExplorer,
         "Состав проекта 0x50410000",
         {"Состав", "Циклы измерений", "Оборудование", "Исполнители"}},
    };
    for (const auto& c : cases) {
        calls.clear();
        togglePaletteSet(c.slot);
        QStringList wanted{"create " + c.create + " 30 50 270 300 no parent 46", "dock 61440", "restore 59420"};
        for (const QString& page : c.pages)
            wanted << "page " + page + " 0x50000000"
                   << "add";
        wanted << "activate 0"
               << "client rectangle"
               << "show on";
        EXPECT_EQ(calls, wanted);
        EXPECT_EQ(paletteSet(c.slot)->window()->size(), hostUiPaletteSet_GetClientRect(paletteSet(c.slot)).size());
    }
    setPaletteWatch({});
    destroyPaletteSets();
}

TEST(Palettes, RefreshingPassesOverSetsThatWereNeverOpened)
{
    refreshAllPaletteSets();
    EXPECT_EQ(paletteSet(PaletteSlot::ProjectSettings), nullptr);
}

TEST(Palettes, TheProjectSettingsHoldTheSqlPage)
{
    ConsoleCapture console;
    togglePaletteSet(PaletteSlot::ProjectSettings);
    hostUiPaletteSet* set = paletteSet(PaletteSlot::ProjectSettings);
    ASSERT_NE(set, nullptr);
    EXPECT_NE(set->window()->findChild<QWidget*>(QStringLiteral("btn_testconnect")), nullptr);
    const auto* database = set->window()->findChild<QLineEdit*>(QStringLiteral("Database"));
    ASSERT_NE(database, nullptr);
    session().sqlDatabase = QStringLiteral("first");
    refreshAllPaletteSets();
    EXPECT_EQ(database->text(), QStringLiteral("first"));
    session().sqlDatabase = QStringLiteral("second");
    togglePaletteSet(PaletteSlot::ProjectSettings);
    EXPECT_EQ(database->text(), QStringLiteral("second")) << "its command refreshes before it hides";
    EXPECT_FALSE(IsWindowVisible(set));
    session().sqlDatabase.clear();
    destroyPaletteSets();
}

TEST(Help, OpensTheManualInTheBrowser)
{
    UrlCatcher catcher;
    QDesktopServices::setUrlHandler(QStringLiteral("https"), &catcher, "open");
    openManual();
    QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
    EXPECT_EQ(catcher.opened.path(), QStringLiteral("/books/tervagmn-rukovodstvo-polzovatelia"));
    EXPECT_EQ(catcher.opened, manualAddress());
}

TEST(About, PictureOfNameAndVersion)
{
    AboutForm form;
    const auto* text = form.findChild<QLabel*>(QStringLiteral("AboutText"));
    ASSERT_NE(text, nullptr);
    EXPECT_TRUE(text->text().contains(QStringLiteral("Терва")));
    EXPECT_TRUE(takePicture(form, QStringLiteral("AboutForm")));
}

#include "module_test.moc"
