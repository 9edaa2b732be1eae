#include "base/text.h"

#include <QLocale>
#include <gtest/gtest.h>
#include <limits>

namespace {

TEST(Fixed, RoundsExactTiesAwayFromZero)
{
    EXPECT_EQ(fixed(0.125, 2), QString("0.13"));
    EXPECT_EQ(fixed(-0.125, 2), QString("-0.13"));
    EXPECT_EQ(fixed(2.5, 0), QString("3"));
    EXPECT_EQ(fixed(0.5, 0), QString("1"));
}

TEST(Fixed, KeepsTheSignOfWhatRoundsToNothingAndDropsThatOfZero)
{
    EXPECT_EQ(fixed(-0.001, 2), QString("-0.00"));
    EXPECT_EQ(fixed(-0.0, 2), QString("0.00"));
}

TEST(Fixed, WritesAPointInEveryLocale)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Russian, QLocale::Russia));
    EXPECT_EQ(fixed(1234567.891, 3), QString("1234567.891"));
    QLocale::setDefault(before);
}

TEST(Fixed, WritesInfinity) { EXPECT_EQ(fixed(std::numeric_limits<double>::infinity(), 2), QString("inf")); }

TEST(General, DropsTrailingZerosAndTurnsToScientific)
{
    EXPECT_EQ(general(1.5), QString("1.5"));
    EXPECT_EQ(general(100000), QString("100000"));
    EXPECT_EQ(general(1000000), QString("1e+06"));
    EXPECT_EQ(general(3.14159265, 3), QString("3.14"));
}

TEST(Base36, UsesLowerCaseLetters)
{
    EXPECT_EQ(base36(35), QString("z"));
    EXPECT_EQ(base36(36), QString("10"));
    EXPECT_EQ(base36(1700000000), QString("s44we8"));
}

TEST(Base31, UsesLowerCaseLetters)
{
    EXPECT_EQ(base31(30), QString("u"));
    EXPECT_EQ(base31(31), QString("10"));
}

TEST(SecondsNow, IsASecondsStampOfThisCentury)
{
    EXPECT_GT(secondsNow(), 1700000000);
    EXPECT_LT(secondsNow(), 4102444800);
}

TEST(Padded, WidensWithZeros)
{
    EXPECT_EQ(padded(7, 3), QString("007"));
    EXPECT_EQ(padded(1234, 3), QString("1234"));
    EXPECT_EQ(padded(7, 0), QString("7"));
}

TEST(Padded, PutsTheZerosBeforeAMinusSign) { EXPECT_EQ(padded(-5, 3), QString("0-5")); }

} // namespace
