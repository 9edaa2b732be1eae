#include "database/provisioning/folder_copy.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

class CopyingAFolder : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QDir(root_.path()).mkpath("from/a/b"));
        ASSERT_TRUE(QDir(root_.path()).mkpath("from/empty"));
        write("from/top.txt", "1");
        write("from/a/b/deep.txt", "2");
    }
    void write(const QString& path, const QByteArray& text)
    {
        QFile file(root_.filePath(path));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    QByteArray read(const QString& path)
    {
        QFile file(root_.filePath(path));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(absent)");
    }
    bool copy(const QString& from, const QString& to) { return copyFolder(root_.filePath(from), root_.filePath(to)); }

    QTemporaryDir root_;
};

TEST_F(CopyingAFolder, TakesFilesAndSubfolders)
{
    EXPECT_TRUE(copy("from", "to"));
    EXPECT_EQ(read("to/top.txt"), QByteArray("1"));
    EXPECT_EQ(read("to/a/b/deep.txt"), QByteArray("2"));
    EXPECT_TRUE(QDir(root_.filePath("to/empty")).exists());
}

TEST_F(CopyingAFolder, AMissingSourceFails)
{
    EXPECT_FALSE(copy("none", "to"));
    EXPECT_FALSE(copyFolder(QString(), root_.filePath("to")));
}

TEST_F(CopyingAFolder, AnExistingFileIsKeptAndCountsAsAFailure)
{
    ASSERT_TRUE(QDir(root_.path()).mkpath("to"));
    write("to/top.txt", "own");
    EXPECT_FALSE(copy("from", "to"));
    EXPECT_EQ(read("to/top.txt"), QByteArray("own"));
    EXPECT_EQ(read("to/a/b/deep.txt"), QByteArray("2")) << "the rest is copied";
}

TEST_F(CopyingAFolder, ATargetInsideTheSourceIsRefused)
{
    EXPECT_FALSE(copy("from", "from/inside"));
    EXPECT_FALSE(copy("from", "from"));
    EXPECT_FALSE(QFile::exists(root_.filePath("from/inside/top.txt")));
    EXPECT_TRUE(copy("from", "from-beside")) << "a name that only begins alike is fine";
}

} // namespace
