// Files that are no drawings, and drawings that are damaged.
#include "drawing_text.h"
#include "random_drawing.h"

#include <drawing/host_access.h>
#include <dxf/drawing_file.h>

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <random>

namespace {

class BrokenFile : public ::testing::Test {
protected:
    NcStatus read(NcDbDatabase& drawing, const QByteArray& bytes)
    {
        const QString path = folder.filePath(QStringLiteral("drawing.dwg"));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            return NcStatus::FileAccess;
        file.write(bytes);
        file.close();
        return drawing.readDwgFile(path);
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(BrokenFile, noDrawingLeavesTheDrawingAsItWas)
{
    NcDbDatabase drawing;
    fillRandomly(drawing, 3);
    const QStringList before = drawingLines(drawing);
    const QByteArray whole = drawingBytes(drawing);
    const QByteArray bad[] = {QByteArray(),
                              QByteArray("AC1032\0\0\0\0\0\x01binary", 17),
                              QByteArray("  0\nEOF\n"),
                              QByteArray("some text\nof two lines\n"),
                              whole.left(whole.size() / 2),
                              whole.left(whole.size() - 5),
                              QByteArray("  0\nSECTION\n  2\nENTITIES\n  0\nEOF\n"),
                              QByteArray(1000, '\0')};
    for (const QByteArray& bytes : bad) {
        EXPECT_EQ(read(drawing, bytes), NcStatus::FileFormat) << bytes.left(40).toStdString();
        EXPECT_EQ(firstDifference(before, drawingLines(drawing)).toStdString(), "");
    }
    EXPECT_EQ(drawing.readDwgFile(folder.filePath(QStringLiteral("missing.dwg"))), NcStatus::FileAccess);
    EXPECT_EQ(firstDifference(before, drawingLines(drawing)).toStdString(), "");
}

TEST_F(BrokenFile, savingWhereNobodyMayLeavesNothingBehind)
{
    NcDbDatabase drawing;
    EXPECT_EQ(drawing.saveAs(folder.filePath(QStringLiteral("no such folder/drawing.dwg"))), NcStatus::FileAccess);
}

TEST_F(BrokenFile, cutAtEveryNthByteIsNoDrawing)
{
    NcDbDatabase drawing;
    fillRandomly(drawing, 11);
    const QByteArray whole = drawingBytes(drawing);
    int refused = 0, cuts = 0;
    const int step = std::max(1, whole.size() / 400);
    for (int size = 0; size < whole.size() - 6; size += step, ++cuts) {
        NcDbDatabase read;
        HostAccess::beginLoading(read);
        refused += readDrawingBytes(read, whole.left(size)) == NcStatus::FileFormat ? 1 : 0;
        HostAccess::finishLoading(read);
    }
    EXPECT_GT(cuts, 300);
    EXPECT_EQ(refused, cuts);
}

// A drawing cut short and closed, or with bytes changed, reads as something or
// not at all, and what it reads as can be saved.
TEST_F(BrokenFile, damagedDrawingsDoNoHarm)
{
    std::mt19937 random(5);
    for (unsigned seed = 0; seed < 8; ++seed) {
        NcDbDatabase drawing;
        fillRandomly(drawing, seed);
        const QByteArray whole = drawingBytes(drawing);
        for (int i = 0; i < 60; ++i) {
            QByteArray bytes = whole;
            if (i % 2 == 0) {
                bytes = bytes.left(bytes.lastIndexOf("\n  0\n", int(random() % unsigned(whole.size()))) + 1)
                    + "  0\nENDSEC\n  0\nEOF\n";
            } else {
                for (int k = 0; k < 20; ++k)
                    bytes[int(random() % unsigned(bytes.size()))] = "0123456789-.AZ\n"[random() % 15];
            }
            NcDbDatabase read;
            if (isOk(this->read(read, bytes))) {
                EXPECT_FALSE(drawingBytes(read).isEmpty());
            }
        }
    }
}
