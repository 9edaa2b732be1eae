// Numbers, lines and cells of survey files.
#include "exchange/number_text.h"
#include "exchange/raw_lines.h"
#include "exchange/text_file.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace {

class Files : public ::testing::Test {
protected:
    QString write(const QByteArray& bytes)
    {
        QFile file(folder_.filePath("file.csv"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

private:
    QTemporaryDir folder_;
};

double numberIn(const QString& text, SignOf sign = SignOf::Number)
{
    double number = -777.0;
    return findNumber(text, sign, number) ? number : -777.0;
}

} // namespace

TEST(NumberText, TakesTheFirstNumberWithACommaOrAPoint)
{
    EXPECT_EQ(numberIn("-1,234 м"), -1.234);
    EXPECT_EQ(numberIn("1.5 м"), 1.5);
    EXPECT_EQ(numberIn("1,5"), 1.5);
    EXPECT_EQ(numberIn(",5"), 0.5);
    EXPECT_EQ(numberIn("-,5"), -0.5);
    EXPECT_EQ(numberIn("+2"), 2.0);
    EXPECT_EQ(numberIn("T=+2.25C 7"), 2.25);
    EXPECT_EQ(numberIn("5."), 5.0);
    EXPECT_EQ(numberIn("--5"), -5.0);
    EXPECT_EQ(numberIn("1.2.3"), 1.2);
    EXPECT_EQ(numberIn("1 234,5"), 1.0);
}

TEST(NumberText, FindsNothingWithoutADigit)
{
    for (const char* text : {"", "-", "нет", ",", "-.", "+-,"})
        EXPECT_EQ(numberIn(text), -777.0) << text;
}

TEST(NumberText, DepthsHaveNoSign)
{
    EXPECT_EQ(numberIn("-0,3", SignOf::Text), 0.3);
    EXPECT_EQ(numberIn("глубина -1.5 м", SignOf::Text), 1.5);
}

TEST(NumberText, ANumberBeyondDoublesIsInfinite) { EXPECT_TRUE(std::isinf(numberIn(QString(400, '9')))); }

// The scanner is written by hand since a logger file has millions of cells.
TEST(NumberText, FindsWhatTheExpressionsFind)
{
    const QRegularExpression withSign("([+-]?(\\d*[\\.\\,])?\\d+)");
    const QRegularExpression withoutSign("((\\d*[\\.\\,])?\\d+)");
    const QString letters = "0159+-.,  x";
    std::mt19937 random(20);
    for (int i = 0; i < 50000; ++i) {
        QString text;
        for (int length = int(random() % 9); length > 0; --length)
            text += letters[int(random() % unsigned(letters.size()))];
        for (const SignOf sign : {SignOf::Number, SignOf::Text}) {
            const auto match = (sign == SignOf::Number ? withSign : withoutSign).match(text);
            const double expected = match.hasMatch() ? match.captured(0).replace(",", ".").toDouble() : -777.0;
            ASSERT_EQ(numberIn(text, sign), expected) << text.toStdString();
        }
    }
}

TEST_F(Files, LinesLoseTheirEndsAndTheByteOrderMark)
{
    EXPECT_EQ(readLines(write("\xEF\xBB\xBF"
                              "a;b\r\nc\n\nd"),
                        TextEncoding::Utf8),
              QStringList({"a;b", "c", "", "d"}));
    EXPECT_EQ(readLines(write("a\r\n"), TextEncoding::Utf8), QStringList({"a"}));
    EXPECT_TRUE(readLines(write(""), TextEncoding::Utf8).isEmpty());
}

TEST_F(Files, BothEncodingsAreRead)
{
    EXPECT_EQ(readLines(write("\xC8\xEC\xFF;1"), TextEncoding::Windows1251), QStringList("Имя;1"));
    EXPECT_EQ(readLines(write("Имя;1"), TextEncoding::Utf8), QStringList("Имя;1"));
    EXPECT_NE(readLines(write("\xC8\xEC\xFF;1"), TextEncoding::Utf8), QStringList("Имя;1"));
    EXPECT_EQ(readLines(write("\xEF\xBB\xBF\xC8\xEC\xFF"), TextEncoding::Windows1251), QStringList("Имя"));
}

TEST_F(Files, AFileThatCannotBeReadHasNoLines)
{
    EXPECT_TRUE(readLines("/nowhere/file.csv", TextEncoding::Utf8).isEmpty());
    EXPECT_TRUE(readLines(QString(), TextEncoding::Utf8).isEmpty());
}

TEST_F(Files, AnEndlessLineIsPassedAndTheNextOneRead)
{
    QByteArray bytes(50 << 20, ';');
    bytes += "\nnext;line\n";
    EXPECT_EQ(readLines(write(bytes), TextEncoding::Utf8), QStringList({"", "next;line"}));
    const QByteArray longest = QByteArray(1 << 20, 'x').left((1 << 20) - 1);
    EXPECT_EQ(readLines(write(longest + "\nb"), TextEncoding::Utf8).first().size(), longest.size());
}

TEST_F(Files, BinaryJunkIsSomeLines)
{
    QByteArray junk;
    std::mt19937 random(7);
    for (int i = 0; i < 100000; ++i)
        junk += char(random());
    for (const TextEncoding encoding : {TextEncoding::Utf8, TextEncoding::Windows1251})
        EXPECT_EQ(readLines(write(junk), encoding).size(), junk.count('\n') + !junk.endsWith('\n'));
}

TEST(Cells, KeepEmptyOnesAndSurviveAnEmptySeparator)
{
    EXPECT_EQ(splitCells("a;;b;", ";"), QStringList({"a", "", "b", ""}));
    EXPECT_EQ(splitCells("a||b", "||"), QStringList({"a", "b"}));
    EXPECT_EQ(splitCells("a;b", ""), QStringList({"a;b"}));
    for (const char* separator : {";", "||", ""})
        EXPECT_EQ(countCells("a||b;c", separator), splitCells("a||b;c", separator).size());
}

TEST(RawLines, ShowTheCellsOfTheLongestRow)
{
    RawLines raw;
    raw.setLines({"a;b", "", "c;d;e"}, ";");
    EXPECT_EQ(raw.rowCount(), 3);
    EXPECT_EQ(raw.columnCount(), 3);
    EXPECT_EQ(raw.index(2, 2).data().toString(), "e");
    EXPECT_EQ(raw.index(0, 1).data().toString(), "b");
    EXPECT_EQ(raw.index(0, 2).data().toString(), "");
    raw.setLines({QString(5000, ';')}, ";");
    EXPECT_EQ(raw.columnCount(), 1000);
    raw.setLines({}, ";");
    EXPECT_EQ(raw.rowCount(), 0);
    EXPECT_EQ(raw.columnCount(), 0);
}
