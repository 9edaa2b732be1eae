// What becomes of a drawing that is closed: by the user, and by a command.
#include "window_fixture.h"

#include <drawing/documents.h>
#include <drawing/module_host.h>
#include <script/modal_driver.h>

#include <QDir>
#include <QFile>
#include <QTabWidget>

namespace {

class Closing : public MainWindowTest {
protected:
    Document& current() { return *static_cast<Document*>(ncDocManagerPtr()->curDocument()); }
    QString path(const char* name) { return folder.filePath(QString::fromUtf8(name)); }
    void saveAs(const char* name)
    {
        window->runLine(QStringLiteral("CIRCLE 0,0 5"));
        ASSERT_TRUE(isOk(ncDocManagerPtr()->saveDocumentAs(&current(), path(name))));
    }
    void pressClose() { emit window->findChild<QTabWidget*>(QStringLiteral("documentTabs"))->tabCloseRequested(0); }
    QStringList keptFiles()
    {
        const QDir closed(folder.filePath(QStringLiteral("p.ini.unsaved/closed")));
        QStringList paths;
        for (const QString& name : closed.entryList({QStringLiteral("*.dxf")}, QDir::Files))
            paths << closed.filePath(name);
        return paths;
    }
    void writeProperty()
    {
        NcDbDatabaseSummaryInfo info;
        info.addCustomSummaryInfo(QStringLiteral("position_id"), QStringLiteral("1"));
        ncdbPutSummaryInfo(current().database(), info);
    }
};

} // namespace

TEST_F(Closing, ACommandThatClosesAChangedDrawingKeepsItsChanges)
{
    saveAs("план.dxf");
    window->runLine(QStringLiteral("CIRCLE 0,0 7"));
    window->runLine(QStringLiteral("CLOSE"));
    ASSERT_EQ(keptFiles().size(), 1);
    EXPECT_TRUE(history().contains(QStringLiteral("Чертёж план.dxf закрыт с несохранёнными изменениями. Они отложены: ")
                                   + keptFiles().first()))
        << history();
    ASSERT_TRUE(window->openDrawing(keptFiles().first()));
    EXPECT_EQ(count("NcDbCircle"), 2);
}

TEST_F(Closing, WhatWasSavedOrHoldsPropertiesAloneIsClosedInSilence)
{
    saveAs("план.dxf");
    writeProperty();
    EXPECT_TRUE(current().isModified());
    EXPECT_FALSE(view()->holdsUnsavedWork()) << "a command's note in the drawing is no work of the user's";
    window->runLine(QStringLiteral("CLOSE"));
    EXPECT_EQ(keptFiles(), QStringList());
    EXPECT_FALSE(history().contains(QStringLiteral("отложены")));
}

TEST_F(Closing, WhatTheUserGivesUpIsNotKept)
{
    saveAs("план.dxf");
    window->runLine(QStringLiteral("CIRCLE 0,0 7"));
    ModalDriver driver;
    driver.expect("Терва").press("Не сохранять");
    pressClose();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(ncDocManagerPtr()->documentCount(), 0);
    EXPECT_EQ(keptFiles(), QStringList());
}

TEST_F(Closing, WhatWasRecoveredIsKeptUntilItIsSaved)
{
    saveAs("план.dxf");
    closeAllDocuments();
    const QString copies = folder.filePath(QStringLiteral("p.ini.unsaved"));
    ASSERT_TRUE(QFile::copy(path("план.dxf"), copies + "/999999999-1.dxf"));
    QFile note(copies + "/999999999-1.dxf.json");
    ASSERT_TRUE(note.open(QIODevice::WriteOnly));
    note.write(("{\"original\":\"" + path("план.dxf") + "\",\"untitled\":false}").toUtf8());
    note.close();
    ModalDriver driver;
    driver.expect("Восстановление").press("Восстановить");
    window->offerRecovery();
    ASSERT_TRUE(driver.done()) << driver.report();
    EXPECT_TRUE(view()->holdsUnsavedWork());
    window->runLine(QStringLiteral("SAVE"));
    EXPECT_FALSE(view()->holdsUnsavedWork());
    window->runLine(QStringLiteral("CIRCLE 0,0 7"));
    EXPECT_TRUE(view()->holdsUnsavedWork());
}

TEST_F(Closing, ADrawingThatIsNotStoredIsAskedAbout)
{
    ModuleHost modules;
    QString error;
    ASSERT_TRUE(modules.load(QStringLiteral(STORING_MODULE), &error)) << error;
    saveAs("not-stored.dwg");
    ModalDriver driver;
    driver.expect("Терва")
        .text("Чертёж not-stored.dwg сохранён, но не записан в базу данных. Записывает его команда «Чертёж → "
              "база».\n\nЗакрыть его так?")
        .press("Отмена");
    pressClose();
    EXPECT_EQ(ncDocManagerPtr()->documentCount(), 1);

    window->runLine(QStringLiteral("CIRCLE 0,0 7"));
    driver.expect("Терва").textContains("Сохранить изменения").press("Не сохранять");
    driver.expect("Терва").textContains("не записан в базу данных").press("Отмена");
    EXPECT_FALSE(window->close()) << "the program stays open";
    driver.expect("Терва").press("Сохранить");
    driver.expect("Терва").textContains("не записан в базу данных").press("Закрыть");
    pressClose();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(ncDocManagerPtr()->documentCount(), 0);

    openStartDocument();
    saveAs("stored.dwg");
    pressClose();
    EXPECT_EQ(ncDocManagerPtr()->documentCount(), 0) << "nothing to ask";
}
