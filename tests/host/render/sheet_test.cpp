// Sheets to scale: a millimetre is a millimetre.
#include "scene.h"

#include <render/picture_export.h>
#include <render/sheet.h>

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

class SheetTest : public ::testing::Test {
protected:
    Sheet bare(double scale)
    {
        Sheet sheet;
        sheet.scale = scale;
        sheet.frame = sheet.titleBlock = sheet.scaleBar = sheet.northArrow = sheet.legend = false;
        return sheet;
    }
    DisplayList list() { return recordDrawing(scene.drawing); }
    QString path(const char* name) { return folder.filePath(QString::fromLatin1(name)); }

    // Of what is not white: the columns and rows that it reaches.
    static QRect inked(const QImage& image)
    {
        QRect box;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (qGray(image.pixel(x, y)) < 128)
                    box |= QRect(x, y, 1, 1);
        return box;
    }
    static QByteArray told(const QString& program, const QStringList& arguments)
    {
        QProcess process;
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForFinished(60000)) << program.toStdString();
        return process.readAllStandardOutput();
    }

    QTemporaryDir folder;
    Scene scene;
};

} // namespace

TEST_F(SheetTest, ADrawnMetreHasItsMillimetres)
{
    scene.add(new NcDbLine({0, 0, 0}, {100, 0, 0}));
    scene.add(new NcDbLine({0, 0, 0}, {0, 50, 0}));
    Sheet sheet = bare(500.0);
    sheet.center = {50, 25};
    const QSizeF paper = paperSize(sheet);
    EXPECT_EQ(paper, QSizeF(420, 297));
    QImage image((paper * 10.0).toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    paintSheet(painter, sheet, list(), 10.0);
    painter.end();
    const QRect box = inked(image);
    EXPECT_NEAR(box.width(), 2000, 4) << "100 m in 1:500 are 200 mm";
    EXPECT_NEAR(box.height(), 1000, 4);
    EXPECT_NEAR(box.center().x(), 2100, 3);
}

TEST_F(SheetTest, SoItIsInThePdf)
{
    scene.add(new NcDbLine({0, 0, 0}, {100, 0, 0}));
    Sheet sheet = bare(500.0);
    sheet.center = {50, 0};
    sheet.title = QStringLiteral("План свай");
    ASSERT_EQ(writeSheet(sheet, list(), path("a.pdf")).toStdString(), "");
    const QByteArray info = told("pdfinfo", {path("a.pdf")});
    EXPECT_TRUE(info.contains("Title:           План свай")) << info.toStdString();
    EXPECT_TRUE(info.contains("A3")) << info.toStdString();
    told("pdftoppm", {"-r", "254", "-png", "-singlefile", path("a.pdf"), path("a")});
    const QImage page(path("a.png"));
    ASSERT_FALSE(page.isNull());
    EXPECT_NEAR(page.width(), 4200, 10);
    EXPECT_NEAR(inked(page).width(), 2000, 5);
}

TEST_F(SheetTest, TextsStayTextsAndTheirFontGoesAlong)
{
    scene.add(new NcDbText({0, 0, 0}, QStringLiteral("Скважина ТС-1"), 2.0));
    Sheet sheet;
    sheet.center = {10, 0};
    sheet.title = QStringLiteral("Карта температур");
    sheet.cycle = QStringLiteral("12 (01.10.25)");
    sheet.depth = QStringLiteral("6,0 м");
    ASSERT_EQ(writeSheet(sheet, list(), path("a.pdf")).toStdString(), "");
    const QString text = QString::fromUtf8(told("pdftotext", {"-layout", path("a.pdf"), "-"}));
    for (const char* word : {"Скважина ТС-1", "Карта температур", "12 (01.10.25)", "6,0 м", "1:500", "Масштаб"})
        EXPECT_TRUE(text.contains(QString::fromUtf8(word))) << word << '\n' << text.toStdString();
    const QStringList fonts = QString::fromUtf8(told("pdffonts", {path("a.pdf")})).split('\n', Qt::SkipEmptyParts);
    ASSERT_GT(fonts.size(), 2);
    for (const QString& font : fonts.mid(2))
        EXPECT_TRUE(font.contains(QStringLiteral("yes"))) << font.toStdString();

    ASSERT_EQ(exportPicture(scene.drawing, path("b.pdf")).toStdString(), "");
    EXPECT_TRUE(told("pdftotext", {path("b.pdf"), "-"}).contains("Скважина ТС-1"));
    EXPECT_TRUE(told("pdfinfo", {path("b.pdf")}).contains("Title:           b"));
    ASSERT_EQ(exportPicture(scene.drawing, path("b.svg")).toStdString(), "");
    QFile svg(path("b.svg"));
    ASSERT_TRUE(svg.open(QIODevice::ReadOnly));
    const QByteArray drawn = svg.readAll();
    EXPECT_TRUE(drawn.contains("Скважина ТС-1"));
    EXPECT_TRUE(drawn.contains("<title>b</title>"));
}

TEST_F(SheetTest, ScalesArePapersAsPeopleSayThem)
{
    EXPECT_EQ(readScale(QStringLiteral("1:500")), 500.0);
    EXPECT_EQ(readScale(QStringLiteral(" 1:2 000")), 0.0);
    EXPECT_EQ(readScale(QStringLiteral("250")), 250.0);
    for (const char* text : {"", "1:", "0", "-5", "1:0", "большой", "inf"})
        EXPECT_EQ(readScale(QString::fromUtf8(text)), 0.0) << text;
    EXPECT_EQ(paperNames(), (QStringList{"A4", "A3", "A2", "A1", "A0"}));
    Sheet sheet;
    sheet.paper = QStringLiteral("A0");
    sheet.landscape = false;
    EXPECT_EQ(paperSize(sheet), QSizeF(841, 1189));
    EXPECT_EQ(fieldOf(sheet), QRectF(20, 5, 816, 1179));
    EXPECT_EQ(usualScales().front(), 100.0);
    EXPECT_EQ(usualScales().back(), 5000.0);
}

TEST_F(SheetTest, TheLargestScaleThatFitsIsTaken)
{
    Sheet sheet; // a field of 395 by 287 mm
    EXPECT_EQ(fittingScale(sheet, {0, 0, 39.5, 28.7}), 100.0);
    EXPECT_EQ(fittingScale(sheet, {0, 0, 39.6, 28.7}), 200.0);
    EXPECT_EQ(fittingScale(sheet, {0, 0, 10, 200}), 1000.0);
    EXPECT_EQ(fittingScale(sheet, {0, 0, 1e6, 1e6}), 5000.0);
}

TEST_F(SheetTest, TheBarHasARoundLengthThatCanBeRead)
{
    Sheet sheet;
    for (const double scale : {100.0, 200.0, 250.0, 500.0, 1000.0, 2000.0, 2500.0, 5000.0, 333.0}) {
        sheet.scale = scale;
        const double millimetres = barLength(sheet) * millimetresOfUnit(sheet);
        EXPECT_GE(millimetres, 25.0 - 1e-9) << scale;
        EXPECT_LE(millimetres, 63.0) << scale;
    }
    sheet.scale = 500.0;
    EXPECT_NEAR(barLength(sheet), 20.0, 1e-9);
}

TEST_F(SheetTest, TheLegendNamesTheLayersThatShow)
{
    scene.addLayer(QStringLiteral("Сваи"), 1);
    scene.addLayer(QStringLiteral("Далеко"), 3);
    scene.add(new NcDbLine({0, 0, 0}, {10, 0, 0}), QStringLiteral("Сваи"));
    scene.add(new NcDbLine({5000, 0, 0}, {5010, 0, 0}), QStringLiteral("Далеко"));
    Sheet sheet;
    const std::vector<Sheet::Sign> signs = signsOf(list(), sheet);
    ASSERT_EQ(signs.size(), 1u);
    EXPECT_EQ(signs[0].text, QStringLiteral("Сваи"));
    EXPECT_EQ(signs[0].color, QColor(255, 0, 0));
    EXPECT_EQ(signs[0].kind, Sheet::Sign::Line);
}

TEST_F(SheetTest, WhatCannotBeWrittenIsTold)
{
    EXPECT_FALSE(writeSheet(Sheet(), list(), QStringLiteral("/proc/нельзя/a.pdf")).isEmpty());
}
