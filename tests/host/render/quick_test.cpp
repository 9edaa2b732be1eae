// The picture of the screen: small things as dots and bars, and piece by piece.
#include "scene.h"

#include <render/figure_painter.h>

#include <QImage>
#include <gtest/gtest.h>

#include <array>
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

// Characters that were painted once and are copied since: as dark, as large and, to an eighth of a dot, where
// their outlines lie, at each scale and on each ground, turned and slanted too.
TEST_F(QuickTest, CopiedTextsLieWhereTheirOutlinesDo)
{
    const auto ink = [](const QImage& image, const QColor& ground) {
        const QImage grays = image.convertToFormat(QImage::Format_Grayscale8);
        double sum = 0.0, x = 0.0, y = 0.0;
        for (int row = 0; row < grays.height(); ++row) {
            const uchar* line = grays.constScanLine(row);
            for (int column = 0; column < grays.width(); ++column) {
                const double dark = std::abs(line[column] - qGray(ground.rgb()));
                sum += dark;
                x += dark * column;
                y += dark * row;
            }
        }
        return std::array<double, 3>{sum, x / sum, y / sum};
    };
    std::mt19937 random(11);
    for (int round = 0; round < 12; ++round) {
        Scene one;
        const double height = 4.0 + 0.37 * (random() % 40), angle = round % 3 ? 0.0 : 0.1 * double(random() % 60);
        const NcGePoint3d at(30 + 0.01 * (random() % 300), 150 + 0.01 * (random() % 300), 0);
        one.add(new NcDbText(at, QStringLiteral("Т-8,5"), height, angle), QStringLiteral("0"), 7);
        for (const QColor& ground : {QColor(Qt::white), kPaper}) {
            for (const double ratio : {1.0, 1.5, 2.0}) {
                const auto paint = [&](bool quick) {
                    QImage image((QSizeF(120, 120) * ratio).toSize(), QImage::Format_RGB32);
                    image.fill(ground);
                    QPainter painter(&image);
                    painter.scale(ratio, ratio);
                    PaintStyle look = style(quick);
                    look.paper = ground;
                    paintFigures(one.record(), painter, toScreen(), look);
                    return image;
                };
                const auto copied = ink(paint(true), ground), outlined = ink(paint(false), ground);
                ASSERT_GT(outlined[0], 1000.0);
                EXPECT_NEAR(copied[0] / outlined[0], 1.0, 0.06) << round << ' ' << ratio;
                EXPECT_NEAR(copied[1], outlined[1], 0.2) << round << ' ' << ratio;
                EXPECT_NEAR(copied[2], outlined[2], 0.2) << round << ' ' << ratio;
            }
        }
    }
}

TEST_F(QuickTest, ACopiedTextHasARimOnALightGround)
{
    scene.add(square(20, 20, 160), QStringLiteral("0"), 5);
    scene.add(new NcDbText({60, 100, 0}, QStringLiteral("ТС"), 20.0), QStringLiteral("0"), 7);
    PaintStyle look = style(true);
    look.paper = Qt::white;
    const QImage image = painted(scene.record(), look);
    int white = 0, black = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 40; x < 160; ++x) {
            white += y > 60 && y < 140 && image.pixelColor(x, y) == QColor(Qt::white);
            black += image.pixelColor(x, y) == QColor(Qt::black);
        }
    EXPECT_GT(black, 80);
    EXPECT_GT(white, 150) << "it keeps it readable over the fill";
}

// Where dots cannot be copied as they are, the outline is painted.
TEST_F(QuickTest, APictureWithARatioOfItsOwnShowsTextsToo)
{
    scene.add(new NcDbText({60, 100, 0}, QStringLiteral("ТС"), 20.0), QStringLiteral("0"), 3);
    QImage image(400, 400, QImage::Format_RGB32);
    image.setDevicePixelRatio(2.0);
    image.fill(kPaper);
    {
        QPainter painter(&image);
        paintFigures(scene.record(), painter, toScreen(), style(true));
    }
    EXPECT_GT(inked(image), 500);
}

TEST_F(QuickTest, TurnedTextsKeepTheirBoxes)
{
    scene.add(new NcDbText({100, 100, 0}, QStringLiteral("12345"), 10.0, M_PI / 4.0));
    const Figure text = scene.record().figures().front();
    const QRectF outline = textOutline(text.text).boundingRect();
    EXPECT_NEAR(text.box.width(), outline.width(), 1e-9);
    EXPECT_NEAR(text.box.height(), outline.height(), 1e-9);
}
