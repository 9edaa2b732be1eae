// What the editing commands do to entities, and grips.
#include "drawing_fixture.h"

#include <drawing/edit_operations.h>
#include <drawing/grips.h>
#include <drawing/groups.h>

#include <cmath>

namespace {

// A dynamic block with a leader to a label, a turned mark, a flip and a choice.
void makeLabelled(NcDbObjectId block, NcDbObjectId leader, NcDbObjectId shelf)
{
    auto definition = std::make_unique<DynamicDefinition>();
    const QStringList lines{QStringLiteral("parameter|X|40|2"),
                            QStringLiteral("parameter|Y|40|1"),
                            QStringLiteral("parameter|Angle|40|0"),
                            QStringLiteral("parameter|Long|40|10"),
                            QStringLiteral("parameter|Flip|70|0|0|1"),
                            QStringLiteral("parameter|State|1|shown|shown|hidden"),
                            QStringLiteral("stretch|%1|X|Y|1").arg(leader.handle(), 0, 16),
                            QStringLiteral("length|%1|Long|1|1|0").arg(shelf.handle(), 0, 16),
                            QStringLiteral("mirror|%1|Flip|0|0|0|1").arg(shelf.handle(), 0, 16),
                            QStringLiteral("move|%1|X|Y").arg(shelf.handle(), 0, 16),
                            QStringLiteral("visible|%1|State|shown").arg(leader.handle(), 0, 16),
                            QStringLiteral("rotate|%1|Angle|0|0").arg(leader.handle(), 0, 16)};
    EXPECT_TRUE(parseDynamicDefinition(lines, *definition));
    HostAccess::dynamic(*HostAccess::objectAs<NcDbBlockTableRecord>(block)) = std::move(definition);
}

const Grip* gripOf(const std::vector<Grip>& grips, Grip::Kind kind)
{
    for (const Grip& grip : grips)
        if (grip.kind == kind)
            return &grip;
    return nullptr;
}

} // namespace

TEST_F(DrawingTest, MirroringIsAboutTheLine)
{
    const NcGeMatrix3d matrix = mirrorMatrix({1, 1, 0}, {2, 2, 0});
    expectPoint(matrix * NcGePoint3d(3, 0, 5), 0, 3, 5);
    expectPoint(matrix * NcGePoint3d(7, 7, 0), 7, 7, 0);
}

TEST_F(DrawingTest, ALockedLayerAndAnotherSpaceAreNotEdited)
{
    const NcDbObjectId layer = addLayer("locked");
    const NcDbObjectId free = add(new NcDbPoint({1, 0, 0}));
    auto* held = new NcDbPoint({2, 0, 0});
    held->setLayer("locked");
    const NcDbObjectId locked = add(held);
    change<NcDbLayerTableRecord>(layer, [](NcDbLayerTableRecord& record) { record.setIsLocked(true); });
    const NcDbObjectId paper = add(new NcDbPoint({3, 0, 0}), blockNamed("*Paper_Space"));
    EXPECT_EQ(editable(drawing, {free, locked, paper}), NcDbObjectIdArray{free});
    EXPECT_FALSE(pullGrip(locked, gripsOf(read<NcDbPoint>(locked))[0], {9, 9, 0}));
    EXPECT_EQ(read<NcDbPoint>(locked).position().x, 2.0);
}

TEST_F(DrawingTest, ACopyOfABlockKeepsItsAttributes)
{
    const NcDbObjectId block = addBlock("well");
    add(new NcDbCircle({0, 0, 0}, NcGeVector3d::kZAxis, 1.0), block);
    addTag(block, "element_id");
    const NcDbObjectId reference = insert(block, "element_id", "17", {5, 5, 0});
    const NcDbObjectIdArray copies = copyEntities(drawing, {reference}, NcGeMatrix3d::translation({10, 0, 0}));
    ASSERT_EQ(copies.size(), 1u);
    expectPoint(read<NcDbBlockReference>(copies[0]).position(), 15, 5);
    EXPECT_EQ(read<NcDbBlockReference>(copies[0]).blockTableRecord(), block);
    EXPECT_EQ(drawing.findBlockReferences("well", "element_id", "17"), (NcDbObjectIdArray{reference, copies[0]}));
}

TEST_F(DrawingTest, ABlockIsTakenApartAsItLooks)
{
    const NcDbObjectId block = addBlock("mark");
    addLayer("wells");
    auto* line = new NcDbLine({0, 0, 0}, {1, 0, 0});
    line->setColorIndex(0);
    add(line, block);
    addTag(block, "name");
    const NcDbObjectId reference = insert(block, "name", "м-1", {10, 0, 0});
    change<NcDbBlockReference>(reference, [](NcDbBlockReference& opened) {
        opened.setLayer("wells");
        opened.setColorIndex(3);
        opened.setRotation(M_PI / 2.0);
    });
    const NcDbObjectIdArray parts = explodeEntity(drawing, reference);
    ASSERT_EQ(parts.size(), 2u);
    EXPECT_TRUE(reference.isErased());
    expectPoint(read<NcDbLine>(parts[0]).endPoint(), 10, 1);
    EXPECT_EQ(read<NcDbLine>(parts[0]).layer(), "wells");
    EXPECT_EQ(read<NcDbLine>(parts[0]).colorIndex(), 3);
    EXPECT_EQ(read<NcDbText>(parts[1]).textString(), "м-1");
    EXPECT_TRUE(explodeEntity(drawing, parts[0]).empty()) << "a line has no parts";
    EXPECT_FALSE(parts[0].isErased());
}

TEST_F(DrawingTest, APolylineIsTakenApartIntoLinesAndArcs)
{
    auto* line = new NcDbPolyline;
    line->addVertexAt(0, {0, 0});
    line->addVertexAt(1, {2, 0}, 1.0); // half a circle to the right of the way up
    line->addVertexAt(2, {2, 2});
    line->setClosed(true);
    const NcDbObjectIdArray parts = explodeEntity(drawing, add(line));
    ASSERT_EQ(parts.size(), 3u);
    const auto& arc = read<NcDbArc>(parts[1]);
    expectPoint(arc.center(), 2, 1);
    EXPECT_NEAR(arc.radius(), 1.0, 1e-12);
    EXPECT_NEAR(std::sin(arc.startAngle()), -1.0, 1e-9);
    expectPoint(read<NcDbLine>(parts[2]).endPoint(), 0, 0);
}

TEST_F(DrawingTest, ParallelsKeepTheirDistance)
{
    const NcDbLine line({0, 0, 0}, {10, 0, 0});
    const auto left = offsetOf(line, 2.0, {5, 1, 0});
    expectPoint(static_cast<const NcDbLine&>(*left).endPoint(), 10, 2);
    const auto right = offsetOf(line, 2.0, {5, -1, 0});
    expectPoint(static_cast<const NcDbLine&>(*right).startPoint(), 0, -2);
    const NcDbCircle circle({0, 0, 0}, NcGeVector3d::kZAxis, 5.0);
    EXPECT_EQ(static_cast<const NcDbCircle&>(*offsetOf(circle, 2.0, {9, 0, 0})).radius(), 7.0);
    EXPECT_EQ(static_cast<const NcDbCircle&>(*offsetOf(circle, 2.0, {1, 0, 0})).radius(), 3.0);
    EXPECT_EQ(offsetOf(circle, 6.0, {1, 0, 0}), nullptr);
    EXPECT_EQ(offsetOf(line, 0.0, {5, 1, 0}), nullptr);
    EXPECT_EQ(offsetOf(NcDbPoint({0, 0, 0}), 1.0, {5, 1, 0}), nullptr);
}

TEST_F(DrawingTest, AParallelOfASquareIsASquare)
{
    NcDbPolyline square;
    for (const NcGePoint2d& p : {NcGePoint2d(0, 0), NcGePoint2d(10, 0), NcGePoint2d(10, 10), NcGePoint2d(0, 10)})
        square.addVertexAt(square.numVerts(), p);
    square.setClosed(true);
    AreaFigures figures;
    const auto inner = offsetOf(square, 1.0, {5, 5, 0}), outer = offsetOf(square, 1.0, {-5, 5, 0});
    ASSERT_TRUE(areaOf(*inner, figures));
    EXPECT_NEAR(figures.area, 64.0, 1e-9);
    ASSERT_TRUE(areaOf(*outer, figures));
    EXPECT_NEAR(figures.area, 144.0, 1e-9);
    EXPECT_NEAR(figures.length, 48.0, 1e-9);
    EXPECT_EQ(offsetOf(square, 6.0, {5, 5, 0}), nullptr) << "nothing is left inside";
}

TEST_F(DrawingTest, AreasCountArcsAndIslands)
{
    AreaFigures figures;
    NcDbPolyline disc; // two half circles
    disc.addVertexAt(0, {1e6, 0}, 1.0);
    disc.addVertexAt(1, {1e6 + 2, 0}, 1.0);
    disc.setClosed(true);
    ASSERT_TRUE(areaOf(disc, figures));
    EXPECT_NEAR(figures.area, M_PI, 1e-9);
    EXPECT_NEAR(figures.length, 2.0 * M_PI, 1e-9);
    NcDbHatch hatch;
    hatch.appendLoop(NcDbHatch::kExternal, {{0, 0}, {10, 0}, {10, 10}, {0, 10}}, {0, 0, 0, 0});
    hatch.appendLoop(NcDbHatch::kDefault, {{4, 4}, {6, 4}, {6, 6}, {4, 6}}, {0, 0, 0, 0});
    ASSERT_TRUE(areaOf(hatch, figures));
    EXPECT_NEAR(figures.area, 96.0, 1e-9);
    EXPECT_FALSE(areaOf(NcDbPoint({0, 0, 0}), figures));
    EXPECT_NEAR(areaOf({{0, 0, 0}, {4, 0, 0}, {0, 3, 0}}).area, 6.0, 1e-12);
    EXPECT_NEAR(areaOf({{0, 0, 0}, {4, 0, 0}, {0, 3, 0}}).length, 12.0, 1e-12);
}

TEST_F(DrawingTest, GripsPullLinesCirclesAndCorners)
{
    const NcDbObjectId line = add(new NcDbLine({0, 0, 0}, {10, 0, 0}));
    for (const Grip& grip : gripsOf(read<NcDbLine>(line)))
        if (grip.kind == Grip::Vertex && grip.index == 1) {
            EXPECT_TRUE(pullGrip(line, grip, {10, 5, 0}));
        }
    expectPoint(read<NcDbLine>(line).endPoint(), 10, 5);
    EXPECT_TRUE(pullGrip(line, *gripOf(gripsOf(read<NcDbLine>(line)), Grip::Place), {6, 2.5, 0}));
    expectPoint(read<NcDbLine>(line).startPoint(), 1, 0);
    const NcDbObjectId circle = add(new NcDbCircle({0, 0, 0}, NcGeVector3d::kZAxis, 1.0));
    EXPECT_TRUE(pullGrip(circle, *gripOf(gripsOf(read<NcDbCircle>(circle)), Grip::Radius), {0, 3, 0}));
    EXPECT_EQ(read<NcDbCircle>(circle).radius(), 3.0);
    auto* polyline = new NcDbPolyline;
    polyline->addVertexAt(0, {0, 0});
    polyline->addVertexAt(1, {1, 1}, 0.5);
    const NcDbObjectId corners = add(polyline);
    EXPECT_TRUE(pullGrip(corners, gripsOf(read<NcDbPolyline>(corners))[1], {2, 7, 0}));
    EXPECT_EQ(HostAccess::vertices(read<NcDbPolyline>(corners))[1].point, NcGePoint2d(2, 7));
    EXPECT_EQ(HostAccess::vertices(read<NcDbPolyline>(corners))[1].bulge, 0.5);
}

TEST_F(DrawingTest, GripsPullEveryParameterOfABlock)
{
    const NcDbObjectId block = addBlock("label");
    const NcDbObjectId leader = add(new NcDbLine({0, 0, 0}, {2, 1, 0}), block);
    const NcDbObjectId shelf = add(new NcDbLine({2, 1, 0}, {12, 1, 0}), block);
    makeLabelled(block, leader, shelf);
    const NcDbObjectId id = add(new NcDbBlockReference({100, 50, 0}, block));
    change<NcDbBlockReference>(id, [](NcDbBlockReference& opened) {
        opened.setRotation(M_PI / 2.0);
        opened.setScaleFactors({2, 2, 2});
    });
    const auto& reference = read<NcDbBlockReference>(id);
    const auto present = [&](const char* name) { return dynamicValue(reference, name); };
    const auto grip = [&](Grip::Kind kind) { return *gripOf(gripsOf(reference), kind); };

    expectPoint(grip(Grip::Pair).at, 98, 54); // (2, 1) turned and doubled
    EXPECT_TRUE(pullGrip(id, grip(Grip::Pair), {90, 60, 0}));
    EXPECT_NEAR(present("X").toDouble(), 5.0, 1e-9);
    EXPECT_NEAR(present("Y").toDouble(), 5.0, 1e-9);
    expectPoint(grip(Grip::Pair).at, 90, 60);

    const Grip length = grip(Grip::Length);
    EXPECT_TRUE(pullGrip(id, length, {90, 64, 0}));
    EXPECT_NEAR(present("Long").toDouble(), 2.0, 1e-9) << length.at.x << ' ' << length.at.y;
    EXPECT_TRUE(pullGrip(id, grip(Grip::Length), {90, 0, 0}));
    EXPECT_EQ(present("Long").toDouble(), 0.0) << "no shorter than nothing";

    EXPECT_TRUE(pullGrip(id, grip(Grip::Angle), {90, 50, 0}));
    EXPECT_NEAR(present("Angle").toDouble(), M_PI / 2.0, 1e-9);
    EXPECT_TRUE(turnGrip(id, grip(Grip::Flip)));
    EXPECT_EQ(present("Flip"), "1");
    EXPECT_TRUE(turnGrip(id, grip(Grip::Flip)));
    EXPECT_EQ(present("Flip"), "0");
    EXPECT_FALSE(turnGrip(id, grip(Grip::Pair)));

    QString value;
    EXPECT_EQ(gripChoices(id, grip(Grip::Choice), value), QStringList({"shown", "hidden"}));
    EXPECT_EQ(value, "shown");
    EXPECT_TRUE(chooseGrip(id, grip(Grip::Choice), "hidden"));
    EXPECT_FALSE(chooseGrip(id, grip(Grip::Choice), "none of them"));
    EXPECT_EQ(present("State"), "hidden");

    EXPECT_TRUE(pullGrip(id, grip(Grip::Place), {0, 0, 0}));
    expectPoint(reference.position(), 0, 0);
    EXPECT_NEAR(present("X").toDouble(), 5.0, 1e-9) << "a moved block keeps its label where it is to it";
}

TEST_F(DrawingTest, AGroupIsFoundByAnyMember)
{
    const NcDbObjectId first = add(new NcDbPoint({1, 0, 0})), second = add(new NcDbPoint({2, 0, 0}));
    const NcDbObjectId lonely = add(new NcDbPoint({3, 0, 0}));
    NcDbDictionary* groups = nullptr;
    ASSERT_EQ(drawing.getGroupDictionary(groups, kForWrite), NcStatus::Ok);
    auto* group = new NcDbGroup;
    NcDbObjectId id;
    ASSERT_EQ(groups->setAt("TERVA_DEF_1", group, id), NcStatus::Ok);
    group->append({first, second});
    group->close();
    groups->close();
    EXPECT_EQ(groupAround(drawing, second), (NcDbObjectIdArray{first, second}));
    EXPECT_EQ(groupAround(drawing, lonely), NcDbObjectIdArray{lonely});
    erase(first);
    EXPECT_EQ(groupAround(drawing, second), NcDbObjectIdArray{second});
}

TEST_F(DrawingTest, AttributesBecomeTextsForProgramsThatDrawNone)
{
    const NcDbObjectId block = addBlock("well");
    addTag(block, "name");
    addTag(block, "element_id");
    const NcDbObjectId reference = insert(block, "name", "скв-7", {5, 5, 0});
    const NcDbObjectId hidden = addAttribute(reference, "element_id", "7");
    change<NcDbAttribute>(hidden, [](NcDbAttribute& attribute) { attribute.setInvisible(true); });
    EXPECT_EQ(attributesToTexts(drawing), 1);
    const NcDbObjectIdArray& entities = HostAccess::entities(read<NcDbBlockTableRecord>(modelSpace()));
    ASSERT_EQ(entities.size(), 2u);
    EXPECT_EQ(read<NcDbText>(entities[1]).textString(), "скв-7");
    EXPECT_EQ(attributesToTexts(drawing), 0) << "they are shown once";
}
