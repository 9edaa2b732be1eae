// What lasts long shows how far it is and may be cancelled, and leaves nothing half done.
#include "window_fixture.h"

#include <workbench/busy_box.h>

#include <drawing/documents.h>
#include <drawing/edit_operations.h>
#include <drawing/host_access.h>
#include <drawing/long_work.h>
#include <dxf/drawing_file.h>
#include <script/modal_driver.h>

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QProgressDialog>
#include <QPushButton>
#include <QRegularExpression>

#include <climits>

namespace {

constexpr int kCircles = 3000;

class Busy : public MainWindowTest {
protected:
    void SetUp() override
    {
        MainWindowTest::SetUp();
        before_ = BusyBox::setQuietTime(0);
        eye_.setInterval(0);
        QObject::connect(&eye_, &QTimer::timeout, [this] { look(); });
    }
    void TearDown() override
    {
        eye_.stop();
        BusyBox::setQuietTime(before_);
        MainWindowTest::TearDown();
    }
    // From now on each box is seen, and cancelled if that is wanted.
    void watch(bool cancel)
    {
        cancel_ = cancel;
        titles.clear();
        eye_.start();
    }
    Document& current() { return *static_cast<Document*>(ncDocManagerPtr()->curDocument()); }
    QString path(const char* name) { return folder.filePath(QString::fromUtf8(name)); }
    void fill(NcDbDatabase& drawing)
    {
        auto* space = HostAccess::objectAs<NcDbBlockTableRecord>(drawing.currentSpaceId());
        for (int i = 0; i < kCircles; ++i) {
            auto circle = std::make_unique<NcDbCircle>();
            HostAccess::center(*circle) = {double(i % 60), double(i / 60), 0};
            HostAccess::radius(*circle) = 0.4;
            HostAccess::addEntity(*space, std::move(circle));
        }
        HostAccess::touch(*space);
    }
    QString file(const char* name)
    {
        NcDbDatabase drawing;
        fill(drawing);
        EXPECT_TRUE(isOk(drawing.saveAs(path(name))));
        return path(name);
    }
    QByteArray bytes(const QString& name)
    {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    // All but the settings, which are written when the toolkit likes to.
    QStringList names()
    {
        return QDir(folder.path())
            .entryList(QDir::Files | QDir::Hidden)
            .filter(QRegularExpression(QStringLiteral("(dxf|pdf|svg|png|lock)$")));
    }
    void trigger(const char* name) { window->findChild<QAction*>(QString::fromLatin1(name))->trigger(); }

    QStringList titles; // of the boxes

private:
    void look()
    {
        auto* box = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
        if (!box || box->objectName() != QLatin1String("busyBox"))
            return;
        if (titles.isEmpty() || titles.last() != box->windowTitle())
            titles << box->windowTitle();
        if (cancel_)
            box->findChild<QPushButton*>()->click();
    }

    QTimer eye_;
    int before_ = 0;
    bool cancel_ = false;
};

} // namespace

TEST_F(Busy, ACancelledOpeningLeavesNoDrawingAndNoLock)
{
    const QString large = file("большой.dxf");
    const QStringList before = names();
    const int open = ncDocManagerPtr()->documentCount();
    watch(true);
    EXPECT_FALSE(window->openDrawing(large)) << "and no box tells of a fault: nothing would close it here";
    EXPECT_EQ(titles, QStringList{QStringLiteral("Открытие чертежа")});
    EXPECT_EQ(ncDocManagerPtr()->documentCount(), open);
    EXPECT_EQ(Documents::instance().find(large), nullptr);
    EXPECT_TRUE(history().contains(QStringLiteral("Открытие отменено: ") + large));
    EXPECT_EQ(names(), before) << "no lock stays";
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);

    watch(false);
    EXPECT_TRUE(window->openDrawing(large)) << "and it is opened when it is not cancelled";
    EXPECT_EQ(titles, QStringList{QStringLiteral("Открытие чертежа")});
    EXPECT_EQ(int(livingEntities(*current().database()).size()), kCircles);
}

TEST_F(Busy, ACancelledSavingLeavesTheOldFile)
{
    const QString name = path("план.dxf");
    ASSERT_TRUE(isOk(ncDocManagerPtr()->saveDocumentAs(&current(), name)));
    const QByteArray old = bytes(name);
    fill(*current().database());
    const QStringList before = names();
    watch(true);
    trigger("save");
    EXPECT_EQ(titles, QStringList{QStringLiteral("Сохранение чертежа")});
    EXPECT_EQ(bytes(name), old);
    EXPECT_TRUE(current().isModified());
    EXPECT_TRUE(history().contains(QStringLiteral("Сохранение отменено: ") + name));
    EXPECT_EQ(names(), before);

    ModalDriver driver;
    driver.expect("Сохранить как").files({path("новый.dxf")});
    trigger("saveAs");
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
    EXPECT_EQ(names(), before) << "neither a file nor a lock under the new name";
    EXPECT_EQ(current().fileName(), name);

    watch(false);
    trigger("save");
    EXPECT_FALSE(current().isModified());
    EXPECT_GT(bytes(name).size(), 10 * old.size());
}

TEST_F(Busy, ACancelledPictureAndSheetAreNotWritten)
{
    fill(*current().database());
    const QStringList before = names();
    watch(true);
    ModalDriver driver;
    for (const char* name : {"a.pdf", "a.svg", "a.png", "a.dxf"}) {
        titles.clear();
        driver.expect("Экспорт рисунка").files({path(name)});
        trigger("export");
        EXPECT_EQ(titles, QStringList{QStringLiteral("Экспорт рисунка")}) << name;
    }
    EXPECT_TRUE(driver.done()) << driver.report().toStdString();
    EXPECT_EQ(history().count(QStringLiteral("Запись отменена.")), 4);
    titles.clear();
    window->runLine(QStringLiteral("PLOT \"%1\" A4 1:500 30,25 План").arg(path("b.pdf")));
    EXPECT_EQ(titles, QStringList{QStringLiteral("Лист в PDF")});
    EXPECT_EQ(names(), before);

    watch(false);
    driver.expect("Экспорт рисунка").files({path("a.pdf")});
    trigger("export");
    EXPECT_TRUE(bytes(path("a.pdf")).startsWith("%PDF"));
}

TEST_F(Busy, WhatIsDoneBeforeItsTimeShowsNoBox)
{
    const QString large = file("большой.dxf");
    BusyBox::setQuietTime(INT_MAX);
    watch(true);
    EXPECT_TRUE(window->openDrawing(large));
    EXPECT_EQ(titles, QStringList());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(Busy, WithoutAWindowCommandsShowNothing)
{
    EXPECT_NE(showWork(QStringLiteral("Открытие чертежа")), nullptr);
    TearDown();
    EXPECT_EQ(showWork(QStringLiteral("Открытие чертежа")), nullptr);
    SetUp();
}

TEST_F(Busy, WorkIsStoppedWhereverItIs)
{
    const QString large = file("большой.dxf");
    NcDbDatabase drawing;
    auto* space = HostAccess::objectAs<NcDbBlockTableRecord>(drawing.currentSpaceId());
    HostAccess::addEntity(*space, std::make_unique<NcDbLine>(NcGePoint3d(0, 0, 0), NcGePoint3d(1, 0, 0)));
    int looks = 0;
    {
        const LongWork all([&](double) { return ++looks > 0; });
        NcDbDatabase read;
        EXPECT_TRUE(isOk(read.readDwgFile(large)));
    }
    ASSERT_GT(looks, 200);
    for (int stop = 1; stop <= looks; stop += looks / 23) {
        int met = 0;
        double last = 0.0;
        const LongWork work([&](double done) {
            EXPECT_GE(done, last);
            EXPECT_LE(last = done, 1.0);
            return ++met < stop;
        });
        EXPECT_EQ(drawing.readDwgFile(large), NcStatus::FileAccess);
        EXPECT_EQ(met, stop) << "nobody asks again";
        EXPECT_EQ(drawingFault(), QStringLiteral("Чтение отменено."));
        EXPECT_EQ(livingEntities(drawing).size(), 1u) << "the drawing is as it was";
    }
    EXPECT_TRUE(isOk(drawing.readDwgFile(large)));
    EXPECT_EQ(int(livingEntities(drawing).size()), kCircles);
}

TEST_F(Busy, WhatFollowsOnAnOpeningOrASavingIsNoPartOfIt)
{
    const QString large = file("большой.dxf");
    int asked = 0, after = 0;
    const LongWork work([&](double) { return ++asked > 0; });
    const auto reactor = [&] {
        const int before = asked;
        EXPECT_TRUE(LongWork::goOn(0.5));
        after += asked == before;
    };
    HostEvents* events = HostEvents::instance();
    const auto opened = QObject::connect(events, &HostEvents::documentOpened, window.get(), reactor);
    const auto saved = QObject::connect(events, &HostEvents::documentSaved, window.get(), reactor);
    ASSERT_TRUE(isOk(Documents::instance().open(large)));
    ASSERT_TRUE(isOk(Documents::instance().saveAs(&current(), large)));
    QObject::disconnect(opened);
    QObject::disconnect(saved);
    EXPECT_EQ(after, 2);
    EXPECT_GT(asked, 0);
}

TEST_F(Busy, ACancelledSheetLeavesTheDialogOpen)
{
    fill(*current().database());
    bool open = false;
    QTimer::singleShot(200, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        QTimer names;
        QObject::connect(&names, &QTimer::timeout, [this] {
            auto* asked = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (!asked)
                return;
            asked->selectFile(path("лист.pdf"));
            QMetaObject::invokeMethod(asked, "accept");
        });
        names.start(5);
        watch(true);
        dialog->findChild<QPushButton*>(QStringLiteral("printPdf"))->click();
        open = dialog->isVisible();
        dialog->reject();
    });
    trigger("print");
    EXPECT_TRUE(open);
    EXPECT_EQ(titles, QStringList{QStringLiteral("Лист в PDF")});
    EXPECT_FALSE(QFile::exists(path("лист.pdf")));
    EXPECT_TRUE(history().contains(QStringLiteral("Запись отменена.")));
}
