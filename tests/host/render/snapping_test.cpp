// Points to which a picked point jumps, and the directions that hold it.
#include "scene.h"

#include <render/snapping.h>

#include <gtest/gtest.h>

#include <cmath>

namespace {

std::optional<SnapPoint> snapAt(Scene& scene, double x, double y, double tolerance = 1.0)
{
    return snapPoint(scene.record(), {x, y}, tolerance);
}

void expectSnap(Scene& scene, double x, double y, SnapPoint::Kind kind, double toX, double toY)
{
    const auto snap = snapAt(scene, x, y);
    ASSERT_TRUE(snap.has_value()) << x << ' ' << y;
    EXPECT_EQ(snap->kind, kind) << x << ' ' << y;
    EXPECT_NEAR(snap->at.x, toX, 1e-9);
    EXPECT_NEAR(snap->at.y, toY, 1e-9);
}

} // namespace

TEST(Snapping, FindsEndsMiddlesAndCrossings)
{
    Scene scene;
    scene.add(new NcDbLine({0, 0, 0}, {20, 0, 0}));
    scene.add(new NcDbLine({5, -10, 0}, {5, 6, 0}));
    expectSnap(scene, 0.5, 0.5, SnapPoint::End, 0, 0);
    expectSnap(scene, 10.4, -0.3, SnapPoint::Middle, 10, 0);
    expectSnap(scene, 5.3, 0.4, SnapPoint::Intersection, 5, 0);
    EXPECT_FALSE(snapAt(scene, 15, 0.2).has_value()) << "a line has more points than those";
    EXPECT_FALSE(snapAt(scene, 0.5, 0.5, 0.1).has_value());
}

TEST(Snapping, FindsNodesPlacesAndCentres)
{
    Scene scene;
    scene.add(new NcDbPoint({1, 1, 0}));
    scene.add(new NcDbCircle({50, 50, 0}, NcGeVector3d::kZAxis, 0.8));
    scene.addToBlock("well", new NcDbCircle({0, 0, 0}, NcGeVector3d::kZAxis, 1.0));
    scene.insert("well", {30, 30, 0});
    expectSnap(scene, 1.2, 1.2, SnapPoint::Node, 1, 1);
    expectSnap(scene, 50.2, 50.0, SnapPoint::Center, 50, 50);
    expectSnap(scene, 30.5, 30.5, SnapPoint::Insertion, 30, 30);
}

TEST(Snapping, TheMiddleOfAnArcLiesOnTheArc)
{
    Scene scene;
    auto* line = new NcDbPolyline;
    line->addVertexAt(0, {0, 0}, 1.0); // half a circle, below the chord
    line->addVertexAt(1, {10, 0});
    scene.add(line);
    expectSnap(scene, 5.2, -4.9, SnapPoint::Middle, 5, -5);
}

TEST(Snapping, TheNearestGoesFirst)
{
    Scene scene;
    scene.add(new NcDbLine({0, 0, 0}, {1, 0, 0}));
    expectSnap(scene, 0.1, 0, SnapPoint::End, 0, 0);
    expectSnap(scene, 0.6, 0, SnapPoint::Middle, 0.5, 0);
}

TEST(Snapping, OrthoAndPolarHoldToTheUsersAxes)
{
    const NcGePoint3d base(1, 1, 0);
    NcGePoint3d p = orthoPoint(base, {6, 2, 0}, 0.0);
    EXPECT_NEAR(p.x, 6.0, 1e-12);
    EXPECT_NEAR(p.y, 1.0, 1e-12);
    p = orthoPoint(base, {2, 4, 0}, M_PI / 4.0);
    EXPECT_NEAR(p.x - 1.0, p.y - 1.0, 1e-12) << "the axes are turned by 45 degrees";
    bool held = false;
    p = polarPoint(base, {11, 6.5, 0}, 0.0, 15.0, held);
    EXPECT_TRUE(held);
    EXPECT_NEAR(std::atan2(p.y - 1.0, p.x - 1.0), M_PI / 6.0, 1e-9);
    p = polarPoint(base, {11, 4.8, 0}, 0.0, 15.0, held);
    EXPECT_FALSE(held) << "between two directions the point is free";
    EXPECT_EQ(p.y, 4.8);
}
