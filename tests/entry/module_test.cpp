// The module as the host sees it: one file, one entry point.
#include "entry/about_form.h"
#include "entry/help.h"
#include "entry/palette_sets.h"
#include "support/console_capture.h"
#include "support/pictures.h"

#include <drawing/application.h>
#include <drawing/module_host.h>
#include <nrx/palettes.h>

#include <QCoreApplication>
#include <QDesktopServices>
#include <QLabel>
#include <QLibrary>
#include <gtest/gtest.h>

namespace {

QString moduleFile()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/terva.nrx");
}

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
    for (const char* name : {"ncrxEntryPoint", "_terva_module_id", "HelloUIDialogcmd", "showDialog"})
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

TEST(Palettes, AreShownHiddenAndShownAgainByTheirCommand)
{
    ConsoleCapture console;
    EXPECT_EQ(paletteSet(PaletteSlot::Sample), nullptr);
    togglePaletteSet(PaletteSlot::Sample);
    hostUiPaletteSet* set = paletteSet(PaletteSlot::Sample);
    ASSERT_NE(set, nullptr);
    EXPECT_TRUE(IsWindowVisible(set));
    EXPECT_EQ(hostUiPaletteSet_GetPaletteCount(set), 2);
    togglePaletteSet(PaletteSlot::Sample);
    EXPECT_FALSE(IsWindowVisible(set));

    togglePaletteSet(PaletteSlot::Sample);
    set->window()->close();
    EXPECT_FALSE(IsWindowVisible(set));
    EXPECT_EQ(paletteSet(PaletteSlot::Sample), set) << "closing with its own button only hides it";

    destroyPaletteSets();
    EXPECT_EQ(paletteSet(PaletteSlot::Sample), nullptr);
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
    refreshAllPaletteSets();
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
