// Colour maps: built-in scales, the gradient, files and rows.
#include "analysis/levels/built_in_scales.h"
#include "analysis/levels/level_map.h"
#include "support/session_database.h"

#include <QFile>
#include <QTemporaryDir>
#include <cmath>

namespace {

using Rgb = std::array<int, 3>;

Rgb rgb(const LevelRange& range) { return {range.color.red(), range.color.green(), range.color.blue()}; }

QString written(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void write(const QString& path, const QByteArray& text)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
}

class LevelMapFiles : public ::testing::Test {
protected:
    QString path(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }
    QTemporaryDir folder_;
};

class LevelMapRows : public SessionDatabase { };

} // namespace

TEST(BuiltInScales, TemperaturesHave14RangesFromMinus20To10)
{
    const LevelMap map(LevelMap::Temperature);
    ASSERT_EQ(map.ranges.size(), 14u);
    EXPECT_EQ(map.name, QStringLiteral("Карта температур"));
    EXPECT_EQ(map.minimum, -20.0);
    EXPECT_EQ(map.maximum, 10.0);
    EXPECT_EQ(rgb(map.ranges.front()), (Rgb{130, 100, 180}));
    EXPECT_EQ(map.ranges[7].min, -0.5);
    EXPECT_EQ(map.ranges[7].max, 0.0);
    EXPECT_EQ(rgb(map.ranges[7]), (Rgb{200, 250, 250}));
    EXPECT_EQ(rgb(map.ranges.back()), (Rgb{250, 50, 50}));
}

TEST(BuiltInScales, DeformationsHave16RangesAndTwoColoursMore)
{
    const LevelMap map(LevelMap::Deformation);
    ASSERT_EQ(map.ranges.size(), 16u);
    EXPECT_EQ(map.name, QStringLiteral("Карта деформаций"));
    EXPECT_EQ(map.minimum, -100.0);
    EXPECT_EQ(map.maximum, 100.0);
    EXPECT_EQ(rgb(map.ranges.front()), (Rgb{130, 100, 180}));
    EXPECT_EQ(rgb(map.ranges[14]), (Rgb{250, 130, 200}));
    EXPECT_EQ(rgb(map.ranges[15]), (Rgb{250, 50, 250}));
}

TEST(BuiltInScales, TheUsersOwnMapIsEmptyUntilTheGradient)
{
    const LevelMap map(LevelMap::User);
    EXPECT_TRUE(map.ranges.empty());
    EXPECT_EQ(map.name, QStringLiteral("Пользовательская"));
    EXPECT_TRUE(std::isinf(map.minimum) && map.minimum > 0);
    EXPECT_TRUE(std::isinf(map.maximum) && map.maximum < 0);
}

TEST(LevelMap, LevelsAreTheFirstLowerBoundAndEveryUpperOne)
{
    const std::vector<double> levels = LevelMap(LevelMap::Temperature).levels();
    ASSERT_EQ(levels.size(), 15u);
    EXPECT_EQ(levels.front(), -20.0);
    EXPECT_EQ(levels[1], -15.0);
    EXPECT_EQ(levels.back(), 10.0);
    EXPECT_TRUE(LevelMap(LevelMap::User).levels().empty());
}

TEST(LevelMap, AValueAtAnUpperBoundBelongsToTheNextRange)
{
    const LevelMap map(LevelMap::Temperature);
    ASSERT_NE(map.rangeOf(0.0), nullptr);
    EXPECT_EQ(map.rangeOf(0.0)->max, 0.5);
    EXPECT_EQ(map.rangeOf(-0.0001)->max, 0.0);
    EXPECT_EQ(map.rangeOf(10.0), nullptr);
    EXPECT_EQ(map.rangeOf(-20.01), nullptr);
}

TEST(Gradient, OfOneRangeIsTheGreenOfTheMiddle)
{
    LevelMap map(LevelMap::Temperature);
    map.fillGradient(-2.0, 3.0, 1);
    ASSERT_EQ(map.ranges.size(), 1u);
    EXPECT_EQ(rgb(map.ranges[0]), (Rgb{0, 255, 0}));
    EXPECT_EQ(map.id, int(LevelMap::User));
    EXPECT_EQ(map.minimum, -2.0);
    EXPECT_EQ(map.maximum, 3.0);
}

TEST(Gradient, RunsFromBlueOverGreenToRed)
{
    LevelMap map;
    map.fillGradient(0.0, 4.0, 4);
    ASSERT_EQ(map.ranges.size(), 4u);
    // Middles at 1/8, 3/8, 5/8, 7/8: channels are truncated.
    EXPECT_EQ(rgb(map.ranges[0]), (Rgb{0, 63, 191}));
    EXPECT_EQ(rgb(map.ranges[1]), (Rgb{0, 191, 63}));
    EXPECT_EQ(rgb(map.ranges[2]), (Rgb{63, 191, 0}));
    EXPECT_EQ(rgb(map.ranges[3]), (Rgb{191, 63, 0}));
}

TEST(Gradient, NeverGivesMoreRangesThanAskedFor)
{
    for (int count = 1; count <= 60; ++count) {
        LevelMap map;
        map.fillGradient(-0.7, 0.4, count);
        EXPECT_EQ(int(map.ranges.size()), count);
    }
}

TEST(Gradient, OfANarrowerSpanForgetsTheWiderOne)
{
    LevelMap map;
    map.fillGradient(-10.0, 10.0, 4);
    map.fillGradient(-1.0, 2.0, 3);
    EXPECT_EQ(map.minimum, -1.0);
    EXPECT_EQ(map.maximum, 2.0);
}

TEST(Gradient, OfNoRangeOrAnEmptySpanIsEmpty)
{
    LevelMap map(LevelMap::Temperature);
    map.fillGradient(0.0, 1.0, 0);
    EXPECT_TRUE(map.ranges.empty());
    map.fillGradient(1.0, 1.0, 5);
    EXPECT_TRUE(map.ranges.empty());
    map.fillGradient(0.0, std::numeric_limits<double>::infinity(), 3);
    EXPECT_LE(map.ranges.size(), 3u);
}

TEST(StoredText, JoinsFieldsByBarAndRangesByAmpersand)
{
    LevelMap map;
    map.ranges = {{-1.5, 0.125, NcCmColor::fromRGB(1, 2, 3)}, {0.125, 2.0, NcCmColor::fromRGB(255, 0, 9)}};
    EXPECT_EQ(map.dataText(), QStringLiteral("-1.5000|0.1250|1|2|3&0.1250|2.0000|255|0|9"));

    LevelMap read;
    EXPECT_TRUE(read.parse(map.dataText()));
    ASSERT_EQ(read.ranges.size(), 2u);
    EXPECT_EQ(read.ranges[1].max, 2.0);
    EXPECT_EQ(rgb(read.ranges[1]), (Rgb{255, 0, 9}));
}

TEST(StoredText, BreaksOffAtAPartWithoutFiveFieldsAndKeepsWhatWasRead)
{
    LevelMap map;
    EXPECT_FALSE(map.parse(QStringLiteral("0|1|10|20|30&1|2|10|20&2|3|1|1|1")));
    ASSERT_EQ(map.ranges.size(), 1u);
    EXPECT_EQ(map.minimum, 0.0);
    EXPECT_EQ(map.maximum, 1.0);
    EXPECT_TRUE(map.parse(QStringLiteral("&&0|1|10|20|30&"))) << "empty parts are passed over";
    EXPECT_EQ(map.ranges.size(), 1u);
}

TEST_F(LevelMapFiles, AreWrittenWithTwoDecimalsALineEach)
{
    LevelMap map;
    map.ranges = {{-1.0, 0.125, NcCmColor::fromRGB(10, 11, 255)}};
    ASSERT_TRUE(map.saveFile(path("a.cmp")));
    EXPECT_EQ(written(path("a.cmp")), QStringLiteral("-1.00, 0.13, 10, 11, 255\n"));
    ASSERT_TRUE(map.saveFile(path("b.cmp"), 16));
    EXPECT_EQ(written(path("b.cmp")), QStringLiteral("-1.00, 0.13, a, b, ff\n"));
}

TEST_F(LevelMapFiles, ReadBackInTheirNumberBase)
{
    LevelMap map;
    map.ranges = {{-1.0, 0.5, NcCmColor::fromRGB(10, 11, 255)}};
    ASSERT_TRUE(map.saveFile(path("b.cmp"), 16));
    LevelMap read;
    EXPECT_FALSE(read.loadFile(path("b.cmp"), 10));
    EXPECT_TRUE(read.loadFile(path("b.cmp"), 16));
    ASSERT_EQ(read.ranges.size(), 1u);
    EXPECT_EQ(rgb(read.ranges[0]), (Rgb{10, 11, 255}));
}

TEST_F(LevelMapFiles, AnythingWrongLeavesTheMapAsItWas)
{
    const std::vector<QByteArray> bad = {"0, 1, 2, 3\n", "0, 1, 2, 3, 4\n\n5, 6, 7, 8, 9\n", "0, x, 2, 3, 4\n",
                                         "0, 1, 2.5, 3, 4\n", "0, 1, 2, 3, 4, 5\n"};
    for (const QByteArray& text : bad) {
        write(path("bad.cmp"), text);
        LevelMap map(LevelMap::Temperature);
        EXPECT_FALSE(map.loadFile(path("bad.cmp"))) << text.toStdString();
        EXPECT_EQ(map.ranges.size(), 14u);
    }
    LevelMap map(LevelMap::Temperature);
    EXPECT_FALSE(map.loadFile(path("missing.cmp")));
    EXPECT_EQ(map.ranges.size(), 14u);
}

TEST_F(LevelMapFiles, EmptyPartsOfALineAreDropped)
{
    write(path("e.cmp"), ",0,, 1, 2,3,,,4,\n");
    LevelMap map;
    ASSERT_TRUE(map.loadFile(path("e.cmp")));
    ASSERT_EQ(map.ranges.size(), 1u);
    EXPECT_EQ(map.ranges[0].min, 0.0);
    EXPECT_EQ(map.ranges[0].max, 1.0);
    EXPECT_EQ(rgb(map.ranges[0]), (Rgb{2, 3, 4}));
}

TEST_F(LevelMapFiles, WindowsLineEndsAreTaken)
{
    write(path("w.cmp"), "0, 1, 2, 3, 4\r\n1, 2, 5, 6, 7\r\n");
    LevelMap map;
    EXPECT_TRUE(map.loadFile(path("w.cmp")));
    EXPECT_EQ(map.ranges.size(), 2u);
}

TEST_F(LevelMapRows, AreInsertedReadUpdatedAndRemoved)
{
    LevelMap map;
    map.fillGradient(0.0, 2.0, 2);
    map.name = QStringLiteral("Моя карта");
    ASSERT_TRUE(map.insert());
    EXPECT_GT(map.id, 0);
    EXPECT_TRUE(map.exists());

    LevelMap read(map.id);
    EXPECT_EQ(read.name, map.name);
    EXPECT_EQ(read.dataText(), map.dataText());

    read.name = QStringLiteral("Другая");
    EXPECT_TRUE(read.update());
    EXPECT_EQ(LevelMap(map.id).name, QStringLiteral("Другая"));
    EXPECT_EQ(storedLevelMaps(), (std::vector<std::pair<int, QString>>{{map.id, QStringLiteral("Другая")}}));

    EXPECT_TRUE(read.remove());
    EXPECT_FALSE(read.exists());
    EXPECT_TRUE(LevelMap(map.id).ranges.empty());
}

TEST_F(LevelMapRows, ALostServerGivesEmptyMapsAndNoFault)
{
    loseServer();
    LevelMap map(5);
    EXPECT_TRUE(map.ranges.empty());
    EXPECT_FALSE(map.exists());
    EXPECT_FALSE(map.insert());
    EXPECT_FALSE(map.update());
    EXPECT_TRUE(storedLevelMaps().empty());
}
