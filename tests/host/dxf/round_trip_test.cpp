// What is written reads back as it was.
#include "audited.h"
#include "drawing_text.h"
#include "random_drawing.h"

#include <drawing/audit.h>
#include <drawing/host_access.h>
#include <dxf/drawing_file.h>

#include <QFile>
#include <QTemporaryDir>

namespace {

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void expectSoundDrawing(const NcDbDatabase& drawing)
{
    for (const AuditFinding& finding : audit(drawing))
        ADD_FAILURE() << finding.text.toStdString();
}

} // namespace

TEST(DrawingRoundTrip, everyFieldOfRandomDrawings)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("drawing.dwg"));
    for (unsigned seed = 0; seed < 200; ++seed) {
        NcDbDatabase drawing;
        fillRandomly(drawing, seed);
        ASSERT_EQ(drawing.saveAs(path), NcStatus::Ok);
        NcDbDatabase read;
        ASSERT_EQ(read.readDwgFile(path), NcStatus::Ok);
        ASSERT_EQ(firstDifference(drawingLines(drawing), drawingLines(read)).toStdString(), "") << "seed " << seed;
    }
}

TEST(DrawingRoundTrip, secondSaveIsTheSameFile)
{
    QTemporaryDir folder;
    const QString first = folder.filePath(QStringLiteral("first.dwg")),
                  second = folder.filePath(QStringLiteral("second.dwg"));
    for (unsigned seed = 0; seed < 20; ++seed) {
        NcDbDatabase drawing;
        fillRandomly(drawing, seed);
        ASSERT_EQ(drawing.saveAs(first), NcStatus::Ok);
        NcDbDatabase read;
        ASSERT_EQ(read.readDwgFile(first), NcStatus::Ok);
        ASSERT_EQ(read.saveAs(second), NcStatus::Ok);
        NcDbDatabase again;
        ASSERT_EQ(again.readDwgFile(second), NcStatus::Ok);
        ASSERT_EQ(again.saveAs(first), NcStatus::Ok);
        ASSERT_EQ(bytesOf(first), bytesOf(second)) << "seed " << seed;
    }
}

TEST(DrawingRoundTrip, isSoundForAnotherLibrary)
{
    QTemporaryDir folder;
    QStringList files;
    for (unsigned seed = 0; seed < 40; ++seed) {
        NcDbDatabase drawing;
        fillRandomly(drawing, seed);
        files << folder.filePath(QStringLiteral("%1.dxf").arg(seed));
        ASSERT_EQ(drawing.saveAs(files.last()), NcStatus::Ok);
    }
    NcDbDatabase empty;
    files << folder.filePath(QStringLiteral("empty.dxf"));
    ASSERT_EQ(empty.saveAs(files.last()), NcStatus::Ok);
    expectSound(files);
}

TEST(DrawingRoundTrip, readDrawingIsSoundForUs)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("drawing.dwg"));
    NcDbDatabase drawing;
    ASSERT_EQ(drawing.saveAs(path), NcStatus::Ok);
    NcDbDatabase read;
    ASSERT_EQ(read.readDwgFile(path), NcStatus::Ok);
    expectSoundDrawing(read);
    EXPECT_FALSE(read.clayer().isNull());
    EXPECT_FALSE(read.currentSpaceId().isNull());
}

TEST(DrawingRoundTrip, keepsHandlesAndGivesNewOnesBeyond)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("drawing.dwg"));
    NcDbDatabase drawing;
    auto& model = *HostAccess::objectAs<NcDbBlockTableRecord>(HostAccess::data(drawing).modelSpace);
    const NcDbObjectId line = HostAccess::addEntity(model, std::make_unique<NcDbLine>(), 0x5000);
    ASSERT_EQ(line.handle(), 0x5000u);
    ASSERT_EQ(drawing.saveAs(path), NcStatus::Ok);
    NcDbDatabase read;
    ASSERT_EQ(read.readDwgFile(path), NcStatus::Ok);
    EXPECT_NE(HostAccess::objectAs<NcDbLine>({&read, 0x5000}), nullptr);
    EXPECT_GT(HostAccess::data(read).handleSeed, 0x5000u);
}

TEST(DrawingRoundTrip, lineBreakOfMultilineTextIsTheFormatsOwn)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("drawing.dwg"));
    NcDbDatabase drawing;
    auto& model = *HostAccess::objectAs<NcDbBlockTableRecord>(HostAccess::data(drawing).modelSpace);
    auto text = std::make_unique<NcDbMText>();
    HostAccess::contents(*text) = QStringLiteral("ТС-5\n-1.25%%d");
    const NcDbObjectId id = HostAccess::addEntity(model, std::move(text));
    ASSERT_EQ(drawing.saveAs(path), NcStatus::Ok);
    EXPECT_TRUE(bytesOf(path).contains("\n  1\nТС-5\\P-1.25%%d\n"));
    NcDbDatabase read;
    ASSERT_EQ(read.readDwgFile(path), NcStatus::Ok);
    const auto* found = HostAccess::objectAs<NcDbMText>({&read, id.handle()});
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->contents(), QStringLiteral("ТС-5\\P-1.25%%d"));
}

TEST(DrawingRoundTrip, readingReplacesWhatWasThere)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("drawing.dwg"));
    NcDbDatabase empty, full;
    ASSERT_EQ(empty.saveAs(path), NcStatus::Ok);
    fillRandomly(full, 7);
    ASSERT_EQ(full.readDwgFile(path), NcStatus::Ok);
    NcDbDatabase fresh;
    ASSERT_EQ(fresh.readDwgFile(path), NcStatus::Ok);
    EXPECT_EQ(firstDifference(drawingLines(fresh), drawingLines(full)).toStdString(), "");
}
