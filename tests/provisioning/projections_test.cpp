// The list of projections.
#include "database/provisioning/projections.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

QVector<Projection> readText(const QByteArray& text)
{
    QTemporaryDir folder;
    QFile file(folder.filePath("list.csv"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
    file.close();
    const auto projections = readProjections(file.fileName());
    EXPECT_TRUE(projections);
    return projections.value_or(QVector<Projection>());
}

TEST(Projections, PathUsesForwardSlashes)
{
    EXPECT_EQ(projectionsPath("C:\\Program Files\\Terva\\"), QString("C:/Program Files/Terva/config/msk_proj.csv"));
    EXPECT_EQ(projectionsPath("/opt/terva/"), QString("/opt/terva/config/msk_proj.csv"));
}

TEST(Projections, LinesAreSplitAtATabAndElseAtASemicolon)
{
    const auto list = readText("МСК-01\t+proj=a;b\nМСК-02;+proj=c\n");
    ASSERT_EQ(list.size(), 2);
    EXPECT_EQ(list[0].name, QString("МСК-01"));
    EXPECT_EQ(list[0].proj4, QString("+proj=a;b"));
    EXPECT_EQ(list[1].name, QString("МСК-02"));
    EXPECT_EQ(list[1].proj4, QString("+proj=c"));
}

TEST(Projections, OtherLinesArePassedOver)
{
    const auto list = readText("\n\r\none field\na;b;c\na\tb\tc\n ; \nлевая;правая");
    ASSERT_EQ(list.size(), 2);
    EXPECT_EQ(list[0].name, QString(" ")) << "nothing is trimmed";
    EXPECT_EQ(list[0].proj4, QString(" "));
    EXPECT_EQ(list[1].proj4, QString("правая")) << "the last line needs no line end";
}

TEST(Projections, MarkAndCarriageReturnsAreDropped)
{
    const auto list = readText("\xEF\xBB\xBF"
                               "a;b\r\nc;d\r\n");
    ASSERT_EQ(list.size(), 2);
    EXPECT_EQ(list[0].name, QString("a"));
    EXPECT_EQ(list[0].proj4, QString("b"));
    EXPECT_EQ(list[1].proj4, QString("d"));
}

TEST(Projections, AMissingFileGivesNothing)
{
    EXPECT_FALSE(readProjections("/no/such/file.csv"));
    EXPECT_FALSE(readProjections("/tmp")) << "a folder is no list";
    EXPECT_TRUE(readText("").isEmpty());
}

} // namespace
