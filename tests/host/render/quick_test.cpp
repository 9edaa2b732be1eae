// The picture of the screen: small things as dots and bars, and piece by piece.
#include "scene.h"

#include <render/figure_painter.h>

#include <QImage>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

const QColor kPaper(30, 36, 42);

class QuickTest : public ::testing::Test {
protected:
    // A dot of the screen is a unit of the world; the upper left corner is at 0, 200.
    static QTransform toScreen() { return fitWindow(QRectF(0, 0, 200, 200), QRectF(0, 0, 200, 200)); }
    static PaintStyle style(bool quick)
    {
        PaintStyle look;
        look.paper = kPaper;
        look.quick = quick;
        return look;
    }
    static QImage paper()
    {
        QImage image(200, 200, QImage::Format_RGB32);
        image.fill(kPaper);
        return image;
    }
    static QImage painted(const DisplayList& list, const PaintStyle& look)
    {
        QImage image = paper();
        QPainter painter(&image);
        paintFigures(list, painter, toScreen(), look);
        return image;
    }
    QImage quick() { return painted(scene.record(), style(true)); }

    static int inked(const QImage& image)
    {
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += image.pixelColor(x, y) != kPaper;
        return count;
    }
    // How far two pictures are from each other: the mean over their dots, of 255.
    static double distance(const QImage& a, const QImage& b)
    {
        double sum = 0.0;
        for (int y = 0; y < a.height(); ++y)
            for (int x = 0; x < a.width(); ++x)
                sum += std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y)));
        return sum / (a.width() * a.height());
    }
    NcDbHatch* square(double left, double bottom, double size)
    {
        auto* hatch = new NcDbHatch;
        hatch->appendLoop(NcDbHatch::kExternal,
                          {{left, bottom}, {left + size, bottom}, {left + size, bottom + size}, {left, bottom + size}},
                          {0, 0, 0, 0});
        return hatch;
    }
    void addMany(int count)
    {
        std::mt19937 random(5);
        const auto somewhere = [&random] { return NcGePoint3d(random() % 200, random() % 200, 0); };
        for (int i = 0; i < count; ++i) {
            const NcGePoint3d at = somewhere();
            switch (i % 4) {
            case 0: scene.add(new NcDbLine(at, somewhere()), QStringLiteral("0"), 1 + i % 7); break;
            case 1: scene.add(new NcDbText(at, QString::number(i), 1.0 + i % 9), QStringLiteral("0"), 3); break;
            case 2: scene.add(new NcDbCircle(at, NcGeVector3d::kZAxis, 0.3 + i % 8), QStringLiteral("0"), 2); break;
            default: scene.add(square(at.x, at.y, 0.5 + i % 5), QStringLiteral("0"), 4); break;
            }
        }
    }

    Scene scene;
};

} // namespace

TEST_F(QuickTest, WhatIsSmallerThanADotIsOne)
{
    scene.add(new NcDbCircle({50.4, 60.4, 0}, NcGeVector3d::kZAxis, 0.4), QStringLiteral("0"), 2);
    const QImage image = quick();
    EXPECT_EQ(inked(image), 1);
    EXPECT_EQ(image.pixelColor(50, 139), QColor(255, 255, 0));
}

TEST_F(QuickTest, WhatLiesOutsideLeavesNothing)
{
    scene.add(new NcDbCircle({-5, 60, 0}, NcGeVector3d::kZAxis, 0.4), QStringLiteral("0"), 1);
    scene.add(new NcDbCircle({60, 500, 0}, NcGeVector3d::kZAxis, 0.4), QStringLiteral("0"), 1);
    EXPECT_EQ(inked(quick()), 0);
}

TEST_F(QuickTest, DotsKeepTheirPlaceInTheOrder)
{
    const auto dot = [this](double x) {
        scene.add(new NcDbCircle({x, 100.4, 0}, NcGeVector3d::kZAxis, 0.4), QStringLiteral("0"), 2);
    };
    dot(90.4);
    dot(110.4);
    scene.add(square(80, 80, 40), QStringLiteral("0"), 5);
    dot(110.4);
    const QImage image = quick();
    EXPECT_EQ(image.pixelColor(90, 99), QColor(0, 0, 255)) << "the fill hides what lay below";
    EXPECT_EQ(image.pixelColor(110, 99), QColor(255, 255, 0)) << "and not what lies above";
}

TEST_F(QuickTest, LinesOfOneColourDoNotGoBelowAFill)
{
    scene.add(new NcDbLine({10, 50.5, 0}, {190, 50.5, 0}), QStringLiteral("0"), 1);
    scene.add(square(80, 30, 40), QStringLiteral("0"), 5);
    scene.add(new NcDbLine({10, 60.5, 0}, {190, 60.5, 0}), QStringLiteral("0"), 1);
    const QImage image = quick();
    EXPECT_EQ(image.pixelColor(100, 149), QColor(0, 0, 255));
    EXPECT_GT(image.pixelColor(20, 149).red(), 200);
    EXPECT_GT(image.pixelColor(100, 139).red(), 200);
}

TEST_F(QuickTest, ATextTooSmallToBeReadIsABar)
{
    scene.add(new NcDbText({20, 100, 0}, QStringLiteral("Скважина"), 2.0), QStringLiteral("0"), 1);
    const QImage image = quick();
    int rows = 0, widest = 0;
    for (int y = 0; y < image.height(); ++y) {
        int row = 0;
        for (int x = 0; x < image.width(); ++x)
            row += image.pixelColor(x, y) != kPaper;
        rows += row > 0;
        widest = std::max(widest, row);
    }
    EXPECT_LE(rows, 2);
    EXPECT_NEAR(widest, 2.0 * unitTextWidth(QStringLiteral("Скважина")), 3.0);
}

TEST_F(QuickTest, WhatCanBeReadLooksAsItDoesOnPaper)
{
    scene.add(square(20, 20, 100), QStringLiteral("0"), 5);
    scene.add(new NcDbText({30, 60, 0}, QStringLiteral("ТС-12"), 14.0), QStringLiteral("0"), 2);
    scene.add(new NcDbCircle({140, 140, 0}, NcGeVector3d::kZAxis, 40), QStringLiteral("0"), 3);
    scene.add(new NcDbLine({10, 10, 0}, {190, 150, 0}), QStringLiteral("0"), 1);
    PaintStyle exact = style(false);
    exact.thinWidth = exact.lineWidth;
    EXPECT_LT(distance(quick(), painted(scene.record(), exact)), 0.6);
}

TEST_F(QuickTest, PieceByPieceGivesTheSamePicture)
{
    addMany(3000);
    const DisplayList list = scene.record();
    for (const bool isQuick : {true, false}) {
        const PaintStyle look = style(isQuick);
        QImage image = paper();
        int pieces = 1;
        {
            QPainter painter(&image);
            FigurePainting painting(list, painter, toScreen(), look);
            while (!painting.paint(1))
                ++pieces;
        }
        EXPECT_GT(pieces, 3) << isQuick;
        EXPECT_EQ(image, painted(list, look)) << isQuick;
    }
}

TEST_F(QuickTest, WhatIsPickedShowsHoweverSmall)
{
    const NcDbObjectId small = scene.add(new NcDbCircle({50, 60, 0}, NcGeVector3d::kZAxis, 0.4));
    PaintStyle look = style(true);
    look.selected.insert(small);
    const QImage image = painted(scene.record(), look);
    EXPECT_GT(inked(image), 4);
}

TEST_F(QuickTest, TurnedTextsKeepTheirBoxes)
{
    scene.add(new NcDbText({100, 100, 0}, QStringLiteral("12345"), 10.0, M_PI / 4.0));
    const Figure text = scene.record().figures().front();
    const QRectF outline = textOutline(text.text).boundingRect();
    EXPECT_NEAR(text.box.width(), outline.width(), 1e-9);
    EXPECT_NEAR(text.box.height(), outline.height(), 1e-9);
}
