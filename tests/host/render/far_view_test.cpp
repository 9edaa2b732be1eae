// Drawings in the coordinates of a state's grid, and far beyond: what stands a millimetre apart is seen
// apart, and stays where it is when the view moves.
#include "scene.h"

#include <render/figure_painter.h>

#include <QImage>
#include <QPainter>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

constexpr double height = 0.01; // of the view; a hundredth is a pixel
constexpr int pixels = 100;

// The columns in the middle row that are not paper, of a view from `left`.
QVector<int> columns(const DisplayList& list, double left, double bottom)
{
    QImage image(pixels, pixels, QImage::Format_RGB32);
    image.fill(Qt::white);
    const double scale = pixels / height;
    QPainter painter(&image);
    paintFigures(list, painter, QTransform(scale, 0, 0, -scale, -left * scale, pixels + bottom * scale), {});
    painter.end();
    QVector<int> found;
    for (int x = 0; x < pixels; ++x) {
        if (image.pixelColor(x, pixels / 2).lightness() < 128)
            found << x;
    }
    return found;
}

NcDbLine* upright(double x, double y) { return new NcDbLine({x, y - 1, 0}, {x, y + 1, 0}); }

} // namespace

class FarView : public ::testing::TestWithParam<double> { };

TEST_P(FarView, IsSteadyToAMillimetre)
{
    const double far = GetParam();
    Scene scene;
    scene.add(upright(far + 0.004, far), "0", 7);
    scene.add(upright(far + 0.005, far), "0", 7);
    const DisplayList list = scene.record();
    const QVector<int> met = columns(list, far, far - height / 2);
    ASSERT_GE(met.size(), 2);
    EXPECT_NEAR(met.first(), 40, 1);
    EXPECT_NEAR(met.last(), 50, 1);
    EXPECT_FALSE(met.contains(45)) << "one millimetre apart";
    // A step of the view to the left is a step of the picture to the right.
    const QVector<int> moved = columns(list, far - 0.002, far - height / 2);
    ASSERT_EQ(moved.size(), met.size());
    for (int i = 0; i < met.size(); ++i)
        EXPECT_NEAR(moved[i], met[i] + 20, 1);
}

INSTANTIATE_TEST_SUITE_P(All, FarView, ::testing::Values(0.0, 4.5e6, 1e9));

TEST(FarthestView, IsDrawnWithoutHarm)
{
    for (const double far : {1e15, 1e-9, 1e300}) {
        Scene scene;
        scene.add(upright(far, far), "0", 7);
        scene.add(new NcDbCircle({far, far, 0}, {0, 0, 1}, far), "0", 7);
        const QRectF box = scene.record().box();
        EXPECT_TRUE(std::isfinite(box.x()) && std::isfinite(box.width())) << far;
        columns(scene.record(), far, far);
    }
}

TEST(FarthestView, WhatIsNoNumberIsNotDrawn)
{
    for (const double none : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        Scene scene;
        scene.add(upright(1, 1), "0", 7);
        scene.add(upright(none, 1), "0", 7);
        scene.add(new NcDbCircle({none, 1, 0}, {0, 0, 1}, 1), "0", 7);
        scene.add(new NcDbCircle({1, 1, 0}, {0, 0, 1}, none), "0", 7);
        const QRectF box = scene.record().box();
        EXPECT_TRUE(std::isfinite(box.x()) && std::isfinite(box.width()) && std::isfinite(box.height())) << none;
        EXPECT_LT(box.width(), 10.0);
    }
}
