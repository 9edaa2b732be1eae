// Which entities show, where, in which order and colour.
#include "scene.h"

#include <drawing/host_access.h>

#include <gtest/gtest.h>

#include <cmath>

namespace {

NcDbLine* line(double x1, double y1, double x2, double y2) { return new NcDbLine({x1, y1, 0.0}, {x2, y2, 0.0}); }

QPointF firstPoint(const Figure& figure) { return figure.polygons.front().front(); }

} // namespace

TEST(DrawingWalker, EntitiesComeInTheOrderOfTheirMakingWithTheirSource)
{
    Scene scene;
    const NcDbObjectId first = scene.add(line(0, 0, 1, 0)), second = scene.add(line(5, 5, 6, 6));
    const DisplayList list = scene.record();
    ASSERT_EQ(list.figures().size(), 2u);
    EXPECT_EQ(list.figures()[0].source, first);
    EXPECT_EQ(list.figures()[1].source, second);
    EXPECT_EQ(firstPoint(list.figures()[1]), QPointF(5, 5));
    EXPECT_EQ(list.box(), QRectF(0, 0, 6, 6));
}

TEST(DrawingWalker, ErasedAndInvisibleEntitiesDoNotShow)
{
    Scene scene;
    scene.erase(scene.add(line(0, 0, 1, 0)));
    auto* hidden = line(0, 0, 1, 1);
    hidden->setVisible(false);
    scene.add(hidden);
    EXPECT_TRUE(scene.record().figures().empty());
}

TEST(DrawingWalker, LayersThatAreOffOrFrozenDoNotShow)
{
    Scene scene;
    scene.addLayer(QStringLiteral("A"), 1);
    scene.addLayer(QStringLiteral("B"), 2);
    scene.add(line(0, 0, 1, 0), QStringLiteral("A"));
    scene.add(line(0, 0, 1, 0), QStringLiteral("B"));
    EXPECT_EQ(scene.record().figures().size(), 2u);
    scene.setLayer(QStringLiteral("A"), true, false);
    EXPECT_EQ(scene.record().figures().size(), 1u);
    scene.setLayer(QStringLiteral("B"), false, true);
    EXPECT_TRUE(scene.record().figures().empty());
}

TEST(DrawingWalker, ColoursComeFromTheEntityOrItsLayer)
{
    Scene scene;
    scene.addLayer(QStringLiteral("A"), 1);
    scene.add(line(0, 0, 1, 0), QStringLiteral("A"));
    scene.add(line(0, 0, 1, 0), QStringLiteral("A"), 5);
    auto* exact = line(0, 0, 1, 0);
    scene.add(exact, QStringLiteral("A"));
    NcDbEntity* entity = nullptr;
    ncdbOpenObject(entity, exact->objectId(), kForWrite);
    entity->setColor(NcCmColor::fromRGB(1, 2, 3));
    entity->close();
    scene.add(line(0, 0, 1, 0));
    const auto figures = scene.record().figures();
    ASSERT_EQ(figures.size(), 4u);
    EXPECT_EQ(figures[0].color, QColor(255, 0, 0));
    EXPECT_EQ(figures[1].color, QColor(0, 0, 255));
    EXPECT_EQ(figures[2].color, QColor(1, 2, 3));
    EXPECT_FALSE(figures[2].foreground);
    EXPECT_TRUE(figures[3].foreground) << "colour 7 of layer 0 follows the paper";
}

TEST(DrawingWalker, ABlockIsPlacedTurnedAndScaled)
{
    Scene scene;
    scene.addToBlock(QStringLiteral("mark"), line(1, 0, 2, 0));
    scene.insert(QStringLiteral("mark"), {10, 20, 0}, 3.0, M_PI / 2);
    const auto figures = scene.record().figures();
    ASSERT_EQ(figures.size(), 1u);
    EXPECT_NEAR(firstPoint(figures[0]).x(), 10.0, 1e-9);
    EXPECT_NEAR(firstPoint(figures[0]).y(), 23.0, 1e-9);
}

TEST(DrawingWalker, BlocksInsideOfBlocksBelongToTheOuterReference)
{
    Scene scene;
    scene.addToBlock(QStringLiteral("inner"), line(0, 0, 1, 0));
    scene.addToBlock(QStringLiteral("outer"), new NcDbBlockReference({5, 0, 0}, scene.block(QStringLiteral("inner"))));
    const NcDbObjectId reference = scene.insert(QStringLiteral("outer"), {100, 0, 0}, 2.0);
    const auto figures = scene.record().figures();
    ASSERT_EQ(figures.size(), 1u);
    EXPECT_EQ(firstPoint(figures[0]), QPointF(110, 0));
    EXPECT_EQ(figures[0].source, reference);
}

TEST(DrawingWalker, ByBlockAndLayerZeroFollowTheReference)
{
    Scene scene;
    scene.addLayer(QStringLiteral("A"), 3);
    scene.addLayer(QStringLiteral("B"), 1);
    scene.addToBlock(QStringLiteral("mark"), line(0, 0, 1, 0), QStringLiteral("0"), 0);
    scene.addToBlock(QStringLiteral("mark"), line(0, 0, 1, 0), QStringLiteral("0"), 256);
    scene.addToBlock(QStringLiteral("mark"), line(0, 0, 1, 0), QStringLiteral("B"), 256);
    auto* reference = new NcDbBlockReference({0, 0, 0}, scene.block(QStringLiteral("mark")));
    scene.add(reference, QStringLiteral("A"), 5);
    const auto figures = scene.record().figures();
    ASSERT_EQ(figures.size(), 3u);
    EXPECT_EQ(figures[0].color, QColor(0, 0, 255)) << "by block";
    EXPECT_EQ(figures[1].color, QColor(0, 255, 0)) << "layer 0 is the reference's layer";
    EXPECT_EQ(figures[2].color, QColor(255, 0, 0)) << "a layer of its own";
}

TEST(DrawingWalker, VisibleAttributesShowAndDefinitionsDoNot)
{
    Scene scene;
    auto* definition = new NcDbAttributeDefinition;
    definition->setTag(QStringLiteral("NAME"));
    definition->setTextString(QStringLiteral("имя"));
    scene.addToBlock(QStringLiteral("mark"), definition);
    auto* constant = new NcDbAttributeDefinition;
    constant->setTag(QStringLiteral("TYPE"));
    constant->setTextString(QStringLiteral("тип"));
    constant->setConstant(true);
    scene.addToBlock(QStringLiteral("mark"), constant);
    const NcDbObjectId reference = scene.insert(QStringLiteral("mark"), {10, 10, 0});
    scene.addAttribute(reference, QStringLiteral("NAME"), QStringLiteral("ТС.1"), {12, 10, 0}, 2.0);
    scene.addAttribute(reference, QStringLiteral("ID"), QStringLiteral("17"), {12, 8, 0}, 2.0, true);
    EXPECT_EQ(textsOf(scene.record()), (QStringList{QStringLiteral("тип"), QStringLiteral("ТС.1")}));
}

TEST(DrawingWalker, TheDrawOrderOfTheBlockDecides)
{
    Scene scene;
    const NcDbObjectId first = scene.add(line(0, 0, 1, 0)), second = scene.add(line(0, 0, 2, 0));
    NcDbBlockTableRecord* space = nullptr;
    NcDbSortentsTable* order = nullptr;
    ncdbOpenObject(space, scene.block(QStringLiteral("*Model_Space")), kForWrite);
    space->getSortentsTable(order);
    order->moveToBottom({second});
    order->close();
    space->close();
    const DisplayList list = scene.record();
    ASSERT_EQ(list.figures().size(), 2u);
    EXPECT_EQ(list.figures()[0].source, second);
    EXPECT_EQ(list.figures()[1].source, first);
}

TEST(DrawingWalker, ABlockThatHoldsItselfEnds)
{
    Scene scene;
    scene.addToBlock(QStringLiteral("loop"), line(0, 0, 1, 0));
    scene.addToBlock(QStringLiteral("loop"), new NcDbBlockReference({1, 0, 0}, scene.block(QStringLiteral("loop"))));
    scene.insert(QStringLiteral("loop"), {0, 0, 0});
    const size_t count = scene.record().figures().size();
    EXPECT_GE(count, 1u);
    EXPECT_LE(count, 40u);
}

TEST(DrawingWalker, AViewportShowsModelSpaceToItsScaleTurnedAndClipped)
{
    Scene scene;
    scene.add(line(10, 0, 20, 0));
    auto* viewport = new NcDbViewport;
    scene.addToBlock(QStringLiteral("*Paper_Space"), viewport);
    NcDbViewport* opened = nullptr;
    ncdbOpenObject(opened, viewport->objectId(), kForWrite);
    opened->setGeometry({100, 100, 0}, 50, 40);
    opened->setView({0, 10}, 80);
    opened->setTwistAngle(M_PI / 2);
    opened->close();
    const auto figures = scene.record(QStringLiteral("*Paper_Space")).figures();
    ASSERT_EQ(figures.size(), 2u);
    EXPECT_EQ(figures[0].source, viewport->objectId());
    EXPECT_NEAR(firstPoint(figures[0]).x(), 100.0, 1e-9);
    EXPECT_NEAR(firstPoint(figures[0]).y(), 100.0, 1e-9) << "(10,0) turned is (0,10), the view's centre";
    EXPECT_NEAR(figures[0].polygons[0][1].y(), 105.0, 1e-9) << "at one half";
    ASSERT_TRUE(figures[0].clip);
    EXPECT_EQ(figures[0].clip->boundingRect(), QRectF(75, 80, 50, 40));
    EXPECT_EQ(figures[1].polygons[0].boundingRect(), QRectF(75, 80, 50, 40));
}

TEST(DrawingWalker, PickingTakesTheTopmostLineBeforeAnyFill)
{
    Scene scene;
    const NcDbObjectId below = scene.add(line(0, 5, 10, 5));
    auto* hatch = new NcDbHatch;
    hatch->appendLoop(NcDbHatch::kExternal, {{0, 0}, {10, 0}, {10, 10}, {0, 10}}, {0, 0, 0, 0});
    hatch->appendLoop(NcDbHatch::kDefault, {{6, 6}, {8, 6}, {8, 8}, {6, 8}}, {0, 0, 0, 0});
    const NcDbObjectId fill = scene.add(hatch);
    const DisplayList list = scene.record();
    EXPECT_EQ(list.hit({3, 5.05}, 0.1), below);
    EXPECT_EQ(list.hit({3, 3}, 0.1), fill);
    EXPECT_TRUE(list.hit({7, 7}, 0.1).isNull()) << "in the hole";
    EXPECT_TRUE(list.hit({20, 20}, 0.1).isNull());
    EXPECT_EQ(list.inside(QRectF(-1, 4, 12, 2)), (NcDbObjectIdArray{below}));
    EXPECT_EQ(list.inside(QRectF(-1, 4, 12, 2), true).size(), 2u);
}

// No file brings such a block, but a module may make one.
TEST(DrawingWalker, aBlockThatHoldsItselfIsShownOnce)
{
    Scene scene;
    scene.addToBlock("A", new NcDbLine({0, 0, 0}, {1, 0, 0}));
    for (int i = 0; i < 3; ++i)
        scene.addToBlock("A", new NcDbBlockReference({1, 0, 0}, scene.block("A")));
    const NcDbObjectId reference = scene.insert("A", {0, 0, 0});
    EXPECT_EQ(scene.record().figures().size(), 1u);
    const auto* object = HostAccess::objectAs<NcDbBlockReference>(reference);
    ASSERT_NE(object, nullptr);
    EXPECT_TRUE(object->extents().has_value());
    EXPECT_EQ(object->extents()->max.x, 1.0);
}

// A map lies under the wells: a window in it means the wells.
TEST(DisplayListPicking, ACrossingWindowTouchesAFillAtItsRim)
{
    Scene scene;
    NcDbHatch* hatch = square(-50, -50, 100);
    hatch->evaluateHatch();
    const NcDbObjectId map = scene.add(hatch);
    const NcDbObjectId well = scene.add(new NcDbCircle({0, 0, 0}, NcGeVector3d::kZAxis, 1.0));
    const NcDbObjectId border = scene.add(new NcDbLine({-50, -20, 0}, {20, 50, 0}));
    const DisplayList list = scene.record();
    EXPECT_EQ(list.inside(QRectF(-5, -5, 5, 10), true), NcDbObjectIdArray{well});
    EXPECT_EQ(list.inside(QRectF(-5, -5, 10, 10), false), NcDbObjectIdArray{well});
    EXPECT_EQ(list.inside(QRectF(-60, -60, 20, 20), true), NcDbObjectIdArray{map});
    EXPECT_EQ(list.inside(QRectF(-1, 25, 5, 5), true), NcDbObjectIdArray{border}) << "by the line, not by its box";
    EXPECT_EQ(list.inside(QRectF(-20, -20, 5, 5), true), NcDbObjectIdArray());
    EXPECT_EQ(list.hits({1.0, 0.0}, 0.5), (NcDbObjectIdArray{well, map}));
    EXPECT_EQ(list.only({well}).sources(), NcDbObjectIdArray{well});
}
