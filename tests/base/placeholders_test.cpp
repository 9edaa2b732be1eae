#include "base/placeholders.h"

#include <gtest/gtest.h>

namespace {

TEST(Placeholders, ReplacesEachMarkerByItsValue)
{
    EXPECT_EQ(fill("x=%1 y=%2", "1.5", "2.5"), QString("x=1.5 y=2.5"));
    EXPECT_EQ(fill("%2 before %1", "a", "b"), QString("b before a"));
}

TEST(Placeholders, ReplacesEveryOccurrenceOfAMarker) { EXPECT_EQ(fill("%1-%1-%2-%1", "a", "b"), QString("a-a-b-a")); }

TEST(Placeholders, LeavesAValueThatLooksLikeAMarkerAlone)
{
    EXPECT_EQ(fill("'%1','%2'", "%2", "%1"), QString("'%2','%1'"));
    EXPECT_EQ(fill("%1%2", "%", "1"), QString("%1"));
}

TEST(Placeholders, ReadsTwoDigitsAsOneNumberWhenThatManyValuesExist)
{
    QStringList values;
    for (int i = 1; i <= 14; ++i)
        values.append(QString(QChar('a' + i - 1)));
    EXPECT_EQ(fill("%1 %10 %14 %9", values), QString("a j n i"));
    EXPECT_EQ(fill("%140", values), QString("n0"));
}

TEST(Placeholders, ReadsOneDigitWhenTheTwoDigitNumberHasNoValue)
{
    EXPECT_EQ(fill("%10 %14", "a", "b"), QString("a0 a4"));
}

TEST(Placeholders, FillsAllOfNinetyNineMarkers)
{
    QString text;
    QString expected;
    QStringList values;
    for (int i = 1; i <= 99; ++i) {
        text += QString("%") + QString::number(i) + ";";
        values.append("v" + QString::number(i));
        expected += values.last() + ";";
    }
    EXPECT_EQ(fill(text, values), expected);
}

TEST(Placeholders, LeavesMarkersWithoutAValue)
{
    EXPECT_EQ(fill("%1 %3", "a", "b"), QString("a %3"));
    EXPECT_EQ(fill("%1", QStringList()), QString("%1"));
}

TEST(Placeholders, LeavesPercentSignsThatAreNoMarker)
{
    EXPECT_EQ(fill("100% %0 %x %", "a"), QString("100% %0 %x %"));
    EXPECT_EQ(fill("like '%%1%'", "a"), QString("like '%a%'"));
    EXPECT_EQ(fill("%01", "a"), QString("%01"));
}

TEST(Placeholders, TakesWholeNumbersAndTextsOfAnyKind)
{
    EXPECT_EQ(fill("%1 %2 %3 %4 %5", -1, 4000000000LL, QString("Т-1"), QLatin1String("x"), QChar('y')),
              QString("-1 4000000000 Т-1 x y"));
    EXPECT_EQ(fill("%1", "марка"), QString::fromUtf8("марка"));
}

TEST(Placeholders, GivesAnEmptyTextForAnEmptyTemplate)
{
    EXPECT_EQ(fill("", "a"), QString());
    EXPECT_EQ(fill("%1", ""), QString());
}

} // namespace
