#include "elements/measures/temperature_log.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {

constexpr double missing = std::numeric_limits<double>::infinity();
const double notANumber = std::nan("");

const TemperatureLog well = {{1.0, 2.0}, {2.0, 4.0}, {4.0, 0.0}, {5.0, -6.0}};

double meanOf(const TemperatureLog& log, double from, double to, bool toEnd = false,
              EqualBounds equal = EqualBounds::Fail)
{
    double out = notANumber;
    EXPECT_TRUE(weightedMean(log, from, to, toEnd, out, equal));
    return out;
}

bool meanFails(const TemperatureLog& log, double from, double to, bool toEnd = false,
               EqualBounds equal = EqualBounds::Fail)
{
    double out = 77.0;
    const bool failed = !weightedMean(log, from, to, toEnd, out, equal);
    return failed && out == 77.0;
}

bool interpolationFails(const TemperatureLog& log, double key)
{
    double out = 77.0;
    return !interpolate(log, key, out) && out == 77.0;
}

} // namespace

TEST(TemperatureProfile, TextOfOnePairYieldsOnePair)
{
    TemperatureProfile profile;
    EXPECT_TRUE(parseProfile("0.50:-1.23", profile));
    EXPECT_EQ(profile, (TemperatureProfile{{0.5, -1.23}}));
}

TEST(TemperatureProfile, EmptyTextIsGoodAndYieldsNone)
{
    TemperatureProfile profile;
    EXPECT_TRUE(parseProfile({}, profile));
    EXPECT_TRUE(profile.isEmpty());
}

TEST(TemperatureProfile, PairsKeepTheirOrderAndAreNotSorted)
{
    TemperatureProfile profile;
    EXPECT_TRUE(parseProfile("3.00:1.00|1.00:2.00|3.00:5.00", profile));
    EXPECT_EQ(profile, (TemperatureProfile{{3, 1}, {1, 2}, {3, 5}}));
}

TEST(TemperatureProfile, EmptyPiecesArePassedOver)
{
    TemperatureProfile profile;
    EXPECT_TRUE(parseProfile("|0.50:1||1.00:2|", profile));
    EXPECT_EQ(profile, (TemperatureProfile{{0.5, 1}, {1, 2}}));
}

class BrokenProfile : public ::testing::TestWithParam<const char*> { };

TEST_P(BrokenProfile, FailsAndKeepsThePairsBefore)
{
    TemperatureProfile profile;
    EXPECT_FALSE(parseProfile(QStringLiteral("0.50:1|%1|2.00:3").arg(QString::fromUtf8(GetParam())), profile));
    EXPECT_EQ(profile, (TemperatureProfile{{0.5, 1}}));
}

INSTANTIATE_TEST_SUITE_P(Pieces, BrokenProfile,
                         ::testing::Values("1.00", "1.00:2:3", "1.00:", ":2.00", "1,00:2", "x:1", "1:x", " ", "1:2m"));

TEST(TemperatureProfile, BlanksAroundNumbersAndInfinityConvert)
{
    TemperatureProfile profile;
    EXPECT_TRUE(parseProfile(" 1.00 : inf ", profile));
    ASSERT_EQ(profile.size(), 1);
    EXPECT_EQ(profile[0], qMakePair(1.0, missing));
}

TEST(TemperatureProfile, IsWrittenWithTwoDecimalsInItsOwnOrder)
{
    EXPECT_EQ(profileText({{0.5, -1.23}, {1.0, -1.8}}), "0.50:-1.23|1.00:-1.80");
    EXPECT_EQ(profileText({{3, 1}, {1, 2}}), "3.00:1.00|1.00:2.00");
    EXPECT_EQ(profileText({}), "");
}

TEST(TemperatureProfile, ExactTiesRoundAwayFromZero)
{
    EXPECT_EQ(profileText({{0.125, -0.125}, {2.0, -0.001}}), "0.13:-0.13|2.00:-0.00");
}

TEST(TemperatureProfile, WhatWasWrittenReadsBackWithinTwoDecimals)
{
    std::mt19937 random(20240117);
    std::uniform_real_distribution<double> depth(0.0, 120.0), temperature(-40.0, 30.0);
    std::uniform_int_distribution<int> length(0, 40);
    for (int round = 0; round < 300; ++round) {
        TemperatureProfile profile;
        for (int i = length(random); i > 0; --i)
            profile.append({depth(random), temperature(random)});
        TemperatureProfile back;
        ASSERT_TRUE(parseProfile(profileText(profile), back));
        ASSERT_EQ(back.size(), profile.size());
        for (int i = 0; i < back.size(); ++i) {
            ASSERT_NEAR(back[i].first, profile[i].first, 0.0050001);
            ASSERT_NEAR(back[i].second, profile[i].second, 0.0050001);
        }
        ASSERT_EQ(profileText(back), profileText(profile));
    }
}

TEST(TemperatureLog, IsSortedAndTheLaterOfEqualDepthsWins)
{
    EXPECT_EQ(logOf({{3, 1}, {1, 2}, {3, 5}}), (TemperatureLog{{1, 2}, {3, 5}}));
}

TEST(TemperatureLog, DepthThatIsNotANumberIsLeftOut)
{
    EXPECT_EQ(logOf({{1, 2}, {notANumber, 9}, {0.5, 3}}), (TemperatureLog{{0.5, 3}, {1, 2}}));
}

TEST(Interpolate, IsLinearBetweenReadings)
{
    double out = 0;
    ASSERT_TRUE(interpolate(well, 1.25, out));
    EXPECT_DOUBLE_EQ(out, 2.5);
    ASSERT_TRUE(interpolate(well, 3.0, out));
    EXPECT_DOUBLE_EQ(out, 2.0);
}

TEST(Interpolate, TakesTheReadingAtAnyKeyButTheLast)
{
    double out = 0;
    ASSERT_TRUE(interpolate(well, 1.0, out));
    EXPECT_EQ(out, 2.0);
    ASSERT_TRUE(interpolate(well, 4.0, out));
    EXPECT_EQ(out, 0.0);
    EXPECT_TRUE(interpolationFails(well, 5.0));
}

TEST(Interpolate, FailsOutsideTheLog)
{
    EXPECT_TRUE(interpolationFails(well, 0.99));
    EXPECT_TRUE(interpolationFails(well, 5.01));
    EXPECT_TRUE(interpolationFails(well, notANumber));
    EXPECT_TRUE(interpolationFails({}, 1.0));
    EXPECT_TRUE(interpolationFails({{1.0, 2.0}}, 1.0));
}

TEST(Interpolate, FailsBesideAMissingReading)
{
    EXPECT_TRUE(interpolationFails({{1, 2}, {2, missing}}, 1.0));
    EXPECT_TRUE(interpolationFails({{1, notANumber}, {2, 3}}, 1.5));
    EXPECT_TRUE(interpolationFails({{1, -missing}, {2, 3}}, 1.5));
}

TEST(WeightedMean, IsWeightedByDepth)
{
    // (3*1 + 2*2 - 3*1) / 4
    EXPECT_DOUBLE_EQ(meanOf(well, 1, 5), 1.0);
}

TEST(WeightedMean, DrawsItsBoundsIn)
{
    EXPECT_EQ(meanOf(well, -10, 100), meanOf(well, 1, 5));
    EXPECT_EQ(meanOf(well, -missing, missing), meanOf(well, 1, 5));
    EXPECT_EQ(meanOf(well, 0, 2), meanOf(well, 1, 2));
}

TEST(WeightedMean, CutsTheStepsAtItsBounds)
{
    // 1.5..2: (3+4)/2*0.5 = 1.75; 2..4: 4; 4..4.5: (0-3)/2*0.5 = -0.75
    EXPECT_DOUBLE_EQ(meanOf(well, 1.5, 4.5), 5.0 / 3.0);
}

TEST(WeightedMean, AddsBothPartsOfOneStepAlthoughTheyOverlap)
{
    // Of 2..4: below 2.5 (T 3): (0+3)/2*1.5 = 2.25; above 3.5 (T 1): (4+1)/2*1.5 = 3.75
    EXPECT_DOUBLE_EQ(meanOf(well, 2.5, 3.5), 6.0 / 3.0);
    // Not symmetric: of 4..5: below 4.25 (T -1.5): -7.5/2*0.75; above 4.5 (T -3): -3/2*0.5
    EXPECT_DOUBLE_EQ(meanOf(well, 4.25, 4.5), (-7.5 / 2 * 0.75 - 3.0 / 2 * 0.5) / 1.25);
}

TEST(WeightedMean, WithToEndGoesDownToTheLastKey)
{
    EXPECT_EQ(meanOf(well, 2, 3, true), meanOf(well, 2, 5));
    EXPECT_EQ(meanOf(well, 2, notANumber, true), meanOf(well, 2, 5));
}

TEST(WeightedMean, FailsOnAMissingReadingOnlyWithoutToEnd)
{
    const TemperatureLog broken = {{0, 1}, {1, 3}, {2, missing}, {3, 5}, {4, 7}};
    EXPECT_TRUE(meanFails(broken, 0, 4));
    EXPECT_DOUBLE_EQ(meanOf(broken, 0, 4, true), (2.0 + 6.0) / 2.0);
    EXPECT_DOUBLE_EQ(meanOf(broken, 0, 1), 2.0);
}

TEST(WeightedMean, FailsWhereABoundFallsBesideAMissingReadingEvenWithToEnd)
{
    const TemperatureLog broken = {{0, 1}, {1, missing}, {2, 3}, {3, 5}};
    EXPECT_TRUE(meanFails(broken, 0.5, 3, true));
    EXPECT_TRUE(meanFails(broken, 0.5, 3));
    EXPECT_TRUE(meanFails({{0, 1}, {1, 3}, {2, missing}}, 0, 1.5));
}

TEST(WeightedMean, FailsWhenEveryStepWasPassedOver)
{
    EXPECT_TRUE(meanFails({{0, missing}, {1, missing}, {2, 3}}, 0, 1, true));
}

TEST(WeightedMean, FailsOnAnEmptyLogAndOnBoundsThatDoNotMeetIt)
{
    EXPECT_TRUE(meanFails({}, 0, 1));
    EXPECT_TRUE(meanFails({}, 0, 0, true, EqualBounds::Interpolate));
    EXPECT_TRUE(meanFails(well, 4, 2));
    EXPECT_TRUE(meanFails(well, 6, 7));
    EXPECT_TRUE(meanFails(well, -2, 0));
    EXPECT_TRUE(meanFails(well, 6, 7, true));
    EXPECT_TRUE(meanFails(well, missing, -missing));
    EXPECT_TRUE(meanFails(well, notANumber, 4));
    EXPECT_TRUE(meanFails(well, 2, notANumber));
}

TEST(WeightedMean, EqualBoundsFailForMapsAndInterpolateForGrading)
{
    EXPECT_TRUE(meanFails(well, 3, 3));
    EXPECT_DOUBLE_EQ(meanOf(well, 3, 3, false, EqualBounds::Interpolate), 2.0);
    // The deepest key interpolates to nothing.
    EXPECT_TRUE(meanFails(well, 5, 5, false, EqualBounds::Interpolate));
    EXPECT_TRUE(meanFails(well, 5, 2, true, EqualBounds::Interpolate));
    EXPECT_TRUE(meanFails({{1, 2}}, 0, 9, false, EqualBounds::Interpolate));
}

TEST(WeightedMean, UnequalBoundsDoNotDependOnTheVariant)
{
    EXPECT_EQ(meanOf(well, 2.5, 3.5, false, EqualBounds::Interpolate), meanOf(well, 2.5, 3.5));
}

namespace {

bool profileMeanFails(const TemperatureLog& log, double a, double b)
{
    double out = 77.0;
    return !profileMean(log, a, b, out) && out == 77.0;
}

double profileMeanOf(const TemperatureLog& log, double a, double b)
{
    double out = notANumber;
    EXPECT_TRUE(profileMean(log, a, b, out));
    return out;
}

} // namespace

TEST(ProfileMean, IsTheIntegralOverTheLength)
{
    EXPECT_DOUBLE_EQ(profileMeanOf(well, 1, 5), 1.0);
    EXPECT_DOUBLE_EQ(profileMeanOf(well, 1.5, 4.5), 5.0 / 3.0);
    EXPECT_DOUBLE_EQ(profileMeanOf(well, -missing, missing), 1.0);
}

TEST(ProfileMean, InsideOneStepCountsThePartOnce)
{
    EXPECT_DOUBLE_EQ(profileMeanOf(well, 2.5, 3.5), 2.0);
    EXPECT_DOUBLE_EQ(profileMeanOf(well, 4.25, 4.5), (-1.5 - 3.0) / 2);
}

TEST(ProfileMean, EqualBoundsInterpolateAndFailAtTheDeepest)
{
    EXPECT_DOUBLE_EQ(profileMeanOf(well, 3, 3), 2.0);
    EXPECT_TRUE(profileMeanFails(well, 5, 5));
    EXPECT_TRUE(profileMeanFails(well, 0.5, 0.5));
}

TEST(ProfileMean, FailsOnReversedBoundsEmptyLogsAndBoundsBesideTheLog)
{
    EXPECT_TRUE(profileMeanFails(well, 4, 2));
    EXPECT_TRUE(profileMeanFails({}, 0, 1));
    EXPECT_TRUE(profileMeanFails({{1, 2}}, 0, 3));
    EXPECT_TRUE(profileMeanFails(well, 6, 9));
    EXPECT_TRUE(profileMeanFails(well, -3, 1));
    EXPECT_TRUE(profileMeanFails(well, notANumber, 3));
    EXPECT_TRUE(profileMeanFails(well, 2, notANumber));
}

TEST(ProfileMean, AMissingReadingInsideFailsTheWhole)
{
    const TemperatureLog broken = {{0, 1}, {1, 3}, {2, missing}, {3, 5}, {4, 7}};
    EXPECT_TRUE(profileMeanFails(broken, 0, 4));
    EXPECT_TRUE(profileMeanFails(broken, 0, 1.5));
    EXPECT_DOUBLE_EQ(profileMeanOf(broken, 0, 1), 2.0);
    EXPECT_DOUBLE_EQ(profileMeanOf(broken, 3, 4), 6.0);
}

TEST(ProfileMean, AgreesWithTheMapsMeanWhereNoTwoBoundsShareAStep)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> value(-20.0, 20.0), bound(0.0, 10.0);
    for (int round = 0; round < 500; ++round) {
        TemperatureLog log;
        for (int i = 0; i <= 10; ++i)
            log[i] = value(random);
        const double from = bound(random);
        const double to = bound(random);
        if (std::ceil(from) > std::floor(to))
            continue;
        ASSERT_NEAR(profileMeanOf(log, from, to), meanOf(log, from, to), 1e-9);
    }
}
