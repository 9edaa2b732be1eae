// Dates of files and statements, whatever the language of the system is.
#include "base/dates.h"

#include <QCoreApplication>
#include <QLocale>
#include <QProcess>
#include <gtest/gtest.h>

TEST(Dates, AreWrittenAndReadByTheirFormat)
{
    const QDateTime when(QDate(2024, 2, 1), QTime(13, 5, 9));
    EXPECT_EQ(dateText(when.date(), "yyyy.MM.dd"), "2024.02.01");
    EXPECT_EQ(dateText(when, "dd.MM.yyyy hh:mm:ss"), "01.02.2024 13:05:09");
    EXPECT_EQ(dateFrom("01.02.2024", "dd.MM.yyyy"), when.date());
    EXPECT_EQ(timeFrom("13:05:09", "hh:mm:ss"), when.time());
    EXPECT_EQ(dateTimeFrom("01.02.2024 13:05:09", "dd.MM.yyyy hh:mm:ss"), when);
    EXPECT_FALSE(dateFrom("31.02.2024", "dd.MM.yyyy").isValid());
    EXPECT_EQ(dateFrom("01.02.21", "dd.MM.yy").year(), 1921) << "the caller knows the century";
}

// Run by the test below, in a process whose system speaks another language.
TEST(Dates, DISABLED_KeepTheirDigits)
{
    ASSERT_NE(QLocale::system().zeroDigit(), QChar('0'));
    const QDateTime when(QDate(2024, 2, 1), QTime(13, 5, 9));
    EXPECT_EQ(dateText(when, "dd.MM.yyyy hh:mm:ss"), "01.02.2024 13:05:09");
    EXPECT_EQ(dateText(when.date(), "yyyy.MM.dd"), "2024.02.01");
    EXPECT_EQ(dateTimeFrom("01.02.2024 13:05:09", "dd.MM.yyyy hh:mm:ss"), when);
    EXPECT_EQ(dateFrom("01.02.2024", "dd.MM.yyyy"), when.date());
    EXPECT_EQ(timeFrom("13:05:09", "hh:mm:ss"), when.time());
}

TEST(Dates, KeepTheirDigitsInArabicAndPersianSystems)
{
    for (const char* language : {"fa_IR.UTF-8", "ar_EG.UTF-8"}) {
        QProcess child;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("LC_ALL", language);
        environment.insert("LANG", language);
        child.setProcessEnvironment(environment);
        child.start(QCoreApplication::applicationFilePath(),
                    {"--gtest_filter=Dates.DISABLED_KeepTheirDigits", "--gtest_also_run_disabled_tests"});
        ASSERT_TRUE(child.waitForFinished());
        const QByteArray said = child.readAll();
        EXPECT_TRUE(said.contains("[  PASSED  ] 1 test")) << language << said.constData();
        EXPECT_EQ(child.exitCode(), 0);
    }
}
