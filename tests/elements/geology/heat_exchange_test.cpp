// The pairs of wind speed and coefficient of a thermostabiliser.
#include "elements/geology/heat_exchange.h"

#include <gtest/gtest.h>

namespace {

QStringList texts(const HeatExchange& pairs)
{
    QStringList lines;
    for (const HeatExchangePair& pair : pairs)
        lines << pair.speed + "/" + pair.coefficient;
    return lines;
}

} // namespace

TEST(HeatExchange, IsOneTextOfPairs)
{
    EXPECT_EQ(heatExchangeText({{"0", "5.1"}, {"2.5", "9"}}), "0:5.1|2.5:9");
    EXPECT_EQ(heatExchangeText({}), "");
    EXPECT_EQ(texts(parseHeatExchange("0:5.1|2.5:9")), QStringList({"0/5.1", "2.5/9"}));
}

TEST(HeatExchange, PassesOddPiecesOver)
{
    EXPECT_EQ(texts(parseHeatExchange("")), QStringList());
    EXPECT_EQ(texts(parseHeatExchange("|5|:|1:2:3")), QStringList({"/", "1/2:3"}));
}

TEST(HeatExchange, NeedsBothNumbersOfAPair)
{
    EXPECT_EQ(heatExchangeFault({}), "");
    EXPECT_EQ(heatExchangeFault({{"0", "5.1"}}), "");
    EXPECT_EQ(heatExchangeFault({{"0", "5.1"}, {"2", ""}}), "В столбце 2 нужны скорость и коэффициент");
    EXPECT_EQ(heatExchangeFault({{"", "1"}}), "В столбце 1 нужны скорость и коэффициент");
    EXPECT_EQ(heatExchangeFault({{"1", "2:3"}}), "В столбце 1 нужны скорость и коэффициент");
}

TEST(HeatExchange, IsAFileOfLines)
{
    EXPECT_EQ(heatExchangeCsv({{"0", "5.1"}, {"2", "9"}}), "Скорость ветра м/с; a конд.\n0;5.1\n2;9\n");
    EXPECT_EQ(texts(readHeatExchangeCsv({"Скорость ветра м/с; a конд.", "0;5,1", "", " 2 ; 9 ;x", "3;", "а;1"})),
              QStringList({"0/5.1", "2/9"}));
}

TEST(HeatExchange, NamesItsFileAfterTheEntry)
{
    EXPECT_EQ(heatExchangeFileName("СОУ 1/2\\3*4.5"), "Параметры теплообмена СОУ СОУ 1_2_3_4_5.csv");
    EXPECT_EQ(heatExchangeFileName("%1"), "Параметры теплообмена СОУ %1.csv");
}
