// Real wells and real bolts: what a profile of them holds, and how it looks.
#include "analysis/contour/contour_build.h"
#include "analysis/levels/level_map.h"
#include "analysis/maps/kept_picture.h"
#include "analysis/maps/map_drawing.h"
#include "analysis/maps/real_input.h"
#include "analysis/profiles/deformation_profile.h"
#include "analysis/profiles/epure.h"
#include "analysis/profiles/section_frame.h"
#include "profile_fixture.h"

namespace {

const QString kRepository = QStringLiteral(TERVA_SOURCE_DIR);

class RealProfile : public ProfileFixture {
protected:
    // The boreholes of Tete Rousse; December 2022 is the first cycle, July 2023 the second.
    void addBoreholes()
    {
        QMap<QString, int> ids;
        for (const QString& line : linesOfFile(kRepository + QStringLiteral("/demo/boreholes/elements.csv"))) {
            const QStringList cells = line.split(QLatin1Char(';'));
            ids[cells[0]] = ids.size() + 1;
            addWell(ids[cells[0]], cells[0].toUtf8(), cells[1].toDouble(), cells[2].toDouble(), cells[3].toDouble(), 0,
                    nullptr);
            database.exec(QStringLiteral("update ts_elements set x = %1, y = %2, z = %3 where element_id = %4")
                              .arg(cells[1], cells[2], cells[3])
                              .arg(ids[cells[0]]));
        }
        QStringList depths;
        for (const QString& line : linesOfFile(kRepository + QStringLiteral("/demo/boreholes/terva.csv"))) {
            const QStringList cells = line.split(QLatin1Char(';'));
            if (cells[0] == QStringLiteral("Имя")) {
                depths = cells.mid(5);
                continue;
            }
            const int cycle = cells[2].endsWith(QStringLiteral("12.2022")) ? 1
                : cells[2].endsWith(QStringLiteral("07.2023"))             ? 2
                                                                           : 0;
            if (cycle == 0)
                continue;
            QStringList log;
            for (int i = 5; i < cells.size() && i - 5 < depths.size(); ++i) {
                if (!cells[i].isEmpty())
                    log << depths[i - 5] + QLatin1Char(':') + cells[i];
            }
            addLog(ids[cells[0]], cycle, log.join(QLatin1Char('|')).toUtf8());
        }
    }
    void addBolts()
    {
        int id = 0;
        for (const RealBolt& bolt : realBolts(kRepository))
            addMeasured(++id, bolt.name.toUtf8(), bolt.x, bolt.y, bolt.base.toUtf8(), bolt.current.toUtf8());
    }
    static ProfileLine alongTheIce()
    {
        return ProfileLine({{330624.120, 5080426.467, 0},
                            {330672.986, 5080411.450, 0},
                            {330751.709, 5080401.545, 0},
                            {330762.305, 5080381.270, 0},
                            {330791.735, 5080359.446, 0},
                            {330824.402, 5080390.372, 0},
                            {330884.379, 5080362.257, 0}},
                           false);
    }
    TemperatureSection section(bool byElevation, bool difference)
    {
        std::vector<SectionWell> wells, before;
        EXPECT_TRUE(loadSectionWells(2, {1, {}}, wells));
        keepCaught(wells, alongTheIce(), 2.0);
        if (difference) {
            EXPECT_TRUE(loadSectionWells(1, {1, {}}, before));
            subtract(before, wells);
        }
        SectionView view;
        view.horizontal = 1.0;
        view.vertical = 2.0;
        view.byElevation = byElevation;
        // Wells without a log in the cycle are unticked.
        wells.erase(
            std::remove_if(wells.begin(), wells.end(), [](const SectionWell& well) { return well.log.empty(); }),
            wells.end());
        return TemperatureSection(std::move(wells), alongTheIce().length(), view);
    }
    void draw(const TemperatureSection& section, const LevelMap& levels, const SectionTitles& titles)
    {
        contour::BuildInput input;
        input.points = section.points();
        input.bounds = section.outline();
        input.exactEdges = true;
        input.levels = levels.levels();
        const contour::BuildResult built = contour::buildContours(input, {});
        EXPECT_EQ(built.status, contour::BuildStatus::Done);
        NcDbObjectIdArray drawn = drawHatches(built.contours.hatchBands(), levels, QStringLiteral("MAP"));
        EXPECT_GE(drawn.size(), 3u);
        const NcDbObjectIdArray lines = drawPolylines(QStringLiteral("MAP"), built.contours.lines);
        drawn.insert(drawn.end(), lines.begin(), lines.end());
        drawSketch(sectionFrame(section, titles).sketch, QStringLiteral("TERVA_PROF_"), drawn);
    }
};

} // namespace

TEST_F(RealProfile, OfTheIceInJuly)
{
    addBoreholes();
    const TemperatureSection july = section(true, false);
    ASSERT_EQ(july.wells().size(), 7u);
    EXPECT_EQ(july.wells().front().name, QStringLiteral("2201"));
    EXPECT_EQ(july.wells().back().name, QStringLiteral("2210"));
    draw(july, LevelMap(LevelMap::Temperature), {"9", "9 - 01.07.23 - 31.07.23 - Лето 2023", false});
    EXPECT_TRUE(drawnTexts().contains(QStringLiteral("-2.11"))) << "of well 2202 at 11 m";
    keepDrawing(QStringLiteral("temperature-profile.png"), {2400, 1900});
}

TEST_F(RealProfile, OfItsChangeSinceDecember)
{
    addBoreholes();
    LevelMap levels(LevelMap::Temperature);
    levels.fillGradient(-0.6, 0.6, 12);
    draw(section(false, true), levels,
         {"9", "Исходный: 8 - 01.12.22 - 31.12.22 - Зима 2022; текущий: 9 - 01.07.23 - 31.07.23 - Лето 2023", true});
    EXPECT_TRUE(drawnTexts().contains(QStringLiteral("d-0.39"))) << "of well 2202 at 6 m: -1.61 after -1.22";
    keepDrawing(QStringLiteral("temperature-diff-profile.png"), {2400, 1200});
}

TEST_F(RealProfile, OfTheBoltsInTwoHouses)
{
    addBolts();
    const ProfileLine first({{123308, 485650, 0}, {123349, 485667, 0}}, false);
    const ProfileLine second({{124074, 486279, 0}, {124128, 486286, 0}, {124160, 486288, 0}, {124209, 486289, 0}},
                             false);
    std::vector<DeformationProfileClass> profiles(2);
    ASSERT_TRUE(profiles[0].load(first, 1.0, 1, {1, 2, false}));
    ASSERT_TRUE(profiles[1].load(second, 1.0, 1, {1, 2, false}));
    profiles[0].name = QStringLiteral("Дом 12281252");
    profiles[1].name = QStringLiteral("Дом 11581004");
    ASSERT_EQ(profiles[0].points.size(), 7u);
    ASSERT_EQ(profiles[1].points.size(), 5u);
    EXPECT_NEAR(profiles[0].deltaMaxAbs, 0.0247, 1e-9) << "12281253: 1.3696 to 1.3449 m";
    EXPECT_NEAR(profiles[1].deltaMaxAbs, 0.1147, 1e-9);
    drawSketch(epureSketch(profiles, {0, 0, 2.0, QStringLiteral(" Цикл 2")}, 0.02), QStringLiteral("TERVA_DEF_"));
    EXPECT_TRUE(drawnTexts().contains(QStringLiteral("-24.70")));
    keepDrawing(QStringLiteral("deformation-profile.png"), {2400, 520});
}
