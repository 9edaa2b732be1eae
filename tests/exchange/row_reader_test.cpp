// The formats of survey files: which line is what, and what it says.
#include "base/written_date.h"
#include "exchange/import_family.h"
#include "exchange/row_reader.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

using Line = RowReader::Line;

const ImportTemplate& formatOf(FamilyKey family, int index = 0) { return importFamily(family)->templates[index]; }

// Reads lines one after another and keeps the last row.
struct Reading {
    explicit Reading(const ImportTemplate& format, const QString& separator = ";") : reader(format, separator) { }
    Line operator()(const QString& line) { return reader.read(line, row); }
    RowReader reader;
    SurveyRow row;
};

const QString marks = "Имя;Дата;Отметка;SN прибора";
const QString wells = "Имя;Серийный номер;Дата замера;Время замера;Темп.возд;1;2,5";

} // namespace

TEST(ImportFamilies, AreTheSixWithMeasures)
{
    ASSERT_EQ(importFamilies().size(), 6);
    for (const ImportFamily& row : importFamilies()) {
        EXPECT_EQ(importFamily(row.family), &row);
        EXPECT_NE(measureFamily(row.family), nullptr);
        EXPECT_TRUE(row.success.contains("%1") && row.failure.contains("%1") && row.word.endsWith(' '));
    }
    EXPECT_EQ(importFamily(FamilyKey::Igs), nullptr);
}

TEST(RowReader, EveryFamilyReadsItsOwnHeaderAndRow)
{
    const struct {
        FamilyKey family;
        const char* header;
        const char* line;
        double value, second;
    } cases[] = {
        {FamilyKey::Dm, "Имя;Дата;Отметка;SN прибора", "м1;01.02.2021;12,5;S", 12.5, HUGE_VAL},
        {FamilyKey::Ggs, "Имя;Дата;Уровень ГВ;SN прибора", "м1;01.02.2021;12,5;S", 12.5, HUGE_VAL},
        {FamilyKey::Rp, "Имя;Дата;Отметка;Точность;SN прибора", "м1;01.02.2021;12,5;0.01;S", 12.5, 0.01},
        {FamilyKey::Tsg, "Имя;Дата;Температура воздуха;Температура конденсатора;SN прибора", "м1;01.02.2021;12,5;-3;S",
         12.5, -3.0},
        {FamilyKey::Tss, "Имя;Дата;Плотность;Высота;SN прибора", "м1;01.02.2021;12,5;-3;S", 12.5, -3.0},
    };
    for (const auto& c : cases) {
        Reading read(formatOf(c.family));
        EXPECT_EQ(read(c.header), Line::Header) << c.header;
        EXPECT_EQ(read(c.line), Line::Data);
        EXPECT_EQ(read.row.name, "м1");
        EXPECT_EQ(read.row.serial, "S");
        EXPECT_EQ(read.row.when, writtenMoment(QDate(2021, 2, 1), QTime(0, 0)));
        EXPECT_EQ(read.row.value, c.value);
        EXPECT_EQ(read.row.second, c.second);
    }
}

TEST(RowReader, LinesBeforeTheFirstHeaderAreIgnored)
{
    Reading read(formatOf(FamilyKey::Dm));
    EXPECT_EQ(read("м1;01.02.2021;12;S"), Line::Passed);
    EXPECT_EQ(read(marks), Line::Header);
    EXPECT_EQ(read("м1;01.02.2021;12;S"), Line::Data);
    EXPECT_EQ(read(marks), Line::Header) << "again in the middle";
    EXPECT_EQ(read("м2;01.02.2021;12;S"), Line::Data);
}

TEST(RowReader, HeaderCellsAreTrimmedExceptForWells)
{
    Reading mark(formatOf(FamilyKey::Dm));
    EXPECT_EQ(mark(" Имя ;Дата ; что угодно ;SN прибора\t"), Line::Header) << "the value's caption is not looked at";
    Reading well(formatOf(FamilyKey::Ts, 2));
    EXPECT_EQ(well("Имя ;Серийный номер;Дата замера;Время замера;Темп.возд;1"), Line::Passed);
    EXPECT_EQ(well("Имя;Серийный номер;Дата замера;Время замера; Темп.возд;1"), Line::Passed);
    EXPECT_EQ(well(wells), Line::Header);
}

TEST(RowReader, ShortRowsAndRowsWithoutANameAreSkipped)
{
    Reading read(formatOf(FamilyKey::Dm));
    read(marks);
    EXPECT_EQ(read("м1;01.02.2021;12"), Line::Passed);
    EXPECT_EQ(read(";01.02.2021;12;S"), Line::Passed);
    EXPECT_EQ(read("  ;01.02.2021;12;S"), Line::Passed);
    EXPECT_EQ(read(""), Line::Passed);
    EXPECT_EQ(read("м1;;;"), Line::Data);
    EXPECT_TRUE(read.row.when.isNull());
    EXPECT_TRUE(std::isinf(read.row.value));
}

// The length asked of a snow point's row is one less than its columns.
TEST(RowReader, ASnowPointOfFourCellsHasNoSerial)
{
    Reading read(formatOf(FamilyKey::Tss));
    EXPECT_EQ(read("Имя;Дата;Плотность;Высота"), Line::Passed) << "a header of four cells is none";
    EXPECT_EQ(read("Имя;Дата;Плотность;Высота;SN прибора"), Line::Header);
    EXPECT_EQ(read("м1;01.02.2021;0,3;1,5"), Line::Data);
    EXPECT_EQ(read.row.serial, "");
    EXPECT_EQ(read.row.second, 1.5);
}

TEST(RowReader, CellsAreTrimmed)
{
    Reading read(formatOf(FamilyKey::Dm));
    read(marks);
    EXPECT_EQ(read(" м1 ; 01.02.2021 ; -1,234 м ; S "), Line::Data);
    EXPECT_EQ(read.row.name, "м1");
    EXPECT_EQ(read.row.serial, "S");
    EXPECT_EQ(read.row.when.date(), QDate(2021, 2, 1));
    EXPECT_EQ(read.row.value, -1.234);
}

TEST(RowReader, YearsOfTwoDigitsBelongToThisCentury)
{
    Reading read(formatOf(FamilyKey::Dm));
    read(marks);
    read("м1;01.02.21;1;S");
    EXPECT_EQ(read.row.when.date(), QDate(2021, 2, 1));
    read("м1;01.02.1921;1;S");
    EXPECT_EQ(read.row.when.date(), QDate(1921, 2, 1));
    read("м1;29.02.00;1;S");
    EXPECT_TRUE(read.row.when.isNull()) << "1900 had no such day";
}

TEST(RowReader, DatesNeedTwoDigitsADay)
{
    Reading read(formatOf(FamilyKey::Dm));
    read(marks);
    for (const char* text : {"1.2.2021", "2021-02-01", "32.01.2021", "вчера"}) {
        EXPECT_EQ(read(QString("м1;%1;1;S").arg(text)), Line::Data);
        EXPECT_TRUE(read.row.when.isNull()) << text;
    }
}

TEST(RowReader, WellsHaveATimeInTwoSpellings)
{
    Reading read(formatOf(FamilyKey::Ts, 2));
    read(wells);
    read("с1;S;09.09.1958;12:30:15;-5;1;2");
    EXPECT_EQ(read.row.when, writtenMoment(QDate(1958, 9, 9), QTime(12, 30, 15)));
    read("с1;S;09.09.58;12:30;-5;1;2");
    EXPECT_EQ(read.row.when, writtenMoment(QDate(2058, 9, 9), QTime(12, 30)));
    read("с1;S;09.09.1958;полдень;-5;1;2");
    EXPECT_EQ(read.row.when, writtenMoment(QDate(1958, 9, 9), QTime(0, 0)));
}

TEST(RowReader, TheAirOfAWellIsAPlainNumber)
{
    Reading read(formatOf(FamilyKey::Ts, 2));
    read(wells);
    read("с1;S;09.09.1958;12:30;-5.25;-1;-,5");
    EXPECT_EQ(read.row.value, -5.25);
    EXPECT_EQ(read.row.profile, TemperatureProfile({{1.0, -1.0}, {2.5, -0.5}}));
    for (const char* air : {"-5,25", "", "5 C", "нет"}) {
        EXPECT_EQ(read(QString("с1;S;09.09.1958;12:30;%1;-1;-2").arg(air)), Line::Data);
        EXPECT_TRUE(std::isinf(read.row.value)) << air;
    }
}

TEST(RowReader, TheLastHeaderGivesTheDepths)
{
    Reading read(formatOf(FamilyKey::Ts, 2));
    read(wells);
    read("Имя;Серийный номер;Дата замера;Время замера;Темп.возд;7");
    read("с1;S;09.09.1958;12:30;0;-1");
    EXPECT_EQ(read.row.profile, TemperatureProfile({{7.0, -1.0}}));
}

TEST(RowReader, ReadsTheEnglishLogger)
{
    Reading read(formatOf(FamilyKey::Ts, 0));
    const QString header = "Label;Temp;b;c;Date;Time;f;g;SN;i;j;k;l;0.5 m;1,5;tail";
    EXPECT_EQ(read(header), Line::Header);
    EXPECT_EQ(read("ТС-1;-12.5;;;05.06.21;14:15:16;;;777;;;;;-1,5;-2.5;99"), Line::Data);
    EXPECT_EQ(read.row.name, "ТС-1");
    EXPECT_EQ(read.row.serial, "777");
    EXPECT_EQ(read.row.value, -12.5);
    EXPECT_EQ(read.row.when, writtenMoment(QDate(2021, 6, 5), QTime(14, 15, 16)));
    EXPECT_EQ(read.row.profile, TemperatureProfile({{0.5, -1.5}, {1.5, -2.5}}));
    EXPECT_EQ(read("ТС-1;-12.5;;;05.06.21;14:15;;;777;;;;;1;2;3;4"), Line::Data) << "more temperatures than depths";
    EXPECT_TRUE(read.row.profile.isEmpty());
    EXPECT_EQ(read("Label;Temp;b;c;Date;Time;f;g;SN;i;j;k"), Line::Passed) << "one cell short";
}

TEST(RowReader, ReadsTheRussianLoggerWithoutAir)
{
    Reading read(formatOf(FamilyKey::Ts, 1));
    EXPECT_EQ(read("Дата замера;Время замера;№ Объекта;Зав.№ косы;1;2;x;y"), Line::Header);
    EXPECT_EQ(read("05.06.21;14:15;ТС-1;777;-1;-2;9;9"), Line::Data);
    EXPECT_EQ(read.row.name, "ТС-1");
    EXPECT_EQ(read.row.serial, "777");
    EXPECT_TRUE(std::isinf(read.row.value));
    EXPECT_EQ(read.row.profile, TemperatureProfile({{1.0, -1.0}, {2.0, -2.0}}));
    EXPECT_EQ(read("05.06.21;14:15;ТС-2;778"), Line::Data) << "up to the serial number";
    EXPECT_EQ(read.row.serial, "778");
    EXPECT_EQ(read("05.06.21;14:15;ТС-2"), Line::Passed) << "one cell short";
}

// Cells are split at the whole separator, a profile at its first sign.
TEST(RowReader, ASeparatorOfTwoSignsIsCutForTheProfile)
{
    Reading read(formatOf(FamilyKey::Ts, 2), ";;");
    EXPECT_EQ(read("Имя;;Серийный номер;;Дата замера;;Время замера;;Темп.возд;;1"), Line::Header);
    EXPECT_EQ(read("с1;;S;;09.09.1958;;12:30;;0;;-1"), Line::Data);
    EXPECT_TRUE(read.row.profile.isEmpty()) << "cut at single signs the sixth cell is empty and the next one a word";
}

TEST(RowReader, AnEmptySeparatorFindsNoHeader)
{
    Reading read(formatOf(FamilyKey::Ts, 2), "");
    EXPECT_EQ(read(wells), Line::Passed);
}

TEST(RowReader, DateAndTimeMayStandInOneCell)
{
    ImportTemplate format = formatOf(FamilyKey::Dm);
    format.dateAndTimeTogether = true;
    format.dateTime = {"Когда", "dd.MM.yyyy hh:mm;;dd.MM.yy hh:mm", 1};
    Reading read(format);
    EXPECT_EQ(read("Имя;Дата;Отметка;SN прибора"), Line::Passed);
    EXPECT_EQ(read("Имя;Когда;Отметка;SN прибора"), Line::Header);
    read("м1;01.02.21 10:20;1;S");
    EXPECT_EQ(read.row.when, writtenMoment(QDate(2021, 2, 1), QTime(10, 20)));
}

// Skipped by the clocks of Moscow, of Paris, of Yakutsk; these tests run there.
TEST(RowReader, ADateIsWhatIsWrittenWhateverTheClockSkips)
{
    const struct {
        const char* date;
        const char* time;
        QDateTime when;
    } cases[] = {
        {"28.03.2010", "02:30", writtenMoment({2010, 3, 28}, {2, 30})},
        {"28.03.10", "02:30", writtenMoment({2010, 3, 28}, {2, 30})},
        {"01.04.1981", "00:00", writtenMoment({1981, 4, 1}, {0, 0})},
        {"31.03.2019", "02:30:15", writtenMoment({2019, 3, 31}, {2, 30, 15})},
    };
    ImportTemplate together = formatOf(FamilyKey::Dm);
    together.dateAndTimeTogether = true;
    together.dateTime = {"Когда", "dd.MM.yyyy hh:mm:ss;;dd.MM.yyyy hh:mm;;dd.MM.yy hh:mm", 1};
    Reading apart(formatOf(FamilyKey::Ts, 2)), joined(together);
    apart(wells);
    joined("Имя;Когда;Отметка;SN прибора");
    for (const auto& c : cases) {
        EXPECT_EQ(apart(QString("с1;S;%1;%2;-5;1;2").arg(c.date, c.time)), Line::Data);
        EXPECT_TRUE(apart.row.when.isValid()) << c.date;
        EXPECT_EQ(apart.row.when, c.when) << c.date;
        EXPECT_EQ(joined(QString("м1;%1 %2;1;S").arg(c.date, c.time)), Line::Data);
        EXPECT_TRUE(joined.row.when.isValid()) << c.date;
        EXPECT_EQ(joined.row.when, c.when) << c.date;
    }
}
