#include "exchange/inspections/gzip_file.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <zlib.h>

namespace {

class Gzip : public ::testing::Test {
protected:
    // Packed by zlib's own functions, member by member.
    QString packed(const QList<QByteArray>& members)
    {
        QFile::remove(path);
        for (const QByteArray& member : members) {
            gzFile file = gzopen(QFile::encodeName(path).constData(), "ab");
            gzwrite(file, member.constData(), unsigned(member.size()));
            gzclose(file);
        }
        return path;
    }
    QByteArray fileBytes()
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    void setFileBytes(const QByteArray& bytes)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
    }
    GzipState read(qint64 most = 1 << 24) { return readGzip(path, most, contents).state; }

    static QByteArray text(int size)
    {
        QByteArray bytes;
        for (quint32 state = 1; bytes.size() < size; state = state * 1664525u + 1013904223u)
            bytes += QByteArray::number(state) + ' ';
        return bytes.left(size);
    }

    QTemporaryDir folder;
    QString path = folder.filePath("документ.json.gz");
    QByteArray contents;
};

} // namespace

TEST_F(Gzip, WhatIsWrittenIsReadByTheLibrarysOwnFunctions)
{
    const QByteArray whole = text(300000);
    ASSERT_EQ(writeGzip(path, whole).state, GzipState::Done);
    EXPECT_LT(fileBytes().size(), whole.size());
    gzFile file = gzopen(QFile::encodeName(path).constData(), "rb");
    QByteArray back(whole.size() + 1, '\0');
    EXPECT_EQ(gzread(file, back.data(), unsigned(back.size())), whole.size());
    EXPECT_EQ(gzclose(file), Z_OK);
    EXPECT_EQ(back.left(whole.size()), whole);
    EXPECT_EQ(read(), GzipState::Done);
    EXPECT_EQ(contents, whole);
}

TEST_F(Gzip, AnEmptyTextComesBackEmpty)
{
    ASSERT_EQ(writeGzip(path, {}).state, GzipState::Done);
    contents = "old";
    EXPECT_EQ(read(), GzipState::Done);
    EXPECT_EQ(contents, "");
}

TEST_F(Gzip, MembersArePutTogetherAndWhatFollowsIsLeft)
{
    packed({"один ", text(9000), " три"});
    EXPECT_EQ(read(), GzipState::Done);
    EXPECT_EQ(contents, "один " + text(9000) + " три");
    setFileBytes(fileBytes() + QByteArray(5000, '\0'));
    EXPECT_EQ(read(), GzipState::Done);
    EXPECT_EQ(contents, "один " + text(9000) + " три");
}

TEST_F(Gzip, ATextThatIsNotPackedIsTakenAsItStands)
{
    setFileBytes("{\"dm\": []}");
    EXPECT_EQ(read(), GzipState::Done);
    EXPECT_EQ(contents, "{\"dm\": []}");
    EXPECT_EQ(read(9), GzipState::TooLarge);
    EXPECT_EQ(contents, "");
}

TEST_F(Gzip, AFileThatIsCutOffAnywhereGivesNothing)
{
    packed({text(20000)});
    const QByteArray whole = fileBytes();
    for (int size = 2; size < whole.size(); size += qMax(1, qMin(97, whole.size() - 20 - size))) {
        setFileBytes(whole.left(size));
        EXPECT_EQ(read(), GzipState::Broken) << size << " of " << whole.size();
        EXPECT_EQ(contents, "");
    }
}

TEST_F(Gzip, DamageIsSeen)
{
    packed({text(20000)});
    QByteArray bytes = fileBytes();
    bytes[bytes.size() - 6] = char(bytes[bytes.size() - 6] ^ 1); // of the checksum
    setFileBytes(bytes);
    EXPECT_EQ(read(), GzipState::Broken);
    EXPECT_EQ(contents, "");
}

TEST_F(Gzip, AFileThatUnpacksToMoreThanAskedForIsLeft)
{
    packed({QByteArray(1 << 20, 'a')});
    EXPECT_LT(fileBytes().size(), 5000);
    EXPECT_EQ(read((1 << 20) - 1), GzipState::TooLarge);
    EXPECT_EQ(contents, "");
    EXPECT_EQ(read(1 << 20), GzipState::Done);
    EXPECT_EQ(contents.size(), 1 << 20);
}

TEST_F(Gzip, FilesThatCannotBeOpenedAreTold)
{
    EXPECT_EQ(read(), GzipState::NotOpened);
    path = folder.filePath("нет/такой.gz");
    const GzipOutcome outcome = writeGzip(path, "a");
    EXPECT_EQ(outcome.state, GzipState::NotOpened);
    EXPECT_NE(outcome.problem, "");
}
