// Lines, hatches, groups and labels in the drawing.
#include "analysis/maps/layer_input.h"
#include "analysis/maps/map_drawing.h"
#include "analysis/maps/map_fixture.h"
#include "analysis/maps/value_labels.h"

#include <nrx/application.h>

#include <QLocale>

#include <cmath>

namespace {

class MapDrawing : public MapFixture {
protected:
    static contour::PointList ring(double from, double to, double z)
    {
        return {{from, from, z}, {to, from, z}, {to, to, z}, {from, to, z}, {from, from, z}};
    }
    const QString layer = QStringLiteral("MAP");
};

} // namespace

TEST_F(MapDrawing, APolylineStandsAtTheElevationOfItsFirstPoint)
{
    const NcDbObjectIdArray ids = drawPolylines(layer, {ring(0, 10, -1.5), {}, {{0, 0, 2}, {1, 1, 2}}});
    ASSERT_EQ(ids.size(), 2u);
    const Opened<NcDbPolyline> first(ids[0], kForRead);
    EXPECT_EQ(first->layer(), layer);
    EXPECT_EQ(first->elevation(), -1.5);
    EXPECT_EQ(first->numVerts(), 5);
    EXPECT_FALSE(first->isClosed());
    double bulge = 1.0;
    first->getBulgeAt(0, bulge);
    EXPECT_EQ(bulge, 0.0);
}

TEST_F(MapDrawing, AMissingLayerDrawsNothing)
{
    EXPECT_TRUE(drawPolylines(QStringLiteral("НЕТ"), {ring(0, 1, 0)}).empty());
    EXPECT_TRUE(drawHatches({{0, -3.0, {ring(0, 1, -3)}}}, LevelMap(-3), QStringLiteral("НЕТ")).empty());
    EXPECT_TRUE(entities<NcDbPolyline>().empty());
    EXPECT_TRUE(groupNames().isEmpty());
}

TEST_F(MapDrawing, TheGroupTellsWhatTheMapShows)
{
    LevelMap scale(LevelMap::Temperature);
    const LevelRange& range = *bandRange(scale, -3.0);
    MapSubject subject;
    subject.title = QStringLiteral("Карта температур, °С");
    subject.cycle = QStringLiteral("3 - 01.10.25\n- 15.10.25");
    subject.depth = QStringLiteral("6,00 м");
    const QString name = QString::asprintf("#%02x%02x%02x", range.color.red(), range.color.green(), range.color.blue());
    const QStringList lines =
        mapDescription(subject, {{5, -3.0, {ring(0, 10, -3)}}, {9, 500.0, {ring(0, 1, 500)}}}, scale)
            .split(QLatin1Char('\n'));
    EXPECT_EQ(lines,
              (QStringList{"Карта температур, °С", "цикл: 3 - 01.10.25 - 15.10.25", "глубина: 6,00 м",
                           QStringLiteral("%1 %2 %3").arg(name).arg(range.min).arg(range.max), "#ffffff"}));
    drawHatches({{5, -3.0, {ring(0, 10, -3)}}}, scale, layer, subject);
    NcDbDictionary* groups = nullptr;
    NcDbObjectId id;
    workingDatabase()->getGroupDictionary(groups, kForRead);
    groups->getAt(groupNames().first(), id);
    groups->close();
    EXPECT_TRUE(
        Opened<NcDbGroup>(id, kForRead)->description().startsWith(QStringLiteral("Карта температур, °С\nцикл")));
}

TEST(MapSubjectTest, DepthsAreToldAsTheyWereChosen)
{
    QLocale::setDefault(QLocale(QLocale::Russian, QLocale::Russia));
    Sampling sampling;
    sampling.key = 6.0;
    EXPECT_EQ(samplingText(sampling), QStringLiteral("6,00 м"));
    sampling.mode = Sampling::Elevation;
    EXPECT_EQ(samplingText(sampling), QStringLiteral("отметка 6,00 м"));
    sampling.mode = Sampling::Average;
    sampling.from = 1.0;
    sampling.to = 10.5;
    EXPECT_EQ(samplingText(sampling), QStringLiteral("среднее с 1,00 до 10,50 м"));
    sampling.toEnd = true;
    EXPECT_EQ(samplingText(sampling), QStringLiteral("среднее с 1,00 м до забоя"));
    sampling.bottom = true;
    EXPECT_EQ(samplingText(sampling), QStringLiteral("у забоя"));
    QLocale::setDefault(QLocale::system());
}

TEST_F(MapDrawing, ALockedLayerIsUnlockedForTheMapAndLockedAgain)
{
    setLayerLocked(layer, true);
    const NcDbObjectIdArray lines = drawPolylines(layer, {ring(0, 1, 0)});
    const NcDbObjectIdArray hatches = drawHatches({{5, -3.0, {ring(0, 10, -3)}}}, LevelMap(-3), layer);
    ASSERT_EQ(lines.size(), 1u);
    ASSERT_EQ(hatches.size(), 1u);
    EXPECT_EQ(layerOf(lines[0]), layer);
    EXPECT_EQ(layerOf(hatches[0]), layer);
    EXPECT_FALSE(isOk(Opened<NcDbHatch>(hatches[0], kForWrite)->erase())) << "the layer is locked again";
}

TEST_F(MapDrawing, ValueLabelsAreDrawnOnALockedCurrentLayerToo)
{
    setLayerLocked(currentLayer(), true);
    EXPECT_EQ(drawValueLabels({{1, 2, 0.5}, {3, 4, -1.25}}).size(), 2u);
}

TEST_F(MapDrawing, MapsOfOneSecondAreTwoGroups)
{
    drawHatches({{5, -3.0, {ring(0, 10, -3)}}}, LevelMap(-3), layer);
    drawHatches({{5, -3.0, {ring(20, 30, -3)}}}, LevelMap(-3), layer);
    EXPECT_EQ(groupNames().size(), 2);
}

TEST_F(MapDrawing, ANewMapNamesTheEarlierOnesThatCoverIt)
{
    drawHatches({{5, -3.0, {ring(0, 10, -3)}}}, LevelMap(-3), layer);
    drawHatches({{5, -3.0, {ring(100, 110, -3)}}}, LevelMap(-3), layer);
    drawHatches({{5, -3.0, {ring(10, 20, -3)}}}, LevelMap(-3), layer);
    drawValueLabels({{1, 2, 0.5}});
    // The host of these tests has no command that draws the view anew.
    const auto told = [this] { return console.take().remove("\nНеизвестная команда \"_regen\".\n"); };
    EXPECT_EQ(told(), "") << "side by side";
    const QStringList before = groupNames();
    drawHatches({{5, -3.0, {ring(5, 15, -3)}}}, LevelMap(-3), layer);
    EXPECT_EQ(told(),
              "\nНовая карта лежит под более ранними: " + before[0] + ", " + before[2]
                  + ". Удалите их, чтобы увидеть ее.\n");
}

namespace {

int regenerated = 0;

} // namespace

TEST_F(MapDrawing, HatchesRegenerateTheViewOnceAndAloneDoSo)
{
    NcEdCommand* command = nullptr;
    ASSERT_TRUE(isOk(GetCommandStack()->addCommand(
        QStringLiteral("MAPS_TEST"), QStringLiteral("REGEN"), QStringLiteral("REGEN"), 0, [] { ++regenerated; },
        nullptr, 0, nullptr, &command)));
    regenerated = 0;
    drawPolylines(layer, {ring(0, 1, 0)});
    EXPECT_EQ(regenerated, 0);
    drawHatches({{5, -3.0, {ring(0, 10, -3)}}, {6, -1.5, {ring(5, 6, -1.5)}}}, LevelMap(LevelMap::Temperature), layer);
    EXPECT_EQ(regenerated, 1);
    GetCommandStack()->removeGroup(QStringLiteral("MAPS_TEST"));
}

TEST_F(MapDrawing, ABandIsOneSolidHatchInItsColourUnderAllElse)
{
    drawPolylines(layer, {ring(0, 1, 0)});
    const NcDbObjectIdArray ids =
        drawHatches({{5, -3.0, {ring(0, 10, -3), ring(2, 4, -3)}}, {6, -1.5, {ring(5, 6, -1.5)}}},
                    LevelMap(LevelMap::Temperature), layer);
    ASSERT_EQ(ids.size(), 2u);
    const Opened<NcDbHatch> hatch(ids[0], kForRead);
    EXPECT_EQ(hatch->patternName(), QStringLiteral("SOLID"));
    EXPECT_FALSE(hatch->associative());
    EXPECT_EQ(hatch->elevation(), 0.0);
    ASSERT_EQ(hatch->numLoops(), 2);
    EXPECT_EQ(hatch->loopAt(0).type, 1);
    EXPECT_EQ(hatch->loopAt(1).type, 0);
    EXPECT_EQ(hatch->color().red(), 50);
    EXPECT_EQ(hatch->color().green(), 220);
    EXPECT_EQ(hatch->color().blue(), 240);
    EXPECT_EQ(hatch->layer(), layer);

    ASSERT_EQ(groupNames().size(), 1);
    EXPECT_TRUE(groupNames()[0].startsWith(QStringLiteral("TERVA_HATCH_")));

    const auto space = openModelSpace(kForWrite);
    NcDbSortentsTable* opened = nullptr;
    ASSERT_TRUE(isOk(space->getSortentsTable(opened)));
    const Opened<NcDbSortentsTable> order(opened);
    const NcDbObjectIdArray bottomUp = order->getFullDrawOrder();
    ASSERT_EQ(bottomUp.size(), 3u);
    EXPECT_EQ(bottomUp[0], ids[0]);
    EXPECT_EQ(bottomUp[1], ids[1]);
}

TEST(BandColor, IsThatOfTheRangeInWhoseMiddleTheBandLies)
{
    const LevelMap map(LevelMap::Temperature);
    EXPECT_EQ(bandColor(map, -3.0).red(), 50);
    EXPECT_EQ(bandColor(map, 0.002).green(), 250) << "a level moved off its points keeps its band's colour";
    EXPECT_EQ(bandColor(map, -20.0).red(), 130);
}

TEST(BandColor, AMiddleAtABoundIsOfTheUpperRange)
{
    LevelMap map(LevelMap::User);
    map.ranges = {{0.0, 2.0, NcCmColor::fromRGB(1, 1, 1)}, {2.0, 4.0, NcCmColor::fromRGB(2, 2, 2)}};
    map.recomputeLimits();
    EXPECT_EQ(bandColor(map, 0.75).red(), 1);
    EXPECT_EQ(bandColor(map, 1.0).red(), 2);
}

TEST(BandColor, OutsideAllRangesIsWhite)
{
    const LevelMap map(LevelMap::Temperature);
    for (double level : {-20.1, 10.0, 11.0}) {
        const NcCmColor color = bandColor(map, level);
        EXPECT_EQ(color.red() + color.green() + color.blue(), 3 * 255) << level;
    }
    EXPECT_EQ(bandColor(LevelMap(LevelMap::User), 0.0).red(), 255);
}

TEST_F(MapDrawing, ValueLabelsAreCentredAtTheirPointsInAGroup)
{
    const NcDbObjectIdArray ids = drawValueLabels({{1, 2, 0.5}, {3, 4, -1.25}, {5, 6, 0.0}});
    ASSERT_EQ(ids.size(), 3u);
    const Opened<NcDbText> text(ids[0], kForRead);
    EXPECT_EQ(text->textString(), QStringLiteral("+0.50"));
    EXPECT_EQ(text->height(), 1.8);
    EXPECT_EQ(text->horizontalMode(), 1);
    EXPECT_EQ(text->verticalMode(), 2);
    EXPECT_EQ(text->alignmentPoint(), NcGePoint3d(1, 2, 0.5));
    EXPECT_EQ(text->rotation(), 0.0);
    EXPECT_EQ(Opened<NcDbText>(ids[1], kForRead)->textString(), QStringLiteral("-1.25"));
    EXPECT_EQ(Opened<NcDbText>(ids[2], kForRead)->textString(), QStringLiteral("0.00"));
    ASSERT_EQ(groupNames().size(), 1);
    EXPECT_TRUE(groupNames()[0].startsWith(QStringLiteral("TERVA_VALS_")));
}

TEST_F(MapDrawing, ValueLabelsTurnWithTheUserCoordinateSystem)
{
    ncedSetCurrentUCS(NcGeMatrix3d::rotation(M_PI / 6, NcGeVector3d::kZAxis));
    const NcDbObjectIdArray ids = drawValueLabels({{10, 20, 1}});
    const Opened<NcDbText> text(ids.at(0), kForRead);
    EXPECT_NEAR(text->rotation(), M_PI / 6, 1e-12);
    EXPECT_NEAR(text->alignmentPoint().x, 10, 1e-9);
}

TEST_F(MapDrawing, PointsOfALayerNeedThreeAtLeast)
{
    for (int i = 0; i < 3; ++i) {
        auto point = std::make_unique<NcDbPoint>(NcGePoint3d(i, i * i, -i));
        point->setLayer(layer);
        EXPECT_EQ(loadPointsFromLayer(layer).size(), 0u);
        appendToModelSpace(std::move(point));
    }
    const geometry::PointList points = loadPointsFromLayer(layer);
    ASSERT_EQ(points.size(), 3u);
    EXPECT_EQ(points[2], (geometry::Point3{2, 4, -2}));
    EXPECT_TRUE(loadPointsFromLayer(QStringLiteral("НЕТ")).empty());
}

TEST_F(MapDrawing, TheBorderIsTheFirstPolylineOfTheLayer)
{
    EXPECT_FALSE(loadBoundaryFromLayer(layer));
    EXPECT_FALSE(loadBoundaryFromLayer(QStringLiteral("НЕТ")));
    addBorder({{0, 0}, {5, 0}, {5, 5}}, layer);
    addBorder({{0, 0}, {9, 0}, {9, 9}, {0, 9}}, layer);
    const auto border = loadBoundaryFromLayer(layer);
    ASSERT_TRUE(border);
    EXPECT_EQ(border->size(), 3u);
}
