// Hatch patterns and their pictures.
#include "charts/hatch/hatch_picture.h"
#include "support/message_count.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>

namespace {

HatchPattern patternOf(const QString& lines)
{
    QVector<HatchPattern> patterns;
    QString problem;
    EXPECT_TRUE(parseHatchPatterns("*P,проба\n" + lines, patterns, problem)) << problem;
    return patterns.value(0);
}

// Black pixels of a column or a row.
int blackIn(const QImage& image, const QRect& part)
{
    int count = 0;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x)
            count += qAlpha(image.pixel(x, y)) > 127 ? 1 : 0;
    }
    return count;
}

QString problemOf(const QString& text)
{
    QVector<HatchPattern> patterns;
    QString problem;
    EXPECT_FALSE(parseHatchPatterns(text, patterns, problem));
    for (const HatchPattern& pattern : patterns)
        EXPECT_TRUE(pattern.isEmpty());
    return problem;
}

QString shared() { return QStringLiteral(TERVA_SOURCE_DIR "/share/pats"); }

constexpr double millimetre = 96.0 / 25.4;

} // namespace

TEST(HatchPatterns, AreReadWithCommentsBlanksAndSeveralInAText)
{
    QVector<HatchPattern> patterns;
    QString problem;
    ASSERT_TRUE(parseHatchPatterns("; two patterns\r\n\r\n*ONE, first\r\n45, 0,0, 0,3.175 ; slanted\r\n"
                                   "*Two\r\n0, 1,2, 3,4, 5,-6, 0,-1\r\n90,0,0,0,1\r\n",
                                   patterns, problem));
    ASSERT_EQ(patterns.size(), 2);
    EXPECT_EQ(patterns[0].name, "ONE");
    EXPECT_EQ(patterns[0].lines[0].angle, 45.0);
    EXPECT_EQ(patterns[1].name, "Two");
    ASSERT_EQ(patterns[1].lines.size(), 2);
    EXPECT_EQ(patterns[1].lines[0].origin, QPointF(1.0, 2.0));
    EXPECT_EQ(patterns[1].lines[0].along, 3.0);
    EXPECT_EQ(patterns[1].lines[0].across, 4.0);
    EXPECT_EQ(patterns[1].lines[0].dashes, QVector<double>({5.0, -6.0, 0.0, -1.0}));
}

TEST(HatchPatterns, BadOnesAreToldWithTheirLineAndAreEmpty)
{
    EXPECT_EQ(problemOf("*P\n45, 0,0, 0,1\n45, 0,0, zero,3"), "Строка 3 штриховки не разобрана: 45, 0,0, zero,3");
    EXPECT_EQ(problemOf("*P\n45, 0,0, 0"), "Строка 2 штриховки не разобрана: 45, 0,0, 0");
    EXPECT_EQ(problemOf("*P\n45, 0,0, 0,0"), "Строка 2 штриховки не разобрана: 45, 0,0, 0,0");
    EXPECT_EQ(problemOf("*P\n45, 0,0, 0,1, 0,0"), "Строка 2 штриховки не разобрана: 45, 0,0, 0,1, 0,0");
    EXPECT_EQ(problemOf("*P\n45, 0,0, 0,1e99"), "Строка 2 штриховки не разобрана: 45, 0,0, 0,1e99");
    EXPECT_EQ(problemOf("*P\nnan, 0,0, 0,1"), "Строка 2 штриховки не разобрана: nan, 0,0, 0,1");
    EXPECT_EQ(problemOf("45, 0,0, 0,1"), "Строка 1 штриховки не разобрана: 45, 0,0, 0,1");
}

TEST(HatchPatterns, AreFoundByTheNameOfTheirFileOrTheirOwn)
{
    HatchPattern pattern;
    QString problem;
    for (const char* name : {"clay", "CLAY", "clay.pat", " Clay.PAT "}) {
        EXPECT_TRUE(readHatchPattern(shared(), name, pattern, problem)) << name;
        EXPECT_EQ(pattern.name, "CLAY");
    }
    EXPECT_TRUE(readHatchPattern(QString(shared()).replace('/', '\\') + "\\", "sand", pattern, problem));
    QTemporaryDir folder;
    QFile file(folder.filePath("many.pat"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("*First\n0,0,0,0,1\n*Second\n90,0,0,0,1\n*Empty\n*Bad\n1,2\n");
    file.close();
    EXPECT_TRUE(readHatchPattern(folder.path(), "second", pattern, problem));
    EXPECT_EQ(pattern.lines[0].angle, 90.0);
    EXPECT_TRUE(readHatchPattern(folder.path(), "many", pattern, problem));
    EXPECT_EQ(pattern.name, "First");
}

TEST(HatchPatterns, WhatIsNotThereOrBadIsTold)
{
    QTemporaryDir folder;
    QFile file(folder.filePath("many.pat"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("*Bad\n1,2\n");
    file.close();
    HatchPattern pattern;
    QString problem;
    EXPECT_FALSE(readHatchPattern(folder.path(), "bad", pattern, problem));
    EXPECT_EQ(problem, "Строка 2 штриховки не разобрана: 1,2");
    EXPECT_TRUE(pattern.isEmpty());
    EXPECT_FALSE(readHatchPattern(folder.path(), "nothing", pattern, problem));
    EXPECT_EQ(problem, "Штриховка \"nothing\" не найдена");
    EXPECT_FALSE(readHatchPattern(folder.path(), "", pattern, problem));
    EXPECT_FALSE(readHatchPattern(folder.path() + "/no", "bad", pattern, problem));
    EXPECT_FALSE(
        readHatchPattern(folder.path(), "../" + QFileInfo(folder.path()).fileName() + "/many", pattern, problem));
}

TEST(HatchPicture, LinesStandTheirDistanceApart)
{
    const QImage image = hatchPicture(patternOf("0, 0,2, 0,5"), QSize(60, 100));
    EXPECT_EQ(image.size(), QSize(60, 100));
    // Lines at 2, 7, 12, ... mm above the lower edge: 100 pixels are 26.46 mm.
    int rows = 0;
    for (int y = 0; y < 100; ++y)
        rows += blackIn(image, QRect(0, y, 60, 1)) > 50 ? 1 : 0;
    EXPECT_GE(rows, 5);
    EXPECT_LE(rows, 10);
    const int first = 99 - int(2.0 * millimetre);
    EXPECT_GT(blackIn(image, QRect(0, first - 1, 60, 3)), 50);
    EXPECT_EQ(blackIn(image, QRect(0, first - 12, 60, 8)), 0);
}

TEST(HatchPicture, ScaleRatioAndColours)
{
    const HatchPattern pattern = patternOf("90, 0,0, 0,5");
    const auto columns = [&](const HatchLook& look) {
        const QImage image = hatchPicture(pattern, QSize(200, 20), look);
        int count = 0;
        bool before = false;
        for (int x = 0; x < image.width(); ++x) {
            const bool now = image.pixelColor(x, image.height() / 2).red() < 128
                && image.pixelColor(x, image.height() / 2).alpha() > 127;
            count += now && !before ? 1 : 0;
            before = now;
        }
        return count;
    };
    HatchLook look;
    const int once = columns(look);
    EXPECT_NEAR(once, 200 / (5 * millimetre), 1.0);
    look.scale = 2.0;
    EXPECT_NEAR(columns(look), once / 2.0, 1.0);
    look.scale = 1.0;
    look.ratio = 2.0;
    EXPECT_EQ(hatchPicture(pattern, QSize(200, 20), look).size(), QSize(400, 40));
    EXPECT_NEAR(columns(look), once, 1.0);
    look = HatchLook();
    look.background = QColor(255, 200, 100);
    look.lines = Qt::blue;
    const QImage coloured = hatchPicture(pattern, QSize(200, 20), look);
    EXPECT_EQ(coloured.pixelColor(8, 10), QColor(255, 200, 100));
    EXPECT_EQ(coloured.pixelColor(int(5 * millimetre), 10).blue() > 150, true);
}

TEST(HatchPicture, DashesGapsAndDots)
{
    const QImage dashes = hatchPicture(patternOf("0, 0,1, 0,50, 5,-5"), QSize(200, 20));
    const int row = 19 - int(millimetre);
    const int five = int(5 * millimetre);
    EXPECT_GT(blackIn(dashes, QRect(2, row - 1, five - 4, 3)), five / 2);
    EXPECT_EQ(blackIn(dashes, QRect(five + 3, row - 1, five - 6, 3)), 0);
    const QImage dots = hatchPicture(patternOf("0, 1,1, 0,5, 0,-5"), QSize(200, 200));
    const int drawn = blackIn(dots, dots.rect());
    EXPECT_GT(drawn, 40);
    EXPECT_LT(drawn, 600);
}

TEST(HatchPicture, ShiftedLinesAlternate)
{
    // Each line half a period on: like bricks.
    const QImage image = hatchPicture(patternOf("0, 0,1, 5,5, 5,-5"), QSize(200, 60));
    const auto starts = [&](int line) {
        const int row = 59 - int((1.0 + 5.0 * line) * millimetre);
        return blackIn(image, QRect(4, row - 1, 10, 3)) > 5;
    };
    EXPECT_TRUE(starts(0));
    EXPECT_FALSE(starts(1));
    EXPECT_TRUE(starts(2));
}

TEST(HatchPicture, AnySizeAndScaleEndsSoonAndSaysNothing)
{
    const MessageCount messages;
    QElapsedTimer timer;
    const HatchPattern fine = patternOf("45, 0,0, 0,0.001, 0.001,-0.001");
    EXPECT_EQ(blackIn(hatchPicture(fine, QSize(300, 300)), QRect(0, 0, 300, 300)), 0);
    EXPECT_TRUE(hatchPicture(fine, QSize(0, 10)).isNull());
    EXPECT_TRUE(hatchPicture(fine, QSize(-5, 10)).isNull());
    EXPECT_EQ(hatchPicture(fine, QSize(1, 1)).size(), QSize(1, 1));
    EXPECT_EQ(hatchPicture(fine, QSize(100000, 2)).size(), QSize(8192, 2));
    const HatchPattern plain = patternOf("45, 0,0, 0,3");
    for (double scale : {0.0, -1.0, std::numeric_limits<double>::infinity(), std::nan(""), 1e-9, 1e12}) {
        HatchLook look;
        look.scale = scale;
        EXPECT_EQ(hatchPicture(plain, QSize(50, 50), look).size(), QSize(50, 50));
    }
    EXPECT_EQ(messages.texts(), QStringList());
}

TEST(HatchPicture, EveryPatternDeliveredShowsLines)
{
    const QStringList files = QDir(shared()).entryList({"*.pat"});
    ASSERT_GE(files.size(), 8);
    for (const QString& file : files) {
        HatchPattern pattern;
        QString problem;
        EXPECT_TRUE(readHatchPattern(shared(), file, pattern, problem)) << file << problem;
        EXPECT_GT(blackIn(hatchPicture(pattern, QSize(150, 150)), QRect(0, 0, 150, 150)), 30) << file;
    }
}

// A folder of patterns of other programs, where one is at hand (beside the
// repository, or named): none of theirs is kept here, as their licences are not
// this project's.
TEST(HatchPicture, PatternsOfOtherProgramsParse)
{
    const QString folder = qEnvironmentVariable("TERVA_FOREIGN_PATTERNS", TERVA_SOURCE_DIR "/../shared/data/patterns");
    if (!QDir(folder).exists())
        GTEST_SKIP() << "there is no folder of foreign patterns";
    int checked = 0;
    for (const QFileInfo& info : QDir(folder).entryInfoList({"*.pat"}, QDir::Files)) {
        QFile file(info.absoluteFilePath());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        QVector<HatchPattern> patterns;
        QString problem;
        EXPECT_TRUE(parseHatchPatterns(QString::fromUtf8(file.readAll()), patterns, problem))
            << info.fileName() << problem;
        for (const HatchPattern& pattern : patterns) {
            ++checked;
            EXPECT_GT(blackIn(hatchPicture(pattern, QSize(400, 400)), QRect(0, 0, 400, 400)), 20) << pattern.name;
        }
    }
    EXPECT_GT(checked, 0);
}
