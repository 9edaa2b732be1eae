// Lines, sections and epures, as far as they need neither a server nor a form.
#include "analysis/profiles/deformation_table.h"
#include "analysis/profiles/epure.h"
#include "analysis/profiles/section_frame.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

ProfileLine bent() { return ProfileLine({{0, 0, 0}, {10, 0, 0}, {10, 20, 0}}, false); }

LineElement element(const char* name, double x, double y)
{
    LineElement made;
    made.name = QString::fromUtf8(name);
    made.x = x;
    made.y = y;
    return made;
}

QStringList namesOf(const std::vector<LineElement>& elements)
{
    QStringList names;
    for (const LineElement& one : elements)
        names << one.name;
    return names;
}

SectionWell well(const char* name, double dist, const TemperatureLog& log, double z = 100.0, double h = 0.5)
{
    SectionWell made;
    made.name = QString::fromUtf8(name);
    made.dist = dist;
    made.z = z;
    made.h = h;
    made.log = log;
    return made;
}

SectionView viewAt(double x, double y, bool byElevation = false)
{
    SectionView view;
    view.origX = x;
    view.origY = y;
    view.byElevation = byElevation;
    return view;
}

// The texts of a sketch with their place, those that begin so.
QStringList textsOf(const Sketch& sketch, const QString& beginning = QString())
{
    QStringList texts;
    for (const SketchText& text : sketch.texts) {
        if (text.text.startsWith(beginning))
            texts << QStringLiteral("%1 @ %2, %3").arg(text.text).arg(text.x).arg(text.y);
    }
    return texts;
}

bool holds(const Sketch& sketch, const QString& text)
{
    for (const SketchText& one : sketch.texts) {
        if (one.text == text)
            return true;
    }
    return false;
}

QStringList coveringLabels(const Sketch& sketch)
{
    QStringList pairs;
    for (size_t i = 0; i < sketch.texts.size(); ++i) {
        for (size_t j = i + 1; j < sketch.texts.size(); ++j) {
            const LabelBox a = boxOf(sketch.texts[i]), b = boxOf(sketch.texts[j]);
            if (a.left < b.right - 1e-6 && b.left < a.right - 1e-6 && a.bottom < b.top - 1e-6
                && b.bottom < a.top - 1e-6)
                pairs << sketch.texts[i].text + " / " + sketch.texts[j].text;
        }
    }
    return pairs;
}

double rightEnd(const Sketch& sketch)
{
    double right = -INFINITY;
    for (const SketchLine& line : sketch.lines) {
        for (const geometry::Point3& point : line.points)
            right = std::max(right, point.x);
    }
    return right;
}

DeformationProfilePoint mark(const char* name, double x, double base, double current)
{
    DeformationProfilePoint point;
    point.name = QString::fromUtf8(name);
    point.x = x;
    point.dist = x;
    point.meas_base = base;
    point.meas_current = current;
    point.valid = std::isfinite(base) && std::isfinite(current);
    point.delta = point.valid ? current - base : 0.0;
    return point;
}

DeformationProfileClass profileOf(const std::vector<DeformationProfilePoint>& points)
{
    DeformationProfileClass profile;
    profile.name = QStringLiteral("Ось А");
    profile.points = points;
    for (const DeformationProfilePoint& point : points)
        profile.length = std::max(profile.length, point.dist);
    profile.computeFigures();
    return profile;
}

} // namespace

// --- the line ----------------------------------------------------------------

TEST(ProfileLine, CountsItsParameterBySegmentsAndItsDistanceByMetres)
{
    const ProfileLine line = bent();
    EXPECT_EQ(line.length(), 30.0);
    EXPECT_EQ(line.vertexCount(), 3);
    const ProfileLine::Place place = line.closest(12, 5);
    EXPECT_EQ(place.param, 1.25);
    EXPECT_EQ(place.dist, 15.0);
    EXPECT_EQ(place.offset, 2.0);
    EXPECT_NEAR(place.angle, M_PI / 2, 1e-12);
    EXPECT_EQ(line.closest(-5, 0).dist, 0.0) << "the line ends at its vertices";
    EXPECT_EQ(line.closest(-5, 0).offset, 5.0);
}

TEST(ProfileLine, TakesTheFirstOfEquallyNearPlaces)
{
    EXPECT_EQ(ProfileLine({{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}}, false).closest(5, 5).param, 0.5);
}

TEST(ProfileLine, FollowsItsArcsAndClosesItself)
{
    const ProfileLine half({{0, 0, 1.0}, {20, 0, 0}}, false); // a half circle of radius 10
    EXPECT_NEAR(half.length(), M_PI * 10, 1e-9) << "the arc's own length, not that of its chords";
    EXPECT_NEAR(half.closest(10, -10).dist, M_PI * 5, 0.01);
    EXPECT_NEAR(half.closest(10, -10).param, 0.5, 1e-3);
    EXPECT_NEAR(half.closest(10, -10).offset, 0.0, 0.001);
    const ProfileLine square({{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}}, true);
    EXPECT_EQ(square.length(), 40.0);
    EXPECT_EQ(square.closest(0, 5).param, 3.5);
    EXPECT_EQ(square.text(),
              QStringLiteral("0.000000 0.000000,10.000000 0.000000,10.000000 10.000000,"
                             "0.000000 10.000000,0.000000 0.000000"));
}

TEST(ProfileLine, WithoutLengthCatchesNothing)
{
    for (const ProfileLine& line :
         {ProfileLine(), ProfileLine({{5, 5, 0}}, false), ProfileLine({{5, 5, 0}, {5, 5, 0}}, true)}) {
        EXPECT_EQ(line.length(), 0.0);
        EXPECT_TRUE(std::isinf(line.closest(5, 5).offset));
    }
}

TEST(ProfileLine, IsReadBackFromItsText)
{
    const ProfileLine line = ProfileLine::ofText(QStringLiteral("0 0,10 0,10 20"));
    EXPECT_EQ(line.length(), 30.0);
    EXPECT_EQ(line.vertexCount(), 3);
    EXPECT_EQ(ProfileLine::ofText(QStringLiteral("nonsense,1 2,3 x,x 4,5")).vertexCount(), 1);
    EXPECT_EQ(line.at(15).point.y, 5.0);
    EXPECT_EQ(line.at(-1).point.x, 0.0);
    EXPECT_EQ(line.at(99).point.y, 20.0);
}

TEST(Corridor, DropsAnElementThatIsNotBelowTheTolerance)
{
    std::vector<LineElement> elements = {element("на краю", 5, 1.0), element("внутри", 4, 0.999),
                                         element("NaN", NAN, 0)};
    keepCaught(elements, bent(), 1.0);
    EXPECT_EQ(namesOf(elements), QStringList("внутри"));
    EXPECT_EQ(Corridor().tolerance(), 1.0) << "what a form begins with";
    EXPECT_EQ((Corridor{true, 5.0}.tolerance()), 0.01);
}

TEST(Corridor, OrdersAlongTheLineAndKeepsTheOrderAtOnePlace)
{
    std::vector<LineElement> elements = {element("в", 10, 3), element("б", 5, 0.1), element("а", 5, 0.2)};
    keepCaught(elements, bent(), 1.0);
    EXPECT_EQ(namesOf(elements), (QStringList{"б", "а", "в"}));
    EXPECT_DOUBLE_EQ(elements[2].dist, 13.0);
}

// --- scales ------------------------------------------------------------------

TEST(SectionView, OffersItsScalesAndPicketsInTheirOrder)
{
    QStringList scales, epures, pickets;
    for (const ScaleChoice& scale : sectionScales()) {
        scales << QStringLiteral("%1=%2").arg(scale.text).arg(scale.factor);
        EXPECT_EQ(scaleText(scale.factor), scale.text);
    }
    for (const ScaleChoice& scale : epureScales())
        epures << scale.text;
    for (const PicketStep& step : picketSteps())
        pickets << QStringLiteral("%1=%2").arg(QString::fromUtf8(step.text)).arg(step.step);
    EXPECT_EQ(scales,
              (QStringList{"1:500=2", "1:1000=1", "1:2000=0.5", "1:5000=0.2", "1:10000=0.1", "1:50=20", "1:100=10",
                           "1:200=5"}));
    EXPECT_EQ(epures, (QStringList{"1:50", "1:100", "1:200", "1:500", "1:1000", "1:2000", "1:5000", "1:10000"}));
    EXPECT_EQ(pickets, (QStringList{"100 м.=100", "200 м.=200", "500 м.=500", "1000 м.=1000"}));
    EXPECT_EQ(scaleText(0.0), QStringLiteral("--"));
    EXPECT_EQ(scaleText(4.0), QStringLiteral("1:250"));
}

// --- the section ---------------------------------------------------------------

TEST(TemperatureSection, HangsReadingsByTheirDepthBelowOneLine)
{
    const TemperatureSection section({well("2", 30, {{1, -2}, {10, -3}}, 200), well("1", 5, {{2, -1}, {4, -1.5}})}, 40,
                                     viewAt(1000, 500));
    const geometry::PointList points = section.points();
    ASSERT_EQ(points.size(), 4u);
    EXPECT_EQ(points[0], (geometry::Point3{1010, 500 + 80, -1})) << "2 units a metre across, 10 down, 10 m deepest";
    EXPECT_EQ(points[3], (geometry::Point3{1060, 500, -3})) << "the deepest reading lies at the origin";
    EXPECT_EQ(section.groundY(section.wells()[0]), 600.0);
    EXPECT_EQ(section.groundY(section.wells()[1]), 600.0) << "depths have one ground";
    EXPECT_EQ(section.right(), 1080.0) << "the line's own end";
}

TEST(TemperatureSection, SetsReadingsAtTheirElevation)
{
    const TemperatureSection section({well("1", 0, {{2, -1}}, 100, 0.5), well("2", 10, {{1, -2}}, 98, 0.5)}, 0,
                                     viewAt(0, 0, true));
    const geometry::PointList points = section.points();
    EXPECT_EQ(points[0].y, 10.0) << "99.5 - 2 = 97.5, a metre above the lowest, 96.5";
    EXPECT_EQ(points[1].y, 0.0);
    EXPECT_EQ(section.groundY(section.wells()[0]), 30.0);
    EXPECT_EQ(section.right(), 20.0) << "up to the last well at least";
}

TEST(TemperatureSection, OutlinesTopsInTheirOrderAndBottomsBackwards)
{
    const TemperatureSection section(
        {well("1", 0, {{1, -1}, {5, -2}}), well("без замеров", 5, {}), well("2", 10, {{2, -3}, {4, -4}})}, 10,
        viewAt(0, 0));
    const geometry::PointList outline = section.outline();
    ASSERT_EQ(outline.size(), 4u);
    EXPECT_EQ(outline[0], (geometry::Point3{0, 40, -1}));
    EXPECT_EQ(outline[1], (geometry::Point3{20, 30, -3}));
    EXPECT_EQ(outline[2], (geometry::Point3{20, 10, -4}));
    EXPECT_EQ(outline[3], (geometry::Point3{0, 0, -2}));
}

TEST(TemperatureSection, SpansASurfaceWithTwoPlacesOnly)
{
    const TemperatureLog log = {{1, -1}, {2, -2}, {3, -3}};
    EXPECT_TRUE(TemperatureSection({well("1", 0, log), well("2", 10, log)}, 10, viewAt(0, 0)).spansSurface());
    EXPECT_FALSE(TemperatureSection({well("1", 0, log)}, 10, viewAt(0, 0)).spansSurface()) << "one well";
    EXPECT_FALSE(TemperatureSection({well("1", 5, log), well("2", 5, log)}, 10, viewAt(0, 0)).spansSurface())
        << "at one place";
    EXPECT_FALSE(TemperatureSection({well("1", 0, {{1, -1}}), well("2", 5, {{1, -1}}), well("3", 9, {{1, -1}})}, 10,
                                    viewAt(0, 0))
                     .spansSurface())
        << "all at one depth";
    EXPECT_FALSE(TemperatureSection({well("1", 0, {}), well("2", 5, {})}, 10, viewAt(0, 0)).spansSurface());
    EXPECT_FALSE(TemperatureSection({}, 0, viewAt(0, 0)).spansSurface());
}

TEST(TemperatureSection, SubtractsWhereBothCyclesReach)
{
    const TemperatureLog difference = differenceOf({{1, -1}, {3, -3}}, {{2, -1}, {3, -2}, {4, -5}});
    EXPECT_EQ(difference, (TemperatureLog{{2, 1.0}, {3, 1.0}}))
        << "at 2 between two readings, at 3 both, at 1 and 4 one alone";
    EXPECT_TRUE(differenceOf({}, {{1, 1}}).empty());
    std::vector<SectionWell> base = {well("1", 0, {{1, -1}})},
                             current = {well("1", 0, {{1, -2}}), well("2", 0, {{1, -2}})};
    base[0].id = current[0].id = 1;
    current[1].id = 2;
    subtract(base, current);
    EXPECT_EQ(current[0].log, (TemperatureLog{{1, -1.0}}));
    EXPECT_TRUE(current[1].log.empty()) << "without a base there is no difference";
}

// --- what stands around it --------------------------------------------------------

TEST(SectionFrame, HoldsItsTextsAtTheirPlaces)
{
    const TemperatureSection section({well("ТС.1", 0, {{1, -1.234}, {6, 0}}), well("ТС.2", 112.5, {{1, -2}, {5, 1.5}})},
                                     120, viewAt(1000, 500));
    const SectionFrame frame = sectionFrame(section, {"9", "9 - 01.07.23 - 31.07.23 - Лето", false});
    const Sketch& sketch = frame.sketch;
    EXPECT_EQ(textsOf(sketch, "Масштаб"), QStringList("Масштаб @ 998, 506"));
    EXPECT_EQ(textsOf(sketch, "Горизонт"), QStringList("Горизонтальный 1:500 @ 998, 503"));
    EXPECT_EQ(textsOf(sketch, "Вертик"), QStringList("Вертикальный 1:100 @ 998, 500"));
    EXPECT_EQ(textsOf(sketch, "Расст"), QStringList("Расстояние, м. @ 998, 485"));
    EXPECT_EQ(textsOf(sketch, "Пикет, м."), QStringList("Пикет, м. @ 998, 475"));
    EXPECT_EQ(textsOf(sketch, "Цикл"), QStringList("Цикл 9 @ 998, 465"));
    EXPECT_TRUE(textsOf(sketch, "Абс").isEmpty()) << "the depths have no row of elevations";
    EXPECT_EQ(textsOf(sketch, "112.50"), QStringList("112.50 @ 1112.5, 485")) << "between both wells";
    EXPECT_EQ(textsOf(sketch, "Пикет 1"), QStringList("Пикет 1 @ 1200, 493"));
    EXPECT_EQ(textsOf(sketch, "+12.50"), QStringList("+12.50 @ 1225, 475"));
    EXPECT_EQ(textsOf(sketch, "-1.23"), QStringList("-1.23 @ 1000.8, 550"));
    EXPECT_TRUE(holds(sketch, "0.00") && holds(sketch, "1.50")) << "no sign before what is not below 0";
    EXPECT_TRUE(holds(sketch, "D=6.00") && holds(sketch, "Z=93.50"));
    EXPECT_EQ(textsOf(sketch, "ТС.2"), QStringList("ТС.2 @ 1224.2, 561"));
    for (const SketchText& text : sketch.texts) {
        if (text.text == QLatin1String("ТС.2")) {
            EXPECT_EQ(text.height, 1.8);
            EXPECT_EQ(text.angle, M_PI / 2.0);
        }
    }
    EXPECT_EQ(frame.leftOut, 0);
    EXPECT_EQ(coveringLabels(sketch), QStringList());
}

TEST(SectionFrame, HasARowOfElevationsForThem)
{
    const TemperatureSection section({well("1", 0, {{1, -1}, {2, -1}}, 100.25, 0.5)}, 10, viewAt(0, 0, true));
    const Sketch sketch = sectionFrame(section, {"2", "2", false}).sketch;
    EXPECT_EQ(textsOf(sketch, "Абс"), QStringList("Абсолютная отметка, м. @ -2, -45"));
    EXPECT_EQ(textsOf(sketch, "99.75"), QStringList("99.75 @ 0, -45"));
}

TEST(SectionFrame, CountsTheLabelsThatFindNoRoom)
{
    TemperatureLog dense;
    for (int i = 0; i <= 100; ++i)
        dense[i * 0.1] = -1.0 - i * 0.01;
    const TemperatureSection section({well("1", 0, dense), well("2", 0.5, dense), well("3", 0.5, dense)}, 1,
                                     viewAt(0, 0));
    const SectionFrame frame = sectionFrame(section, {"2", "2", false});
    EXPECT_GT(frame.leftOut, 200);
    EXPECT_EQ(coveringLabels(frame.sketch), QStringList());
    EXPECT_TRUE(holds(frame.sketch, "1") && holds(frame.sketch, "2") && holds(frame.sketch, "3"))
        << "captions always stand";
}

TEST(SectionFrame, StandsForOneWellForNoneAndForWellsWithoutReadings)
{
    for (const std::vector<SectionWell>& wells :
         {std::vector<SectionWell>{}, {well("1", 0, {{1, -1}})}, {well("1", 0, {}), well("2", 10, {}, 90)}}) {
        const Sketch sketch = sectionFrame(TemperatureSection(wells, 0, viewAt(0, 0, true)), {"1", "1", false}).sketch;
        EXPECT_TRUE(holds(sketch, "Масштаб"));
        for (const SectionWell& one : wells)
            EXPECT_TRUE(holds(sketch, one.name));
        for (const SketchText& text : sketch.texts)
            EXPECT_TRUE(std::isfinite(text.x) && std::isfinite(text.y)) << qPrintable(text.text);
        for (const SketchLine& line : sketch.lines) {
            for (const geometry::Point3& point : line.points)
                EXPECT_TRUE(geometry::isFinite(point));
        }
    }
}

TEST(SectionFrame, ATableOfNoWellsIsTwentyUnitsWide)
{
    EXPECT_EQ(rightEnd(sectionFrame(TemperatureSection({}, 0, viewAt(0, 0)), {"1", "1", false}).sketch), 20.0);
    const QString cycle = QStringLiteral("9 - 01.07.23 - 31.07.23 - Лето");
    const Sketch wider = sectionFrame(TemperatureSection({}, 0, viewAt(0, 0)), {"9", cycle, false}).sketch;
    const double length = SketchText{0, 0, cycle, 2.5}.width();
    ASSERT_GT(length, 20.0);
    EXPECT_EQ(rightEnd(wider), 1.0 + length + 1.0) << "the cycle's text has a unit free on both sides";
}

TEST(SectionFrame, ItsTableIsRuledRoundHeadsAndCells)
{
    const Sketch sketch = sectionFrame(TemperatureSection({}, 0, viewAt(0, 0)), {"1", "1", false}).sketch;
    const double left = -2.0 - SketchText{0, 0, "Расстояние, м.", 2.5}.width() - 2.0;
    std::vector<double> upright, level;
    for (const SketchLine& line : sketch.lines) {
        const geometry::Point3 &from = line.points.front(), &to = line.points.back();
        if (from.x == to.x && from.y == -10.0 && to.y == -40.0)
            upright.push_back(from.x);
        if (from.y == to.y && from.x == left && to.x == 20.0)
            level.push_back(from.y);
    }
    EXPECT_EQ(upright, (std::vector<double>{left, -1.5, 20.0}));
    EXPECT_EQ(level, (std::vector<double>{-10.0, -20.0, -30.0, -40.0}));
}

TEST(SectionFrame, NeighbouringLabelsMayTouch)
{
    LabelField field;
    EXPECT_TRUE(field.take({0, 0, 1, 1}));
    EXPECT_FALSE(field.take({0.5, 0.5, 1.5, 1.5}));
    for (const LabelBox& beside : {LabelBox{1, 0, 2, 1}, {-1, 0, 0, 1}, {0, 1, 1, 2}, {0, -1, 1, 0}})
        EXPECT_TRUE(field.take(beside)) << beside.left << " " << beside.bottom;
    EXPECT_FALSE(field.isFree({0.9, 0.9, 1.0, 1.0}));
}

TEST(SectionFrame, AnUprightTextRisesFromItsPlace)
{
    const SketchText upright{10, 20, "12345", 2.0, M_PI / 2.0, SketchText::Left, SketchText::Base};
    const LabelBox risen = boxOf(upright);
    EXPECT_NEAR(risen.left, 8.0, 1e-9);
    EXPECT_NEAR(risen.right, 10.0, 1e-9);
    EXPECT_NEAR(risen.bottom, 20.0, 1e-9);
    EXPECT_NEAR(risen.top, 20.0 + upright.width(), 1e-9);

    const SketchText level{10, 20, "12345", 2.0, 0.0, SketchText::Right, SketchText::Top};
    const LabelBox lying = boxOf(level);
    EXPECT_NEAR(lying.left, 10.0 - level.width(), 1e-9);
    EXPECT_NEAR(lying.right, 10.0, 1e-9);
    EXPECT_NEAR(lying.bottom, 18.0, 1e-9);
    EXPECT_NEAR(lying.top, 20.0, 1e-9);
}

TEST(SectionFrame, NamesPicketsAndOffsets)
{
    EXPECT_EQ(picketText(0, 100), QStringLiteral("Пикет 0"));
    EXPECT_EQ(picketText(200, 100), QStringLiteral("Пикет 2"));
    EXPECT_EQ(picketText(199.999, 100), QStringLiteral("Пикет 2")) << "below what two decimals show";
    EXPECT_EQ(picketText(212.346, 100), QStringLiteral("+12.35"));
    EXPECT_EQ(picketText(99.99, 100), QStringLiteral("+99.99"));
    EXPECT_EQ(picketText(5, 0), QStringLiteral("+5.00"));
}

TEST(SectionFrame, WritesDifferencesAsTheirMapDoes)
{
    EXPECT_EQ(sectionValueText(0.0, true), QStringLiteral("d+0.00"));
    EXPECT_EQ(sectionValueText(-0.5, true), QStringLiteral("d-0.50"));
    EXPECT_EQ(sectionValueText(0.5, true), QStringLiteral("d+0.50"));
    EXPECT_EQ(sectionValueText(0.5, false), QStringLiteral("0.50"));
}

// --- deformation ------------------------------------------------------------------

TEST(DeformationTable, ShowsMillimetresDistancesAndRatios)
{
    const DeformationProfileClass profile =
        profileOf({mark("М1", 0, 10.0, 9.98), mark("М2", 10, 10.0, 9.95), mark("М3", 20, 10.0, INFINITY),
                   mark("М4", 20, 5.0, 5.0), mark("М5", 20, 5.0, 5.01)});
    const std::vector<DeformationTableRow> rows = deformationRows(profile, 0.02);
    ASSERT_EQ(rows.size(), 5u);
    EXPECT_EQ(rows[0].cells, (QStringList{"М1", "10.0000", "9.9800", "-20.00", "--", "--", "--"}));
    EXPECT_EQ(rows[1].cells, (QStringList{"М2", "10.0000", "9.9500", "-50.00", "-30.00", "10.00", "0.003000"}));
    EXPECT_EQ(rows[2].cells, (QStringList{"М3", "10.0000", "--", "--", "--", "10.00", "--"}));
    EXPECT_EQ(rows[3].cells, (QStringList{"М4", "5.0000", "5.0000", "0.00", "--", "0.00", "--"}))
        << "an unmeasured mark parts both pairs";
    EXPECT_EQ(rows[4].cells, (QStringList{"М5", "5.0000", "5.0100", "10.00", "10.00", "0.00", "0.000000"}))
        << "at one place";
    EXPECT_FALSE(rows[3].overLimit);
    EXPECT_TRUE(rows[1].overLimit);
    EXPECT_EQ(largestText(profile), QStringLiteral("Максимальная  осадка,мм 50.00"));
    EXPECT_EQ(meanText(profile), QStringLiteral("Средняя  осадка, мм 20.00"));
}

TEST(DeformationTable, TheLimitMustBePassed)
{
    const DeformationProfilePoint at = mark("М", 0, 0.25, 0.0);
    EXPECT_FALSE(isOverLimit(at, 0.25)) << "exactly at it";
    EXPECT_TRUE(isOverLimit(at, 0.2499));
    EXPECT_FALSE(isOverLimit(at, INFINITY)) << "no norms";
    EXPECT_FALSE(isOverLimit(mark("М", 0, 1.0, INFINITY), 0.0));
}

TEST(DeformationTable, NamesItsColumns)
{
    EXPECT_EQ(deformationTitles("Цикл 1", "Прогноз \n 01.01.24"),
              (QStringList{"Имя", "Цикл 1", "Прогноз \n 01.01.24", "Осадка, мм", "Разность \n осадок, мм",
                           "Расстояние, м", "Отн. разн. \n осадки"}));
}

TEST(DeformationFigures, OfOnePointAndOfNoneStayWhatGradingExpects)
{
    const DeformationProfileClass one = profileOf({mark("М1", 0, 1, 0.9)});
    EXPECT_DOUBLE_EQ(one.deltaMaxAbs, 0.1);
    EXPECT_TRUE(std::isinf(one.relativeMax) && one.relativeMax < 0);
    EXPECT_TRUE(std::isinf(one.deltaDiffMin) && one.deltaDiffMin > 0);
    const DeformationProfileClass none = profileOf({});
    EXPECT_EQ(none.deltaMaxAbs, 0.0);
    EXPECT_EQ(none.deltaMeanAbs, 0.0);
    EXPECT_FALSE(none.isMeasured());
}

TEST(Epure, TheLargestMovementIsTwoUnitsLong)
{
    EXPECT_EQ(epureScale({{0, 0, 0, true, -0.05, false}, {0, 0, 0, true, 0.02, false}}), 40.0);
    EXPECT_EQ(epureScale({{0, 0, 0, true, 0.0, false}}), 0.0);
    EXPECT_EQ(epureScale({{0, 0, 0, false, -9.0, false}}), 0.0) << "unmeasured";
}

TEST(Epure, HangsBlocksBelowTheLineAndColoursWhatIsOverTheLimit)
{
    Sketch sketch;
    LabelField field;
    addEpure({{0, 0, 0, true, -0.05, true},
              {20, 0, 0, true, 0.025, false},
              {40, 0, 0, false, 0, false},
              {60, 0, 0, true, 0, false}},
             sketch, field);
    ASSERT_EQ(sketch.blocks.size(), 2u) << "nothing moved, nothing to fill";
    EXPECT_EQ(sketch.blocks[0].color, 1);
    EXPECT_EQ(sketch.blocks[1].color, kByLayer);
    EXPECT_EQ(sketch.blocks[0].corners[2].y, -2.0);
    EXPECT_EQ(sketch.blocks[1].corners[2].y, 1.0) << "uplift stands above";
    ASSERT_EQ(sketch.texts.size(), 3u);
    EXPECT_EQ(sketch.texts[0].text, QStringLiteral("-50.00"));
    EXPECT_EQ(sketch.texts[0].height, 1.0);
    EXPECT_EQ(sketch.texts[0].across, SketchText::Center);
    EXPECT_EQ(sketch.texts[0].along, SketchText::Middle);
    EXPECT_EQ(sketch.texts[0].color, 1);
    EXPECT_EQ(sketch.texts[2].text, QStringLiteral("0.00"));
}

TEST(Epure, TurnsWithTheLineAndStaysReadable)
{
    Sketch sketch;
    LabelField field;
    addEpure({{0, 0, M_PI, true, -1, false}, {50, 0, M_PI / 2, true, -1, false}}, sketch, field);
    EXPECT_NEAR(sketch.texts[0].angle, 0.0, 1e-12) << "a line drawn to the left reads as one to the right";
    EXPECT_NEAR(sketch.blocks[0].corners[2].y, -2.0, 1e-12);
    EXPECT_NEAR(sketch.texts[1].angle, M_PI / 2, 1e-12);
    EXPECT_NEAR(sketch.blocks[1].corners[2].x, 52.0, 1e-12) << "below an upright line is to its right";
}

TEST(Epure, MarksAtOnePlaceKeepTheirValuesApart)
{
    Sketch sketch;
    LabelField field;
    addEpure({{0, 0, 0, true, -0.05, false}, {0, 0, 0, true, -0.04, false}, {1, 0, 0, true, -0.03, false}}, sketch,
             field);
    EXPECT_EQ(sketch.texts.size(), 3u);
    EXPECT_EQ(coveringLabels(sketch), QStringList());
}

TEST(Epure, DrawsOneProfileBelowTheOther)
{
    const DeformationProfileClass first = profileOf({mark("М1", 0, 10, 9.98), mark("М2", 30, 10, 9.95)});
    const DeformationProfileClass second = profileOf({mark("М3", 0, 10, INFINITY)});
    const Sketch sketch = epureSketch({first, second}, {1000, 500, 2.0, " Цикл 3"}, 0.03);
    EXPECT_EQ(textsOf(sketch, " Цикл 3").size(), 2);
    EXPECT_EQ(textsOf(sketch, "0.0").first(), QStringLiteral("0.0 @ 999, 500"));
    EXPECT_EQ(textsOf(sketch, "-50.00").size(), 1);
    EXPECT_TRUE(textsOf(sketch, "-50.00").first().startsWith("-50.00 @ 1060,"))
        << textsOf(sketch, "-50.00").first().toStdString();
    EXPECT_TRUE(holds(sketch, "М3")) << "an unmeasured profile stands with its axis and names";
    ASSERT_EQ(sketch.blocks.size(), 2u);
    EXPECT_EQ(sketch.blocks[0].color, kByLayer) << "20 mm of 30";
    EXPECT_EQ(sketch.blocks[1].color, kRed) << "50 mm of 30";
    EXPECT_EQ(coveringLabels(sketch), QStringList());
    EXPECT_TRUE(epureSketch({}, {0, 0, 1, ""}, 1).texts.empty());
}
