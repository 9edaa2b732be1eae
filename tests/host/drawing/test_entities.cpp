#include "drawing_fixture.h"

#include <drawing/palette.h>

namespace {

class Entities : public DrawingTest { };

NcGeMatrix3d quarterTurn() { return NcGeMatrix3d::rotation(kPi / 2.0, NcGeVector3d::kZAxis); }

NcGeMatrix3d mirrorAtYAxis()
{
    NcGeMatrix3d matrix;
    matrix.entry[0][0] = -1.0;
    return matrix;
}

TEST(Geometry, RotationAndScalingKeepTheirCentre)
{
    const NcGePoint3d centre(10, 20, 0);
    expectPoint(NcGeMatrix3d::rotation(kPi / 2.0, NcGeVector3d::kZAxis, centre) * NcGePoint3d(11, 20, 0), 10, 21);
    expectPoint(NcGeMatrix3d::scaling(3.0, centre) * NcGePoint3d(11, 22, 5), 13, 26, 15);
}

TEST(Geometry, InverseUndoesAndASingularMatrixGivesTheIdentity)
{
    const NcGeMatrix3d matrix =
        NcGeMatrix3d::translation({1, 2, 3}) * NcGeMatrix3d::rotation(0.7, {1, 1, 1}) * NcGeMatrix3d::scaling(2.5);
    expectPoint(matrix.inverse() * (matrix * NcGePoint3d(4, 5, 6)), 4, 5, 6);
    EXPECT_EQ(NcGeMatrix3d::scaling(0.0).inverse(), NcGeMatrix3d());
}

TEST(Geometry, CoordinateSystemsGoInAndComeOut)
{
    NcGeMatrix3d matrix;
    matrix.setCoordSystem({1, 2, 3}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1});
    NcGePoint3d origin;
    NcGeVector3d x, y, z;
    matrix.getCoordSystem(origin, x, y, z);
    EXPECT_EQ(origin, NcGePoint3d(1, 2, 3));
    EXPECT_EQ(x, NcGeVector3d(0, 1, 0));
    expectPoint(matrix * NcGePoint3d(2, 0, 0), 1, 4, 3);
}

TEST(Geometry, WorldToPlaneBringsTheNormalUpright)
{
    NcGeMatrix3d matrix;
    const NcGeVector3d normal(1, 1, 0);
    const NcGeVector3d turned = matrix.setToWorldToPlane(normal) * normal.normal();
    EXPECT_NEAR(turned.z, 1.0, 1e-12);
    EXPECT_NEAR(matrix.setToWorldToPlane({0, 0, 1}).entry[0][0], 1.0, 1e-12);
}

TEST(Geometry, AnglesGoRoundTheAxis)
{
    EXPECT_NEAR(NcGeVector3d::kXAxis.angleTo(NcGeVector3d::kYAxis, NcGeVector3d::kZAxis), kPi / 2.0, 1e-12);
    EXPECT_NEAR(NcGeVector3d::kYAxis.angleTo(NcGeVector3d::kXAxis, NcGeVector3d::kZAxis), 1.5 * kPi, 1e-12);
    EXPECT_EQ(NcGeVector3d().normal(), NcGeVector3d());
}

TEST(Colors, IndexesOutsideThePaletteAreRefused)
{
    NcCmColor color;
    EXPECT_EQ(color.setColorIndex(257), NcStatus::InvalidInput);
    EXPECT_EQ(color.setColorIndex(-1), NcStatus::InvalidInput);
    EXPECT_EQ(color.colorIndex(), 256);
    EXPECT_EQ(color.setColorIndex(0), NcStatus::Ok);
    EXPECT_EQ(color.method(), NcCmColorBase::kByBlock);
}

TEST(Colors, NamedColoursHaveTheirValues)
{
    const NcCmColor red = NcCmColor::fromIndex(1), blue = NcCmColor::fromIndex(5);
    EXPECT_EQ(red.red(), 255);
    EXPECT_EQ(red.green(), 0);
    EXPECT_EQ(blue.blue(), 255);
    EXPECT_EQ(NcCmColor::fromIndex(30).green(), 127) << "orange lies half way from red to yellow";
}

TEST(Colors, EveryPaletteColourIsNearestToItself)
{
    for (int index = 1; index <= 255; ++index) {
        const PaletteColor color = paletteColor(index);
        const PaletteColor found = paletteColor(nearestPaletteIndex(color.red, color.green, color.blue));
        EXPECT_TRUE(found.red == color.red && found.green == color.green && found.blue == color.blue) << index;
    }
}

TEST(Colors, ATrueColourGivesTheNearestIndex)
{
    EXPECT_EQ(NcCmColor::fromRGB(254, 1, 2).colorIndex(), 1);
    EXPECT_EQ(NcCmColor::fromRGB(255, 0, 0).method(), NcCmColorBase::kByColor);
    EXPECT_NE(NcCmColor::fromRGB(255, 0, 0), NcCmColor::fromIndex(1));
    EXPECT_EQ(NcCmColor::fromRGB(300, -5, 0).red(), 255);
}

TEST_F(Entities, ALineTurnsAndMeasures)
{
    NcDbLine line({1, 0, 2}, {3, 1, 2});
    line.transformBy(quarterTurn());
    expectPoint(line.startPoint(), 0, 1, 2);
    expectPoint(line.endPoint(), -1, 3, 2);
    const auto box = line.extents();
    expectPoint(box->min, -1, 1, 2);
    expectPoint(box->max, 0, 3, 2);
}

TEST_F(Entities, ACircleScalesAboutAPoint)
{
    NcDbCircle circle({10, 0, 0}, NcGeVector3d::kZAxis, 2.0);
    circle.transformBy(NcGeMatrix3d::scaling(2.0, {8, 0, 0}));
    expectPoint(circle.center(), 12, 0);
    EXPECT_DOUBLE_EQ(circle.radius(), 4.0);
    expectPoint(circle.extents()->max, 16, 4);
}

TEST_F(Entities, AMirroredArcStaysCounterClockwise)
{
    NcDbArc arc({0, 0, 0}, 1.0, 0.0, kPi / 2.0);
    arc.transformBy(mirrorAtYAxis());
    EXPECT_NEAR(arc.startAngle(), kPi / 2.0, 1e-12);
    EXPECT_NEAR(arc.endAngle(), kPi, 1e-12);
    const auto box = arc.extents();
    expectPoint(box->min, -1, 0);
    expectPoint(box->max, 0, 1);
}

TEST_F(Entities, AnArcsBoxHoldsItsQuarterPoints)
{
    const NcDbArc arc({0, 0, 0}, 2.0, -kPi / 4.0, kPi / 4.0);
    EXPECT_NEAR(arc.extents()->max.x, 2.0, 1e-12);
    EXPECT_NEAR(arc.extents()->min.x, std::sqrt(2.0), 1e-12);
}

TEST_F(Entities, PolylineVerticesGoWhereTheyAreTold)
{
    NcDbPolyline polyline;
    EXPECT_EQ(polyline.addVertexAt(0, {0, 0}), NcStatus::Ok);
    EXPECT_EQ(polyline.addVertexAt(1, {10, 0}), NcStatus::Ok);
    EXPECT_EQ(polyline.addVertexAt(1, {5, 5}), NcStatus::Ok);
    EXPECT_EQ(polyline.addVertexAt(7, {5, 5}), NcStatus::InvalidInput);
    polyline.setElevation(3.0);
    NcGePoint3d point;
    EXPECT_EQ(polyline.getPointAt(1, point), NcStatus::Ok);
    expectPoint(point, 5, 5, 3);
    EXPECT_EQ(polyline.getPointAt(3, point), NcStatus::InvalidInput);
    EXPECT_EQ(polyline.getPointAt(-1, point), NcStatus::InvalidInput);
}

TEST_F(Entities, BulgesCountForTheBoxAndChangeSignWhenMirrored)
{
    NcDbPolyline half;
    half.addVertexAt(0, {0, 0}, 1.0);
    half.addVertexAt(1, {2, 0});
    // A half circle to the right of the way from (0,0) to (2,0).
    EXPECT_NEAR(half.extents()->min.y, -1.0, 1e-9);
    EXPECT_NEAR(half.extents()->max.y, 0.0, 1e-9);
    half.transformBy(mirrorAtYAxis());
    double bulge = 0.0;
    half.getBulgeAt(0, bulge);
    EXPECT_EQ(bulge, -1.0);
    EXPECT_NEAR(half.extents()->min.y, -1.0, 1e-9);
    EXPECT_NEAR(half.extents()->min.x, -2.0, 1e-9);
}

TEST_F(Entities, TheOlderPolylineKeepsHeightsOfItsVertices)
{
    NcDb2dPolyline polyline;
    polyline.appendVertex({0, 0, 1});
    polyline.appendVertex({4, 0, 2}, 0.5);
    polyline.setClosed(true);
    polyline.transformBy(NcGeMatrix3d::translation({0, 0, 10}));
    NcGePoint3d point;
    EXPECT_EQ(polyline.getPointAt(1, point), NcStatus::Ok);
    expectPoint(point, 4, 0, 12);
    EXPECT_EQ(polyline.getPointAt(2, point), NcStatus::InvalidInput);
    double bulge = 0;
    EXPECT_EQ(polyline.getBulgeAt(1, bulge), NcStatus::Ok);
    EXPECT_EQ(bulge, 0.5);
}

TEST_F(Entities, ATextTurnsAndGrows)
{
    NcDbText text({1, 0, 0}, QStringLiteral("Скв. 1"), 2.0, 0.0);
    text.transformBy(quarterTurn() * NcGeMatrix3d::scaling(2.0));
    expectPoint(text.position(), 0, 2);
    EXPECT_NEAR(text.rotation(), kPi / 2.0, 1e-12);
    EXPECT_DOUBLE_EQ(text.height(), 4.0);
    EXPECT_TRUE(text.extents().has_value());
}

TEST_F(Entities, TextModesOutsideTheirRangeAreIgnored)
{
    NcDbText text;
    text.setHorizontalMode(NcDbText::kTextRight);
    text.setHorizontalMode(17);
    text.setVerticalMode(-1);
    EXPECT_EQ(text.horizontalMode(), NcDbText::kTextRight);
    EXPECT_EQ(text.verticalMode(), NcDbText::kTextBase);
}

TEST_F(Entities, AnMTextBoxFollowsItsAttachment)
{
    NcDbMText text;
    text.setContents(QStringLiteral("один\\Pдва"));
    text.setTextHeight(3.0);
    text.setAttachment(1);
    EXPECT_NEAR(text.extents()->max.y, 0.0, 1e-9);
    EXPECT_NEAR(text.extents()->min.y, -8.0, 1e-9) << "two lines stand five thirds of the height apart";
    text.setAttachment(7);
    EXPECT_NEAR(text.extents()->min.y, 0.0, 1e-9);
    text.setAttachment(12);
    EXPECT_EQ(text.attachment(), 7);
}

TEST_F(Entities, ATableKeepsCellsWhenItGrows)
{
    NcDbTable table;
    EXPECT_EQ(table.setSize(0, 3), NcStatus::InvalidInput);
    EXPECT_EQ(table.setSize(2, 2), NcStatus::Ok);
    EXPECT_EQ(table.setTextString(1, 1, QStringLiteral("x")), NcStatus::Ok);
    EXPECT_EQ(table.setSize(3, 4), NcStatus::Ok);
    EXPECT_EQ(table.textString(1, 1), QStringLiteral("x"));
    EXPECT_EQ(table.setTextString(3, 0, QStringLiteral("y")), NcStatus::InvalidInput);
    EXPECT_EQ(table.textString(9, 9), QString());
    EXPECT_EQ(table.setSize(1 << 20, 1 << 20), NcStatus::InvalidInput);
}

TEST_F(Entities, ATableMeasuresItsColumnsAndRows)
{
    NcDbTable table;
    table.setSize(2, 3);
    table.setPosition({100, 100, 0});
    EXPECT_EQ(table.setRowHeight(8.0), NcStatus::Ok);
    EXPECT_EQ(table.setColumnWidth(1, 40.0), NcStatus::Ok);
    EXPECT_EQ(table.setColumnWidth(3, 40.0), NcStatus::InvalidInput);
    EXPECT_EQ(table.setRowHeight(0, -1.0), NcStatus::InvalidInput);
    const auto box = table.extents();
    expectPoint(box->min, 100, 84);
    expectPoint(box->max, 200, 100);
}

TEST_F(Entities, TableCellsMergeOnce)
{
    NcDbTable table;
    table.setSize(3, 3);
    EXPECT_EQ(table.mergeCells(0, 1, 0, 1), NcStatus::Ok);
    EXPECT_EQ(table.mergeCells(1, 2, 1, 2), NcStatus::Duplicate);
    EXPECT_EQ(table.mergeCells(2, 2, 0, 5), NcStatus::InvalidInput);
    EXPECT_EQ(HostAccess::merges(table).size(), 1u);
}

TEST_F(Entities, AHatchNeedsLoopsOfThreePoints)
{
    NcDbHatch hatch;
    EXPECT_EQ(hatch.evaluateHatch(), NcStatus::InvalidInput);
    EXPECT_EQ(hatch.appendLoop(NcDbHatch::kExternal, {{0, 0}, {1, 0}}, {}), NcStatus::InvalidInput);
    EXPECT_EQ(hatch.appendLoop(NcDbHatch::kExternal, {{0, 0}, {1, 0}, {0, 0}}, {}), NcStatus::InvalidInput);
    EXPECT_EQ(hatch.appendLoop(NcDbHatch::kExternal, {{0, 0}, {1, 0}, {1, 1}, {0, 0}}, {}), NcStatus::Ok);
    EXPECT_EQ(hatch.loopAt(0).points.size(), 3u) << "the repeated first point is dropped";
    EXPECT_EQ(hatch.loopAt(0).bulges.size(), 3u);
    EXPECT_EQ(hatch.evaluateHatch(), NcStatus::Ok);
    EXPECT_EQ(hatch.setPattern(NcDbHatch::kPreDefined, QString()), NcStatus::InvalidInput);
    EXPECT_EQ(hatch.patternName(), QStringLiteral("SOLID"));
}

TEST_F(Entities, AHatchMovesWithItsElevation)
{
    NcDbHatch hatch;
    hatch.setElevation(5.0);
    hatch.appendLoop(NcDbHatch::kExternal, {{0, 0}, {4, 0}, {4, 4}}, {});
    hatch.transformBy(NcGeMatrix3d::translation({1, 2, 3}));
    EXPECT_DOUBLE_EQ(hatch.elevation(), 8.0);
    expectPoint(hatch.extents()->max, 5, 6, 8);
}

TEST_F(Entities, LayersMustExist)
{
    NcDbLine line;
    EXPECT_EQ(line.setLayer(QStringLiteral("нет такого")), NcStatus::NotFound);
    EXPECT_EQ(line.layer(), QStringLiteral("0"));
    addLayer(QStringLiteral("GMN_TS"));
    EXPECT_EQ(line.setLayer(QStringLiteral("gmn_ts")), NcStatus::Ok);
    EXPECT_EQ(line.layer(), QStringLiteral("GMN_TS")) << "as the table spells it";
}

TEST_F(Entities, ALockedLayerTakesNoNewEntityAndLosesNone)
{
    const NcDbObjectId layer = addLayer(QStringLiteral("TERVA_ERROR_SYNC"));
    auto* line = new NcDbLine;
    EXPECT_EQ(line->setLayer(QStringLiteral("TERVA_ERROR_SYNC")), NcStatus::Ok);
    const NcDbObjectId id = add(line);
    change<NcDbLayerTableRecord>(layer, [](NcDbLayerTableRecord& record) { record.setIsLocked(true); });
    NcDbLine other;
    EXPECT_EQ(other.setLayer(QStringLiteral("TERVA_ERROR_SYNC")), NcStatus::OnLockedLayer);
    EXPECT_EQ(other.setLayer(QStringLiteral("TERVA_ERROR_SYNC"), true, true), NcStatus::Ok);
    NcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(ncdbOpenObject(space, modelSpace(), kForWrite), NcStatus::Ok);
    EXPECT_EQ(space->appendNcDbEntity(&other), NcStatus::OnLockedLayer);
    EXPECT_TRUE(other.objectId().isNull());
    space->close();
    EXPECT_EQ(erase(id), NcStatus::OnLockedLayer);
    EXPECT_FALSE(id.isErased());
    change<NcDbLayerTableRecord>(layer, [](NcDbLayerTableRecord& record) { record.setIsLocked(false); });
    EXPECT_EQ(erase(id), NcStatus::Ok);
}

TEST_F(Entities, DefaultsComeFromTheDrawing)
{
    const NcDbObjectId layer = addLayer(QStringLiteral("Текущий"));
    EXPECT_EQ(drawing.setClayer(layer), NcStatus::Ok);
    NcDbLine line;
    line.setColorIndex(3);
    line.setDatabaseDefaults();
    EXPECT_EQ(line.layer(), QStringLiteral("Текущий"));
    EXPECT_EQ(line.colorIndex(), 256);
    NcDbCircle circle;
    circle.setColorIndex(4);
    EXPECT_EQ(line.setPropertiesFrom(&circle), NcStatus::Ok);
    EXPECT_EQ(line.colorIndex(), 4);
    EXPECT_EQ(line.layer(), QStringLiteral("0"));
    EXPECT_EQ(line.setPropertiesFrom(nullptr), NcStatus::InvalidInput);
    EXPECT_EQ(line.setColorIndex(300), NcStatus::InvalidInput);
}

TEST_F(Entities, AClonesGeometryAndPropertiesAreTheOriginals)
{
    std::vector<std::unique_ptr<NcDbEntity>> originals;
    originals.emplace_back(new NcDbPoint({1, 2, 3}));
    originals.emplace_back(new NcDbLine({0, 0, 0}, {4, 5, 6}));
    originals.emplace_back(new NcDbCircle({1, 1, 0}, NcGeVector3d::kZAxis, 3));
    originals.emplace_back(new NcDbArc({1, 1, 0}, 2, 0.1, 2.0));
    auto polyline = std::make_unique<NcDbPolyline>();
    polyline->addVertexAt(0, {0, 0}, 0.3);
    polyline->addVertexAt(1, {7, 1});
    originals.push_back(std::move(polyline));
    originals.emplace_back(new NcDbText({1, 1, 0}, QStringLiteral("т"), 3, 0.5));
    auto text = std::make_unique<NcDbMText>();
    text->setContents(QStringLiteral("м"));
    text->setLocation({2, 2, 0});
    originals.push_back(std::move(text));
    auto hatch = std::make_unique<NcDbHatch>();
    hatch->appendLoop(0, {{0, 0}, {1, 0}, {1, 2}}, {});
    originals.push_back(std::move(hatch));
    auto table = std::make_unique<NcDbTable>();
    table->setSize(2, 2);
    originals.push_back(std::move(table));
    for (const auto& original : originals) {
        original->setColorIndex(42);
        HostAccess::data(*original).xdata = {{QStringLiteral("APP"), {{1000, QStringLiteral("x")}}}};
        const std::unique_ptr<NcDbEntity> copy(original->clone());
        EXPECT_EQ(copy->isA(), original->isA());
        EXPECT_EQ(copy->colorIndex(), 42);
        EXPECT_EQ(copy->extents()->max, original->extents()->max) << copy->isA()->name();
        EXPECT_EQ(copy->extents()->min, original->extents()->min) << copy->isA()->name();
        EXPECT_EQ(HostAccess::data(*copy).xdata.size(), 1u);
        EXPECT_TRUE(copy->objectId().isNull());
    }
}

} // namespace
