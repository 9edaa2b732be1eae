#include "exchange/profile_reader.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

constexpr double kMissing = std::numeric_limits<double>::infinity();

struct Answer {
    int code;
    TemperatureProfile profile;
};

Answer readPair(const QString& header, const QString& data, ProfileColumns columns = {1, 0}, QChar separator = ';')
{
    Answer answer;
    answer.code = ProfileReader(header, separator, columns).read(data, answer.profile);
    return answer;
}

} // namespace

TEST(ProfileReader, PutsTemperaturesUnderTheirDepths)
{
    const Answer answer = readPair("Имя;1,5;2.5 м;глубина 3", "a;-,5;-1,25;2");
    EXPECT_EQ(answer.code, profileOk);
    EXPECT_EQ(answer.profile, TemperatureProfile({{1.5, -0.5}, {2.5, -1.25}, {3.0, 2.0}}));
}

TEST(ProfileReader, LeavesTheTailOff)
{
    const Answer answer = readPair("a;1;2;x;y", "a;5;6;7;8", {1, 2});
    EXPECT_EQ(answer.code, profileOk);
    EXPECT_EQ(answer.profile, TemperatureProfile({{1.0, 5.0}, {2.0, 6.0}}));
}

TEST(ProfileReader, KeepsTheOrderOfTheFile)
{
    EXPECT_EQ(readPair("a;3;1;3", "a;1;2;3").profile, TemperatureProfile({{3.0, 1.0}, {1.0, 2.0}, {3.0, 3.0}}));
}

TEST(ProfileReader, AProfileBehindTheEndOfTheLineIsBad)
{
    EXPECT_EQ(readPair("a", "a;1").code, profileBad);
    EXPECT_EQ(readPair("a;1", "a").code, profileBad);
    EXPECT_EQ(readPair("a;1", "a;5", {1, 0}, QChar()).code, profileBad);
}

TEST(ProfileReader, EmptyCellsHaveNoTemperature)
{
    const Answer answer = readPair("a;1;2;3", "a;;-2;");
    EXPECT_EQ(answer.code, profileOk);
    EXPECT_EQ(answer.profile, TemperatureProfile({{2.0, -2.0}}));
}

TEST(ProfileReader, NoTemperatureAtAllIsBad)
{
    EXPECT_EQ(readPair("a;1;2", "a;;").code, profileBad);
    EXPECT_EQ(readPair("a;1;2", "a;1;2", {1, 2}).code, profileBad);
    EXPECT_TRUE(readPair("a;1;2", "a;;").profile.isEmpty());
}

// Terminators of a line may hang in a cell of a file that was glued together.
TEST(ProfileReader, CellsThatHoldALineEndArePassedOver)
{
    const Answer answer = readPair("a;1;2;3", "a;1;\r;3");
    EXPECT_EQ(answer.code, profileOk);
    EXPECT_EQ(answer.profile, TemperatureProfile({{1.0, 1.0}, {3.0, 3.0}}));
}

TEST(ProfileReader, AWordAmongTheTemperaturesEndsTheProfile)
{
    const Answer answer = readPair("a;1;2;3", "a;1;обрыв;3");
    EXPECT_EQ(answer.code, profileBad);
    EXPECT_EQ(answer.profile, TemperatureProfile({{1.0, 1.0}}));
    EXPECT_EQ(readPair("a;1;2;3", "a;1; ;3").code, profileBad) << "a blank is no empty cell";
}

TEST(ProfileReader, MoreTemperaturesThanDepthsGiveNoData)
{
    const Answer answer = readPair("a;1;2", "a;1;2;3");
    EXPECT_EQ(answer.code, profileTooLong);
    EXPECT_TRUE(answer.profile.isEmpty());
    EXPECT_EQ(readPair("a;1;2", "a;1;2;;").code, profileOk) << "empty cells at the end do not count";
}

TEST(ProfileReader, AWordAmongTheDepthsEndsTheProfile)
{
    const Answer answer = readPair("a;1;глубина;3", "a;1;2;3");
    EXPECT_EQ(answer.code, profileBad);
    EXPECT_TRUE(answer.profile.isEmpty());
}

// The pairs close up over an empty header cell, so temperatures meet the next depths.
TEST(ProfileReader, AnEmptyHeaderCellMovesTheDepths)
{
    const Answer answer = readPair("a;1;;3", "a;10;20");
    EXPECT_EQ(answer.code, profileOk);
    EXPECT_EQ(answer.profile, TemperatureProfile({{1.0, 10.0}, {3.0, 20.0}}));
}

// Lines are trimmed whole: with tabs the empty cells at both ends go with it.
TEST(ProfileReader, TabsAtTheEndsAreTrimmed)
{
    const Answer answer = readPair("\ta\t1\t2", "\ta\t5\t6\t\t", {1, 0}, '\t');
    EXPECT_EQ(answer.code, profileOk);
    EXPECT_EQ(answer.profile, TemperatureProfile({{1.0, 5.0}, {2.0, 6.0}}));
}

TEST(ProfileReader, OneHeaderServesManyLines)
{
    const ProfileReader reader("a;1;2", ';', {1, 0});
    TemperatureProfile profile;
    EXPECT_EQ(reader.read("a;1;2", profile), profileOk);
    EXPECT_EQ(reader.read("a;3;", profile), profileOk);
    EXPECT_EQ(profile, TemperatureProfile({{1.0, 3.0}}));
    EXPECT_EQ(ProfileReader().read("a;1", profile), profileBad);
    EXPECT_TRUE(profile.isEmpty());
}

TEST(ReadDepths, AppendsPairsWithoutATemperature)
{
    TemperatureProfile profile;
    EXPECT_EQ(readDepths({"1,5", "-2", "", "4", "", ""}, profile), profileOk);
    EXPECT_EQ(profile, TemperatureProfile({{1.5, kMissing}, {2.0, kMissing}, {4.0, kMissing}}));
}

TEST(ReadDepths, ReplacesTheDepthsOfAReadProfile)
{
    TemperatureProfile profile = {{1.0, -1.0}, {2.0, -2.0}, {3.0, -3.0}};
    EXPECT_EQ(readDepths({"10", "20"}, profile), profileOk);
    EXPECT_EQ(profile, TemperatureProfile({{10.0, -1.0}, {20.0, -2.0}, {3.0, -3.0}}));
    EXPECT_EQ(readDepths({"5", "", "7"}, profile), profileBad);
    EXPECT_EQ(profile, TemperatureProfile({{5.0, -1.0}, {20.0, -2.0}, {3.0, -3.0}}));
    EXPECT_EQ(readDepths({"1", "2", "3", "4"}, profile), profileTooLong);
}
