#include "elements/forms/image_uploader.h"

#include "elements/forms/image_cropper.h"
#include "elements/forms/label_clickable.h"
#include "support/pictures.h"

#include <script/modal_driver.h>

#include <QClipboard>
#include <QCoreApplication>
#include <QFile>
#include <QGraphicsItem>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace {

// Left half red, right half blue.
QPixmap twoHalves(int width = 200, int height = 100)
{
    QPixmap made(width, height);
    made.fill(Qt::blue);
    QPainter painter(&made);
    painter.fillRect(0, 0, width / 2, height, Qt::red);
    return made;
}

class Uploader : public ::testing::Test {
protected:
    Uploader() : uploader(twoHalves())
    {
        uploader.resize(480, 360);
        uploader.show();
        QCoreApplication::processEvents();
    }
    ImageCropper& cropper() { return *uploader.findChild<ImageCropper*>("Cropper"); }
    bool okEnabled() { return uploader.findChild<QPushButton*>("OkBtn")->isEnabled(); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&cropper(), key, modifiers);
    }
    void drag(const QPointF& from, const QPointF& to)
    {
        QWidget* view = cropper().viewport();
        QTest::mousePress(view, Qt::LeftButton, {}, cropper().mapFromScene(from));
        QMouseEvent move(QEvent::MouseMove, cropper().mapFromScene(to), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(view, &move);
        QTest::mouseRelease(view, Qt::LeftButton, {}, cropper().mapFromScene(to));
    }
    void openFile(const QString& path)
    {
        driver.expect("Open Image").files({path});
        key(Qt::Key_O, Qt::ControlModifier);
    }

    ImageUploader uploader;
    ModalDriver driver;
    QTemporaryDir folder;
};

} // namespace

TEST_F(Uploader, OpensWithThePresentPictureAndNothingToTakeYet)
{
    EXPECT_EQ(uploader.windowTitle(), "Загрузка изображения");
    EXPECT_EQ(uploader.pixmap().size(), QSize(200, 100));
    EXPECT_FALSE(okEnabled());
    EXPECT_EQ(uploader.findChild<QPushButton*>("OkBtn")->text(), "OK");
    EXPECT_EQ(uploader.findChild<QPushButton*>("CancelBtn")->text(), "Отмена");
    drag({20, 10}, {150, 80});
    EXPECT_TRUE(takePicture(uploader, "image-uploader"));
}

TEST_F(Uploader, EnterCutsOutWhatTheMouseHasDrawn)
{
    for (Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
        cropper().setPixmap(twoHalves());
        drag({150, 80}, {110, 20});
        const QRect chosen = cropper().selection();
        EXPECT_NEAR(chosen.x(), 110, 2);
        EXPECT_NEAR(chosen.width(), 40, 3);
        key(enter);
        EXPECT_EQ(uploader.pixmap().size(), chosen.size());
        EXPECT_EQ(uploader.pixmap().toImage().pixelColor(2, 2), QColor(Qt::blue));
        EXPECT_EQ(cropper().selection(), uploader.pixmap().rect()) << "the whole of the new picture";
        EXPECT_TRUE(okEnabled());
        EXPECT_TRUE(uploader.isVisible());
    }
}

TEST_F(Uploader, WithoutARectangleThePictureIsTakenWhole)
{
    key(Qt::Key_Return);
    EXPECT_EQ(uploader.pixmap().size(), QSize(200, 100));
    EXPECT_TRUE(okEnabled());
}

TEST_F(Uploader, WhatLiesOutsideThePictureIsNotTaken)
{
    drag({190, 90}, {400, 300});
    key(Qt::Key_Return);
    EXPECT_NEAR(uploader.pixmap().width(), 10, 2);
    EXPECT_NEAR(uploader.pixmap().height(), 10, 2);
    const QSize before = uploader.pixmap().size();
    drag({-60, -60}, {-20, -20});
    key(Qt::Key_Return);
    EXPECT_EQ(uploader.pixmap().size(), before) << "nothing of it";
}

TEST_F(Uploader, BothKeysPasteTheClipboard)
{
    for (Qt::Key paste : {Qt::Key_V, Qt::Key_Insert}) {
        cropper().setPixmap(twoHalves());
        QGuiApplication::clipboard()->setPixmap(twoHalves(60, 20));
        key(paste, Qt::ControlModifier);
        EXPECT_EQ(uploader.pixmap().size(), QSize(60, 20));
        EXPECT_EQ(cropper().selection(), QRect(0, 0, 60, 20));
    }
    QGuiApplication::clipboard()->setText("слова");
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(uploader.pixmap().size(), QSize(60, 20)) << "no picture, nothing new";
    key(Qt::Key_V);
    EXPECT_FALSE(okEnabled());
}

TEST_F(Uploader, FilesAreOpenedAndBadOnesRefused)
{
    for (const char* name : {"a.png", "b.jpg", "c.bmp"}) {
        ASSERT_TRUE(twoHalves(30, 40).save(folder.filePath(name)));
        cropper().setPixmap(twoHalves());
        openFile(folder.filePath(name));
        EXPECT_EQ(uploader.pixmap().size(), QSize(30, 40)) << name;
    }
    ASSERT_TRUE(QFile::copy(folder.filePath("b.jpg"), folder.filePath("wrongly-named.png")));
    cropper().setPixmap(twoHalves());
    openFile(folder.filePath("wrongly-named.png"));
    EXPECT_EQ(uploader.pixmap().size(), QSize(30, 40));
    for (const QByteArray& bytes : {QByteArray(), QByteArray("no picture at all")}) {
        QFile file(folder.filePath("bad.png"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        driver.expect("Open Image").files({file.fileName()});
        driver.expect("Внимание").textContains("не удалось прочитать как изображение").press("OK");
        key(Qt::Key_O, Qt::ControlModifier);
        EXPECT_EQ(uploader.pixmap().size(), QSize(30, 40));
    }
    EXPECT_TRUE(driver.done()) << driver.report();
}

TEST_F(Uploader, TheWheelZooms)
{
    const double before = cropper().transform().m11();
    QWheelEvent turn(QPointF(50, 50), QPointF(50, 50), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(cropper().viewport(), &turn);
    EXPECT_NEAR(cropper().transform().m11(), before * 1.25, 1e-9);
    uploader.resize(700, 500);
    QCoreApplication::processEvents();
    EXPECT_NEAR(cropper().transform().m11(), before * 1.25, 1e-9) << "what was zoomed stays so";
}

TEST_F(Uploader, IsAskedAtTheSizeOfItsLabel)
{
    QLabelClickable label("Двойной клик");
    label.resize(333, 277);
    label.setPhoto(twoHalves());
    driver.expect("Загрузка изображения").call([](QWidget* window) {
        return window->size() == QSize(333, 277) ? QString() : QString("another size");
    });
    driver.expect("Загрузка изображения").close();
    EXPECT_FALSE(askForPicture(&label));
    driver.expect("Загрузка изображения").step("key", {"Cropper", "Return"}).press("OkBtn");
    EXPECT_EQ(askForPicture(&label)->size(), QSize(200, 100));
    EXPECT_TRUE(driver.done()) << driver.report();
}

TEST_F(Uploader, SixtyMegapixelsAreCutToo)
{
    cropper().setPixmap(twoHalves(10000, 6000));
    drag({1000, 1000}, {6000, 4000});
    key(Qt::Key_Return);
    EXPECT_NEAR(uploader.pixmap().width(), 5000, 60);
    EXPECT_TRUE(okEnabled());
}
