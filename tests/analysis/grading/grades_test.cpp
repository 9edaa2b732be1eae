// The rules of grading against values worked out by hand.
#include "analysis/grading/position_grades.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr double none = PositionAttributes::none;

PositionAttributes attributes()
{
    PositionAttributes given;
    given.exist = true;
    given.deepMin = 1.0;
    given.deepMax = 3.0;
    given.temperatureH = -1.0;
    given.temperatureBf = -0.5;
    given.baseDepth = 2.0;
    given.averageDiff = 10.0; // centimetres
    given.relativeDiff = 0.004;
    return given;
}

GradeCounts counts(int normal, int limited, int limitedII, int fail, int noMeasures = 0)
{
    return {normal, limited, limitedII, fail, noMeasures, 0};
}

Grade wellOf(double mean, double base) { return wellGrade({true, mean, base}, attributes()); }

MeasuredMark mark(double base, double current) { return {1, QStringLiteral("ДМ"), base, current}; }

} // namespace

TEST(Grades, WordsOfTheSixStates)
{
    const char* const labels[] = {"Р", "ОР I", "ОР II", "H", "НИ", "--"};
    const char* const keys[] = {"isNormal", "isLimited", "isLimitedII", "isFail", "noMeas", "noAttr"};
    for (int code = 0; code < 6; ++code) {
        EXPECT_EQ(gradeLabel(Grade(code)), labels[code]);
        EXPECT_STREQ(gradeWords(Grade(code)).key, keys[code]);
    }
    EXPECT_STREQ(gradeWords(Grade::LimitedII).meaning, "Ограниченно \nРабочие II");
    EXPECT_EQ(gradeLabel(Grade::Fail), QString(QLatin1Char('H'))) << "a Latin letter";
}

TEST(Grades, OfAWellByMeanAndBase)
{
    // T_h is -1, T_bf is -0.5
    EXPECT_EQ(wellOf(-2.0, 5.0), Grade::Normal) << "the base decides nothing yet";
    EXPECT_EQ(wellOf(-1.0, -1.0), Grade::Normal) << "exactly at T_h";
    EXPECT_EQ(wellOf(-0.99, 5.0), Grade::Limited);
    EXPECT_EQ(wellOf(-0.5, 5.0), Grade::Limited) << "exactly at T_bf";
    EXPECT_EQ(wellOf(-0.4, -0.6), Grade::LimitedII);
    EXPECT_EQ(wellOf(-0.4, -0.4), Grade::Fail);
    EXPECT_EQ(wellOf(-0.4, -0.5), Grade::NoMeasures) << "the base exactly at T_bf";
    EXPECT_EQ(wellOf(std::nan(""), -0.6), Grade::NoMeasures);
    EXPECT_EQ(wellGrade({}, attributes()), Grade::NoMeasures);
    PositionAttributes without = attributes();
    without.temperatureH = none;
    EXPECT_EQ(wellGrade({true, -5.0, -5.0}, without), Grade::NoMeasures);
}

TEST(Grades, TemperaturesOfALog)
{
    const TemperatureLog log{{0.0, 0.0}, {1.0, -1.0}, {2.0, -2.0}, {3.0, -4.0}, {4.0, -4.0}};
    WellTemperatures found = wellTemperatures(log, attributes());
    EXPECT_TRUE(found.known);
    EXPECT_DOUBLE_EQ(found.mean, -2.25) << "(1.5 + 3) / 2";
    EXPECT_DOUBLE_EQ(found.base, -2.0);

    PositionAttributes given = attributes();
    given.baseDepth = none;
    EXPECT_DOUBLE_EQ(wellTemperatures(log, given).base, -4.0) << "at the lower depth instead";
    given.deepMax = 4.0;
    EXPECT_FALSE(wellTemperatures(log, given).known) << "the deepest reading interpolates to nothing";
    given.baseDepth = 2.0;
    EXPECT_TRUE(wellTemperatures(log, given).known);
    given.deepMax = none;
    EXPECT_TRUE(wellTemperatures(log, given).known) << "the mean goes to the bottom";
    given.deepMin = none;
    EXPECT_FALSE(wellTemperatures(log, given).known) << "an empty field is no depth";
    given.deepMin = given.deepMax = 1.5;
    EXPECT_DOUBLE_EQ(wellTemperatures(log, given).mean, -1.5) << "equal depths interpolate";
    EXPECT_FALSE(wellTemperatures({}, attributes()).known);
    EXPECT_FALSE(wellTemperatures({{0.0, 0.0}, {1.0, none}, {3.0, -4.0}, {4.0, -4.0}}, attributes()).known);
}

TEST(Grades, ABaseThatFailsEndsItWhereTheMeanAloneWouldDecide)
{
    PositionAttributes given = attributes();
    given.baseDepth = 9.0;
    const TemperatureLog log{{1.0, -5.0}, {3.0, -5.0}};
    EXPECT_EQ(wellGrade(wellTemperatures(log, given), given), Grade::NoMeasures);
}

TEST(Grades, LimitsThatStandWithoutAttributes)
{
    const PositionAttributes start;
    EXPECT_FALSE(start.exist);
    EXPECT_EQ(start.temperatureH, -0.5);
    EXPECT_EQ(start.temperatureBf, -0.1);
    EXPECT_EQ(start.baseDepth, 0.0);
    EXPECT_EQ(start.deepMin, 0.0);
    EXPECT_TRUE(std::isinf(start.deepMax));
    EXPECT_EQ(wellGrade({true, -0.5, 0.0}, start), Grade::Normal);
    EXPECT_EQ(wellGrade({true, -0.1, 0.0}, start), Grade::Limited);
    const SettlementLimits limits = settlementLimits(start);
    EXPECT_EQ(markGrade(1000.0, limits), Grade::Normal) << "without a limit any settlement is one";
    EXPECT_EQ(markGrade(none, limits), Grade::NoMeasures);
}

TEST(Grades, OfAMark)
{
    const SettlementLimits limits = settlementLimits(attributes());
    EXPECT_DOUBLE_EQ(limits.normal, 0.1);
    EXPECT_DOUBLE_EQ(limits.limited, 0.11);
    EXPECT_EQ(markGrade(0.0, limits), Grade::Normal);
    EXPECT_EQ(markGrade(limits.normal, limits), Grade::Normal) << "exactly A";
    EXPECT_EQ(markGrade(std::nextafter(limits.normal, 1.0), limits), Grade::Limited);
    EXPECT_EQ(markGrade(limits.limited, limits), Grade::Limited) << "exactly 1.1 A";
    EXPECT_EQ(markGrade(std::nextafter(limits.limited, 1.0), limits), Grade::Fail);
    EXPECT_EQ(markGrade(none, limits), Grade::NoMeasures);
    EXPECT_EQ(markGrade(std::nan(""), limits), Grade::NoMeasures);
}

TEST(Grades, ADifferenceOfDoublesHasNoTolerance)
{
    PositionAttributes given = attributes();
    given.averageDiff = 5.0;
    const GradedSide side = gradeMarks({mark(10.0, 10.05), mark(10.05, 10.0), mark(10.0, none)}, given);
    EXPECT_EQ(side.counts, counts(0, 2, 0, 0, 1)) << "10.05 less 10 is more than 0.05";
}

TEST(Grades, OfAProfile)
{
    // Limit 0.004: 0.001, 0.0032 and 0.004 are the borders.
    EXPECT_EQ(profileGrade(0.0, 0.004), Grade::Normal);
    EXPECT_EQ(profileGrade(0.25, 1.0), Grade::Normal);
    EXPECT_EQ(profileGrade(0.26, 1.0), Grade::Limited);
    EXPECT_EQ(profileGrade(0.8, 1.0), Grade::Limited);
    EXPECT_EQ(profileGrade(0.81, 1.0), Grade::LimitedII);
    EXPECT_EQ(profileGrade(1.0, 1.0), Grade::LimitedII);
    EXPECT_EQ(profileGrade(1.01, 1.0), Grade::Fail);
    EXPECT_EQ(profileGrade(0.0035, 0.004), Grade::LimitedII);
    EXPECT_EQ(profileGrade(-none, 0.004), Grade::NoMeasures) << "no pair";
    EXPECT_EQ(profileGrade(0.001, 0.0), Grade::NoMeasures);
    EXPECT_EQ(profileGrade(0.001, none), Grade::NoMeasures);
}

TEST(Grades, TheWorstOfWellsAndOfProfiles)
{
    EXPECT_EQ(worstGrade(counts(5, 1, 1, 1)), Grade::Fail);
    EXPECT_EQ(worstGrade(counts(5, 1, 1, 0)), Grade::LimitedII);
    EXPECT_EQ(worstGrade(counts(5, 1, 0, 0)), Grade::Limited);
    EXPECT_EQ(worstGrade(counts(1, 0, 0, 0, 9)), Grade::Normal);
    EXPECT_EQ(worstGrade(counts(0, 0, 0, 0, 9)), Grade::NoMeasures);
    EXPECT_EQ(worstGrade({}), Grade::NoMeasures);
}

TEST(Grades, OfMarksByTheShareThatFails)
{
    EXPECT_EQ(settlementGrade(counts(3, 0, 0, 1)), Grade::Limited) << "1 of 4";
    EXPECT_EQ(settlementGrade(counts(2, 0, 0, 1)), Grade::LimitedII) << "1 of 3";
    EXPECT_EQ(settlementGrade(counts(0, 1, 0, 1)), Grade::LimitedII) << "1 of 2";
    EXPECT_EQ(settlementGrade(counts(1, 0, 0, 2)), Grade::Fail) << "2 of 3";
    EXPECT_EQ(settlementGrade(counts(0, 99, 0, 1)), Grade::Limited) << "those of state 1 are counted";
    EXPECT_EQ(settlementGrade(counts(0, 99, 0, 0)), Grade::Normal) << "none fails";
    EXPECT_EQ(settlementGrade(counts(1, 0, 0, 0, 50)), Grade::Normal) << "those without measures are not counted";
    EXPECT_EQ(settlementGrade(counts(0, 0, 0, 0, 50)), Grade::NoMeasures);
}

TEST(Grades, OfThePositionForAllThreeGrades)
{
    // A block a thermal grade, a line a settlement grade, a digit a relative grade.
    const char* const expected[6][6] = {
        {"012305", "111315", "212325", "333335", "012305", "555555"},
        {"111315", "111315", "111315", "333335", "111315", "555555"},
        {"212325", "111315", "212325", "333335", "212325", "555555"},
        {"333335", "333335", "333335", "333335", "333335", "555555"},
        {"012305", "111315", "212325", "333335", "012345", "555555"},
        {"555555", "555555", "555555", "555555", "555555", "555555"},
    };
    for (int t = 0; t < 6; ++t) {
        for (int s = 0; s < 6; ++s) {
            for (int r = 0; r < 6; ++r)
                EXPECT_EQ(int(positionGrade(Grade(t), Grade(s), Grade(r))), expected[t][s][r] - '0')
                    << t << ", " << s << ", " << r;
        }
    }
}

TEST(Grades, OfNeighboursAlongAProfile)
{
    // Pairs: 10 mm over 5 m, and 30 mm over 10 m.
    const ProfileFigures figures = computeFigures({{0, 0, true, -0.01}, {3, 4, true, -0.02}, {13, 4, true, 0.01}});
    EXPECT_DOUBLE_EQ(figures.relativeMin, 0.002);
    EXPECT_DOUBLE_EQ(figures.relativeMax, 0.003);
    EXPECT_DOUBLE_EQ(figures.deltaDiffMin, -0.01);
    EXPECT_DOUBLE_EQ(figures.deltaDiffMax, 0.03);
    EXPECT_DOUBLE_EQ(figures.deltaMaxAbs, 0.02);
    EXPECT_DOUBLE_EQ(figures.deltaMeanAbs, 0.04 / 3.0);
}

TEST(Grades, APointWithoutMeasuresPartsBothPairs)
{
    const ProfileFigures parted = computeFigures({{0, 0, true, 0.0}, {1, 0, false, 0.0}, {2, 0, true, 1.0}});
    EXPECT_EQ(parted.relativeMax, -none);
    EXPECT_EQ(parted.relativeMin, none);
    EXPECT_EQ(parted.deltaMaxAbs, 1.0);
    EXPECT_EQ(computeFigures({}).deltaMeanAbs, 0.0);
    EXPECT_EQ(computeFigures({{0, 0, true, 0.5}}).relativeMax, -none) << "one point has no neighbour";
    EXPECT_EQ(computeFigures({{7, 7, true, 0.0}, {7, 7, true, 1.0}}).relativeMax, 0.0) << "marks at one place";
}

TEST(Grades, SidesWithoutAttributesOrProfiles)
{
    const PositionAttributes absent;
    EXPECT_EQ(gradeWells({}, absent).grade, Grade::NoAttributes);
    EXPECT_EQ(gradeMarks({mark(1, 1)}, absent).grade, Grade::NoAttributes);
    EXPECT_EQ(gradeMarks({mark(1, 1)}, absent).counts, counts(1, 0, 0, 0)) << "the marks have grades all the same";
    EXPECT_EQ(gradeProfiles({{1, "П", {}}}, absent).grade, Grade::NoAttributes);
    EXPECT_EQ(gradeProfiles({}, attributes()).grade, Grade::NoAttributes);
    EXPECT_EQ(gradeProfiles({{1, "П", {}}}, attributes()).grade, Grade::NoMeasures);
    EXPECT_EQ(gradeWells({}, attributes()).grade, Grade::NoMeasures);
    EXPECT_EQ(gradeMarks({}, attributes()).grade, Grade::NoMeasures);
}

TEST(Grades, APositionWithoutAProfileHasNoState)
{
    PositionGrades grades;
    grades.attributes = attributes();
    PositionMeasures measures;
    measures.marks = {mark(1.0, 1.0)};
    gradePosition(measures, grades);
    EXPECT_EQ(grades.settlement.grade, Grade::Normal);
    EXPECT_EQ(grades.grade, Grade::NoAttributes);
    measures.profiles = {{1, "П", {{0, 0, true, 0.0}, {10, 0, true, 0.03}}}};
    gradePosition(measures, grades);
    EXPECT_EQ(grades.relative.grade, Grade::Limited) << "0.003 of 0.004";
    EXPECT_EQ(grades.grade, Grade::Limited);
}
