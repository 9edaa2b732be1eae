// Files of the window: recent ones, copies of what was not saved, locks.
#include "window_fixture.h"

#include <workbench/drawing_keeper.h>
#include <workbench/recent_files.h>
#include <workbench/start_page.h>

#include <drawing/documents.h>
#include <script/modal_driver.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QListWidget>
#include <QLockFile>
#include <QPushButton>

namespace {

class Files : public MainWindowTest {
protected:
    QString path(const char* name) { return folder.filePath(QString::fromUtf8(name)); }
    Document& current() { return *static_cast<Document*>(ncDocManagerPtr()->curDocument()); }
    QString saved(const char* name, const QString& line = QStringLiteral("CIRCLE 0,0 5"))
    {
        openStartDocument();
        window->runLine(line);
        EXPECT_TRUE(isOk(ncDocManagerPtr()->saveDocumentAs(&current(), path(name))));
        closeAllDocuments();
        return path(name);
    }
    void write(const QString& name, const QByteArray& bytes)
    {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    // What a program that crashed leaves, under the number of a process that is none.
    void leaveCopy(const QString& copies, const QString& original, bool untitled)
    {
        QDir().mkpath(copies);
        ASSERT_TRUE(QFile::copy(saved("left.dxf"), copies + QStringLiteral("/999999999-1.dxf")));
        write(copies + QStringLiteral("/999999999-1.dxf.json"),
              QStringLiteral("{\"original\":\"%1\",\"untitled\":%2,\"saved\":\"2026-11-20T10:30:00\"}")
                  .arg(original, untitled ? "true" : "false")
                  .toUtf8());
    }
    QString copies() { return folder.filePath(QStringLiteral("p.ini.unsaved")); }
};

} // namespace

TEST_F(Files, RecentOnesStandOnTheStartPage)
{
    const QString first = saved("первый.dxf"), second = saved("второй.dxf");
    ASSERT_TRUE(window->openDrawing(first));
    ASSERT_TRUE(window->openDrawing(second));
    QFile::remove(first);
    window->showStartPage();
    auto* list = window->findChild<QListWidget*>(QStringLiteral("recentDrawings"));
    ASSERT_EQ(list->count(), 2);
    EXPECT_TRUE(list->item(0)->text().startsWith(QStringLiteral("второй.dxf")));
    EXPECT_TRUE(list->item(0)->flags() & Qt::ItemIsEnabled);
    EXPECT_FALSE(list->item(1)->flags() & Qt::ItemIsEnabled) << "what is gone cannot be opened";
    EXPECT_EQ(window->findChild<QListWidget*>(QStringLiteral("recentProjects"))->item(0)->text(),
              QStringLiteral("Пока пусто"));
}

TEST_F(Files, ANameWithoutASuffixGetsThatOfItsKind)
{
    window->runLine(QStringLiteral("CIRCLE 0,0 5"));
    ModalDriver driver;
    driver.expect("Сохранить как").files({path("план")});
    window->findChild<QAction*>(QStringLiteral("saveAs"))->trigger();
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
    EXPECT_TRUE(QFile::exists(path("план.dxf")));
    EXPECT_TRUE(history().contains(QStringLiteral("Сохранён чертёж ") + path("план.dxf")));
    EXPECT_EQ(current().fileName(), path("план.dxf"));
}

TEST_F(Files, ACopyIsKeptOfWhatIsChangedAndGoesWithSaving)
{
    window->runLine(QStringLiteral("CIRCLE 0,0 5"));
    window->keepCopies();
    const QStringList kept = QDir(copies()).entryList({"*.dxf"}, QDir::Files);
    ASSERT_EQ(kept.size(), 1);
    const QDateTime written = QFileInfo(copies() + '/' + kept[0]).lastModified();
    window->keepCopies();
    EXPECT_EQ(QFileInfo(copies() + '/' + kept[0]).lastModified(), written) << "nothing changed since";
    EXPECT_TRUE(current().isModified()) << "a copy is not a saving";
    ASSERT_TRUE(isOk(ncDocManagerPtr()->saveDocumentAs(&current(), path("a.dxf"))));
    EXPECT_TRUE(QDir(copies()).entryList({"*.dxf"}, QDir::Files).isEmpty());
}

TEST_F(Files, AProgramThatEndsAsItShouldLeavesNoCopies)
{
    window->runLine(QStringLiteral("CIRCLE 0,0 5"));
    window->keepCopies();
    closeAllDocuments();
    window.reset();
    EXPECT_TRUE(QDir(copies()).entryList({"*.dxf", "*.json"}, QDir::Files).isEmpty());
}

TEST_F(Files, WhatACrashLeftIsOpenedUnderItsNameAndCountsAsChanged)
{
    leaveCopy(copies(), path("план.dxf"), false);
    ModalDriver driver;
    driver.expect("Восстановление").textContains("план.dxf, 20.11.2026 10:30").press("Восстановить");
    window->offerRecovery();
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
    EXPECT_EQ(current().fileName(), path("план.dxf"));
    EXPECT_TRUE(current().isModified());
    EXPECT_EQ(count("NcDbCircle"), 1);
    EXPECT_FALSE(QFile::exists(copies() + "/999999999-1.dxf"));
    EXPECT_EQ(QDir(copies()).entryList({"*.dxf"}, QDir::Files).size(), 1) << "a new copy stands for it";
    window->offerRecovery(); // nothing is left to ask
}

TEST_F(Files, WhatACrashLeftIsDroppedOrLeftForLater)
{
    leaveCopy(copies(), path("план.dxf"), true);
    ModalDriver driver;
    driver.expect("Восстановление").press("Позже");
    window->offerRecovery();
    EXPECT_TRUE(QFile::exists(copies() + "/999999999-1.dxf"));
    driver.expect("Восстановление").press("Удалить копии");
    window->offerRecovery();
    EXPECT_FALSE(QFile::exists(copies() + "/999999999-1.dxf"));
    EXPECT_EQ(ncDocManagerPtr()->documentCount(), 0);
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
}

TEST_F(Files, ASecondUserIsToldAndGetsACopy)
{
    const QString file = saved("общий.dxf");
    QLockFile other(folder.filePath(QStringLiteral(".общий.dxf.workbench-lock")));
    other.setStaleLockTime(0);
    ASSERT_TRUE(other.tryLock(0));
    ModalDriver driver;
    driver.expect("Открыть").textContains("открыт в другой программе").press("Отмена");
    EXPECT_FALSE(window->openDrawing(file));
    EXPECT_EQ(ncDocManagerPtr()->documentCount(), 0);
    driver.expect("Открыть").press("Открыть копию");
    EXPECT_TRUE(window->openDrawing(file));
    EXPECT_TRUE(current().isUntitled()) << "it cannot be written over the other's";
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
    closeAllDocuments();
    other.unlock();
    EXPECT_TRUE(window->openDrawing(file));
    EXPECT_FALSE(current().isUntitled());
    EXPECT_FALSE(other.tryLock(0)) << "now it is ours";
    closeAllDocuments();
    EXPECT_TRUE(other.tryLock(0));
}

TEST_F(Files, FoldersAreRememberedByTheirKind)
{
    QSettings settings(path("s.ini"), QSettings::IniFormat);
    EXPECT_EQ(rememberedFolder(settings, QStringLiteral("a")), QDir::homePath());
    rememberFolder(settings, QStringLiteral("a"), path("x.dxf"));
    EXPECT_EQ(rememberedFolder(settings, QStringLiteral("a")), folder.path());
    EXPECT_EQ(rememberedFolder(settings, QStringLiteral("b")), QDir::homePath());
    RecentFiles recent(settings, QStringLiteral("r"));
    for (int i = 0; i < 15; ++i)
        recent.note(path("f") + QString::number(i));
    recent.note(path("f") + QStringLiteral("9"));
    EXPECT_EQ(recent.paths().size(), 10);
    EXPECT_EQ(recent.paths().first(), path("f9"));
    EXPECT_EQ(recent.paths().count(path("f9")), 1);
}

TEST_F(MainWindowTest, ASheetIsPrintedToAPdf)
{
    window->runLine(QStringLiteral("LINE 0,0 100,0 \"\""));
    const QString path = folder.filePath(QStringLiteral("лист"));
    ModalDriver driver;
    driver.expect("Печать")
        .call([](QWidget* dialog) {
            EXPECT_EQ(dialog->objectName(), QStringLiteral("printDialog"));
            dialog->findChild<QPushButton*>(QStringLiteral("printAll"))->click();
            auto* scale = dialog->findChild<QComboBox*>(QStringLiteral("printScale"));
            auto* note = dialog->findChild<QLabel*>(QStringLiteral("printNote"));
            EXPECT_EQ(scale->currentText(), QStringLiteral("1:500"));
            scale->setEditText(QStringLiteral("много"));
            EXPECT_EQ(note->text(), QStringLiteral("Масштаб пишется так: 1:500."));
            scale->setEditText(QStringLiteral("1:100"));
            EXPECT_EQ(note->text(), QStringLiteral("На лист попадает часть чертежа."));
            return QString();
        })
        .press("printPdf");
    driver.expect("Лист в PDF").files({path});
    window->findChild<QAction*>(QStringLiteral("print"))->trigger();
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
    EXPECT_TRUE(QFile::exists(path + QStringLiteral(".pdf")));
    EXPECT_TRUE(history().contains(QStringLiteral("Записан файл ") + path));
}

TEST_F(MainWindowTest, ASheetIsPlottedByACommand)
{
    window->runLine(QStringLiteral("LINE 0,0 100,0 \"\""));
    const QString path = folder.filePath(QStringLiteral("a.pdf"));
    window->runLine(QStringLiteral("PLOT \"%1\" A4 1:1000 50,0 План").arg(path));
    EXPECT_TRUE(QFile::exists(path));
    EXPECT_TRUE(history().contains(QStringLiteral("Записан лист A4, 1:1000, файл a.pdf"))) << history().toStdString();
    window->runLine(QStringLiteral("PLOT \"%1\" A4 мелко").arg(folder.filePath(QStringLiteral("b.pdf"))));
    EXPECT_TRUE(history().contains(QStringLiteral("Масштаб пишется так: 1:500.")));
    EXPECT_FALSE(QFile::exists(folder.filePath(QStringLiteral("b.pdf"))));
}

TEST_F(Files, TheStartDrawingGivesWayToOneThatACommandMadeAndSaved)
{
    ASSERT_EQ(ncDocManagerPtr()->documentCount(), 1);
    ASSERT_TRUE(isOk(ncDocManagerPtr()->appContextNewDocument(QString())));
    ASSERT_EQ(ncDocManagerPtr()->documentCount(), 2);
    ASSERT_TRUE(isOk(ncDocManagerPtr()->saveDocumentAs(&current(), path("позиция.dxf"))));
    EXPECT_TRUE(QTest::qWaitFor([] { return ncDocManagerPtr()->documentCount() == 1; }));
    EXPECT_EQ(current().fileName(), path("позиция.dxf"));

    openStartDocument();
    ASSERT_TRUE(isOk(ncDocManagerPtr()->appContextNewDocument(QString())));
    ASSERT_TRUE(isOk(ncDocManagerPtr()->saveDocumentAs(&current(), path("другая.dxf"))));
    QTest::qWait(100);
    EXPECT_GT(ncDocManagerPtr()->documentCount(), 1) << "nothing that the user opened is closed";
}

TEST_F(Files, WhileOneIsReadOrWrittenTheCursorSaysSo)
{
    QVector<Qt::CursorShape> shapes;
    const auto look = [&shapes] {
        const QCursor* cursor = QApplication::overrideCursor();
        shapes << (cursor ? cursor->shape() : Qt::ArrowCursor);
    };
    const QString name = saved("a.dxf");
    HostEvents* events = HostEvents::instance();
    const auto opened = QObject::connect(events, &HostEvents::documentOpened, window.get(), look);
    const auto written = QObject::connect(events, &HostEvents::documentSaved, window.get(), look);
    ASSERT_TRUE(window->openDrawing(name));
    window->runLine(QStringLiteral("CIRCLE 0,0 7"));
    for (QAction* action : window->findChildren<QAction*>())
        if (action->shortcut() == QKeySequence(QKeySequence::Save))
            action->trigger();
    QObject::disconnect(opened);
    QObject::disconnect(written);
    EXPECT_EQ(shapes, (QVector<Qt::CursorShape>{Qt::WaitCursor, Qt::WaitCursor}));
    EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "and is the usual one again";
}
