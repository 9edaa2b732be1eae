// Pictures as files.
#include "scene.h"

#include <render/active_view.h>
#include <render/figure_painter.h>
#include <render/picture_export.h>

#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

void expectColor(const QImage& image, double x, double y, const QColor& color)
{
    const QColor met = image.pixelColor(int(x * image.width()), int(y * image.height()));
    EXPECT_NEAR(met.red(), color.red(), 3) << x << ' ' << y;
    EXPECT_NEAR(met.green(), color.green(), 3) << x << ' ' << y;
    EXPECT_NEAR(met.blue(), color.blue(), 3) << x << ' ' << y;
}

class PictureTest : public ::testing::Test {
protected:
    QImage png(PictureOptions options = {})
    {
        const QString path = folder.filePath(QStringLiteral("a.png"));
        EXPECT_EQ(exportPicture(scene.drawing, path, options).toStdString(), "");
        return QImage(path);
    }

    QByteArray bytes(const QString& name, const PictureOptions& options = {})
    {
        QFile file(folder.filePath(name));
        EXPECT_EQ(exportPicture(scene.drawing, file.fileName(), options).toStdString(), "");
        file.open(QIODevice::ReadOnly);
        return file.readAll();
    }

    QTemporaryDir folder;
    Scene scene;
};

} // namespace

TEST_F(PictureTest, FillsStandWhereTheyBelongWithYUpwards)
{
    scene.add(square(0, 0, 10), QStringLiteral("0"), 1);
    scene.add(square(10, 10, 10), QStringLiteral("0"), 5);
    PictureOptions options;
    options.pixels = QSize(200, 200);
    const QImage image = png(options);
    EXPECT_EQ(image.size(), QSize(200, 200));
    expectColor(image, 0.25, 0.75, QColor(255, 0, 0));
    expectColor(image, 0.75, 0.25, QColor(0, 0, 255));
    expectColor(image, 0.25, 0.25, Qt::white);
    expectColor(image, 0.005, 0.5, Qt::white);
}

TEST_F(PictureTest, ColourSevenFollowsThePaper)
{
    scene.add(square(0, 0, 10), QStringLiteral("0"), 7);
    PictureOptions options;
    options.pixels = QSize(100, 100);
    expectColor(png(options), 0.5, 0.5, Qt::black);
    options.whitePaper = false;
    const QImage dark = png(options);
    expectColor(dark, 0.5, 0.5, Qt::white);
    expectColor(dark, 0.01, 0.01, Qt::black);
}

// Pure blue on a dark ground can hardly be read; a fill keeps what the legend shows.
TEST_F(PictureTest, LinesShowOnADarkGround)
{
    scene.add(square(0, 0, 10), QStringLiteral("0"), 5);
    scene.add(new NcDbLine({20, 5, 0}, {30, 5, 0}), QStringLiteral("0"), 5);
    const auto painted = [this](const QColor& paper) {
        QImage image(300, 100, QImage::Format_RGB32);
        image.fill(paper);
        QPainter painter(&image);
        PaintStyle style;
        style.paper = paper;
        style.lineWidth = 8.0;
        paintFigures(recordDrawing(scene.drawing), painter, fitWindow(QRectF(0, 0, 30, 10), QRectF(image.rect())),
                     style);
        return image;
    };
    const QImage dark = painted(QColor(30, 36, 42));
    expectColor(dark, 1.0 / 6.0, 0.5, QColor(0, 0, 255));
    EXPECT_GE(qGray(dark.pixel(250, 50)), 110);
    EXPECT_GT(dark.pixelColor(250, 50).blue(), dark.pixelColor(250, 50).red());
    expectColor(painted(Qt::white), 5.0 / 6.0, 0.5, QColor(0, 0, 255));
}

TEST_F(PictureTest, AWindowShowsThatPartAlone)
{
    scene.add(square(0, 0, 10), QStringLiteral("0"), 1);
    scene.add(square(10, 0, 10), QStringLiteral("0"), 3);
    PictureOptions options;
    options.pixels = QSize(100, 100);
    options.window = QRectF(12, 2, 4, 4);
    const QImage image = png(options);
    expectColor(image, 0.1, 0.5, QColor(0, 255, 0));
    expectColor(image, 0.9, 0.5, QColor(0, 255, 0));
}

TEST_F(PictureTest, AGroundHidesWhatLiesBelow)
{
    scene.add(square(0, 0, 10), QStringLiteral("0"), 1);
    auto* text = new NcDbMText;
    text->setContents(QStringLiteral("i"));
    text->setTextHeight(2.0);
    text->setLocation({5, 5, 0});
    text->setAttachment(5);
    text->setBackgroundFill(true);
    text->setBackgroundScaleFactor(2.0);
    scene.add(text, QStringLiteral("0"), 5);
    PictureOptions options;
    options.pixels = QSize(200, 200);
    const QImage image = png(options);
    expectColor(image, 0.5, 0.36, Qt::white);
    expectColor(image, 0.2, 0.5, QColor(255, 0, 0));
}

TEST_F(PictureTest, SvgAndPdfAreWritten)
{
    scene.add(square(0, 0, 10), QStringLiteral("0"), 1);
    scene.add(new NcDbText({1, 1, 0}, QStringLiteral("Скважина"), 1.0));
    const QByteArray svg = bytes(QStringLiteral("a.svg"));
    EXPECT_TRUE(svg.contains("<svg"));
    EXPECT_TRUE(svg.contains("#ff0000"));
    EXPECT_TRUE(svg.contains("viewBox=\"0 0 1600 1130\""));
    const QByteArray pdf = bytes(QStringLiteral("a.pdf"));
    EXPECT_TRUE(pdf.startsWith("%PDF"));
    EXPECT_TRUE(pdf.contains("%%EOF"));
}

TEST_F(PictureTest, ASheetLiesOrStandsAsTheDrawingAsks)
{
    scene.add(new NcDbLine({0, 0, 0}, {10, 100, 0}));
    PictureOptions options;
    options.largeSheet = false;
    const QByteArray pdf = bytes(QStringLiteral("a.pdf"), options);
    const int at = pdf.indexOf("/MediaBox");
    ASSERT_GT(at, 0);
    EXPECT_TRUE(pdf.mid(at, 40).contains("595")) << pdf.mid(at, 40).toStdString();
    EXPECT_LT(pdf.mid(at, 40).indexOf("595"), pdf.mid(at, 40).indexOf("842"));
}

TEST_F(PictureTest, AnEmptyDrawingIsAnEmptySheet)
{
    PictureOptions options;
    options.pixels = QSize(50, 50);
    const QImage image = png(options);
    for (int y = 0; y < 50; ++y)
        for (int x = 0; x < 50; ++x)
            ASSERT_EQ(image.pixelColor(x, y), QColor(Qt::white));
}

TEST_F(PictureTest, WhatCannotBeWrittenIsNamed)
{
    EXPECT_TRUE(exportPicture(scene.drawing, folder.filePath(QStringLiteral("a.bmp"))).contains(QStringLiteral("bmp")));
    PictureOptions options;
    options.pixels = QSize(5, 5);
    EXPECT_TRUE(exportPicture(scene.drawing, folder.filePath(QStringLiteral("a.png")), options)
                    .contains(QStringLiteral("от 16")));
    EXPECT_FALSE(exportPicture(scene.drawing, QStringLiteral("/proc/нельзя/a.png")).isEmpty());
}

TEST_F(PictureTest, FitKeepsProportionsAndCentres)
{
    const QTransform fit = fitWindow(QRectF(0, 0, 10, 10), QRectF(0, 0, 200, 100));
    EXPECT_EQ(fit.map(QPointF(5, 5)), QPointF(100, 50));
    EXPECT_EQ(fit.map(QPointF(0, 0)), QPointF(50, 100));
    EXPECT_EQ(fit.map(QPointF(10, 10)), QPointF(150, 0));
}

TEST_F(PictureTest, TheActiveViewIsKeptInTheDrawing)
{
    ActiveView view;
    view.center = {100, 200};
    view.height = 50;
    view.width = 100;
    EXPECT_TRUE(setActiveView(scene.drawing, view));
    EXPECT_EQ(activeView(scene.drawing).center, QPointF(100, 200));
    EXPECT_EQ(activeView(scene.drawing).height, 50.0);
    view.height = 0.0;
    EXPECT_FALSE(setActiveView(scene.drawing, view));
    const ActiveView shown = viewOf(QRectF(0, 0, 100, 10), activeView(scene.drawing));
    EXPECT_EQ(shown.center, QPointF(50, 5));
    EXPECT_NEAR(shown.width, 106.0, 1e-9);
    EXPECT_NEAR(shown.width / shown.height, 2.0, 1e-9);
}
