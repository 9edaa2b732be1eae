// Dates as they were written. The same tests run in zones whose clocks skip the
// hours that are written here.
#include "base/written_date.h"

#include <gtest/gtest.h>

namespace {

struct Written {
    const char* text;
    const char* format;
    QDate date;
    QTime time;
};

// Skipped in Moscow, in Moscow for want of midnight, in Paris, in Yakutsk, and
// read of a year with two digits.
const Written skipped[] = {
    {"28.03.2010 02:30", "dd.MM.yyyy HH:mm", {2010, 3, 28}, {2, 30}},
    {"01.04.1981", "dd.MM.yyyy", {1981, 4, 1}, {0, 0}},
    {"01.04.1981 00:15:30", "dd.MM.yyyy HH:mm:ss", {1981, 4, 1}, {0, 15, 30}},
    {"31.03.2019 02:30", "dd.MM.yyyy HH:mm", {2019, 3, 31}, {2, 30}},
    {"2010-03-28T02:59", "yyyy-MM-ddTHH:mm", {2010, 3, 28}, {2, 59}},
    {"01.04.81 00:30", "dd.MM.yy HH:mm", {1981, 4, 1}, {0, 30}},
};

TEST(WrittenDate, IsReadWhateverTheClockOfTheZoneSkips)
{
    for (const Written& written : skipped) {
        const QDateTime moment = readWrittenMoment(written.text, written.format);
        ASSERT_TRUE(moment.isValid()) << written.text;
        EXPECT_EQ(moment.date(), written.date) << written.text;
        EXPECT_EQ(moment.time(), written.time) << written.text;
        EXPECT_EQ(moment, writtenMoment(written.date, written.time)) << written.text;
        EXPECT_EQ(moment.addYears(100).time(), written.time) << written.text;
    }
}

TEST(WrittenDate, OfALocalMomentIsWhatItShows)
{
    for (const Written& written : skipped)
        EXPECT_EQ(writtenMoment(QDateTime(written.date, written.time)), writtenMoment(written.date, written.time))
            << written.text;
    EXPECT_TRUE(writtenMoment(QDateTime()).isNull());
    EXPECT_TRUE(writtenMoment(QDate()).isNull());
    EXPECT_EQ(writtenMoment(QDate(2020, 1, 2), QTime()).time(), QTime(0, 0));
}

TEST(WrittenDate, MillisecondsAreThoseOfTheClockOnTheWall)
{
    constexpr qint64 day = 86400000;
    EXPECT_EQ(writtenMilliseconds(writtenMoment(QDate(1970, 1, 1))), 0);
    EXPECT_EQ(writtenMilliseconds(QDateTime(QDate(1970, 1, 2), QTime(0, 0, 1))), day + 1000);
    const qint64 before = writtenMilliseconds(writtenMoment(QDate(2010, 3, 28), QTime(1, 30)));
    EXPECT_EQ(writtenMilliseconds(writtenMoment(QDate(2010, 3, 28), QTime(3, 30))) - before, day / 12)
        << "two hours on the clock, although the zone knows of one";
}

TEST(WrittenDate, WhatDoesNotFitIsNull)
{
    for (const char* text : {"31.02.2010 02:30", "28.03.2010", "", "28.03.2010 02:30 UTC"})
        EXPECT_TRUE(readWrittenMoment(text, "dd.MM.yyyy HH:mm").isNull()) << text;
}

} // namespace
