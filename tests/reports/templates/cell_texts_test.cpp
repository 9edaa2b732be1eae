// How values are written into cells and names of files.
#include "reports/templates/cell_texts.h"
#include "session/project_session.h"

#include <gtest/gtest.h>

TEST(CellTexts, APlusStandsBeforeWhatIsAboveZero)
{
    EXPECT_EQ(cells::withSign(1.25, 1), "+1.3");
    EXPECT_EQ(cells::withSign(-1.25, 1), "-1.3");
    EXPECT_EQ(cells::withSign(0.0, 1), "0.0");
    // Temperatures keep the sign of what rounds to nothing.
    EXPECT_EQ(cells::withSign(0.04, 1), "+0.0");
    EXPECT_EQ(cells::withSign(-0.04, 1), "-0.0");
}

TEST(CellTexts, DifferencesThatRoundToNothingHaveNoSign)
{
    EXPECT_EQ(cells::difference(0.04), "0.0");
    EXPECT_EQ(cells::difference(-0.04), "0.0");
    EXPECT_EQ(cells::difference(0.0), "0.0");
    EXPECT_EQ(cells::difference(0.05), "+0.1");
    EXPECT_EQ(cells::difference(-0.05), "-0.1");
    EXPECT_EQ(cells::difference(10.0), "+10.0");
}

TEST(CellTexts, DegreesMinutesSeconds)
{
    EXPECT_EQ(cells::latitude(55.0 + 4.0 / 60 + 12.3 / 3600), "N55°04'12.30\"");
    EXPECT_EQ(cells::longitude(0.5), "E0°30'0.00\"");
    EXPECT_EQ(cells::latitude(0.0), "N0°00'0.00\"");
    EXPECT_EQ(cells::latitude(-33.25), "S33°15'0.00\"");
    EXPECT_EQ(cells::longitude(-0.0000001), "W0°00'0.00\"");
    // Sixty seconds are a minute more, sixty minutes a degree.
    EXPECT_EQ(cells::latitude(9.0 + 59.0 / 60 + 59.999 / 3600), "N10°00'0.00\"");
    EXPECT_EQ(cells::latitude(9.0 + 8.0 / 60 + 59.999 / 3600), "N9°09'0.00\"");
}

TEST(CellTexts, MonthsAreShort)
{
    QStringList words;
    for (int month = 1; month <= 12; ++month)
        words << cells::monthOfYear(QDate(2023, month, 1));
    EXPECT_EQ(words,
              (QStringList{"Янв. 2023", "Фев. 2023", "Мар. 2023", "Апр. 2023", "Май. 2023", "Июн. 2023", "Июл. 2023",
                           "Авг. 2023", "Сен. 2023", "Окт. 2023", "Ноя. 2023", "Дек. 2023"}));
    EXPECT_EQ(cells::monthOfYear(QDate()), "");
}

TEST(CellTexts, ForbiddenSignsLeaveTheNamesOfFiles)
{
    EXPECT_EQ(cells::fileName("a<b>c\\d/e\"f'g:h?i*j|k,l=m"), "abcdefghijklm");
    EXPECT_EQ(cells::fileName("ТС-1 (новая).2"), "ТС-1 (новая).2");
    EXPECT_EQ(cells::documentPath("/out", "ТС/1"), "/out/ТС1.docx");
}

TEST(CellTexts, CyclesOfTheSession)
{
    session().cycles = {{4, {"9", "01.07.23", "31.07.23", "Лето"}}, {5, {"1", "15.09.98", "30.09.98", ""}}};
    EXPECT_EQ(cells::cycleName(4), "Цикл 9 (01.07.23 - 31.07.23)");
    EXPECT_EQ(cells::cycleName(6), "");
    EXPECT_EQ(cells::cycleNumber(4), "9");
    EXPECT_EQ(cells::cycleStart(4), QDate(2023, 7, 1));
    EXPECT_EQ(cells::cycleStart(5), QDate(1998, 9, 15));
    EXPECT_FALSE(cells::cycleStart(6).isValid());
    session().cycles.clear();
}
