// Files that are no drawings, and drawings that are damaged.
#include "drawing_text.h"
#include "random_drawing.h"

#include <drawing/host_access.h>
#include <dxf/drawing_file.h>
#include <render/display_list.h>

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

namespace {

QByteArray group(int code, const QByteArray& value) { return QByteArray::number(code) + '\n' + value + '\n'; }

// A reference to a block.
QByteArray insertOf(const QByteArray& block)
{
    return group(0, "INSERT") + group(8, "0") + group(2, block) + group(10, "0") + group(20, "0");
}

QByteArray blockOf(const QByteArray& name, const QByteArray& entities)
{
    return group(0, "BLOCK") + group(8, "0") + group(2, name) + group(10, "0") + group(20, "0") + group(3, name)
        + entities + group(0, "ENDBLK");
}

QByteArray line() { return group(0, "LINE") + group(8, "0") + group(10, "0") + group(20, "0") + group(11, "1"); }

QByteArray drawingOf(const QByteArray& blocks, const QByteArray& entities)
{
    return group(0, "SECTION") + group(2, "BLOCKS") + blocks + group(0, "ENDSEC") + group(0, "SECTION")
        + group(2, "ENTITIES") + entities + group(0, "ENDSEC") + group(0, "EOF");
}

} // namespace

TEST_F(BrokenFile, blocksThatHoldThemselvesAreRefusedWithTheReason)
{
    NcDbDatabase drawing;
    EXPECT_EQ(read(drawing, drawingOf(blockOf("A", line() + insertOf("A")), insertOf("A"))), NcStatus::FileFormat);
    EXPECT_EQ(drawingFault().toStdString(), "Блок содержит сам себя: A");
    EXPECT_EQ(read(drawing, drawingOf(blockOf("A", insertOf("B")) + blockOf("B", insertOf("A") + line()), line())),
              NcStatus::FileFormat);
    EXPECT_TRUE(drawingFault().startsWith(QStringLiteral("Блок содержит сам себя: ")));
    EXPECT_EQ(read(drawing,
                   drawingOf(blockOf("A", line()) + blockOf("B", insertOf("A") + insertOf("A")),
                             insertOf("B") + insertOf("A"))),
              NcStatus::Ok)
        << drawingFault().toStdString();
    EXPECT_EQ(drawingFault(), QString());
}

TEST_F(BrokenFile, blocksNestedBeyondMeasureAreRefused)
{
    QByteArray deep = blockOf("B0", line());
    for (int i = 1; i < 30000; ++i)
        deep += blockOf("B" + QByteArray::number(i), insertOf("B" + QByteArray::number(i - 1)));
    NcDbDatabase drawing;
    EXPECT_EQ(read(drawing, drawingOf(deep, insertOf("B29999"))), NcStatus::FileFormat);
    EXPECT_TRUE(drawingFault().startsWith(QStringLiteral("Блоки вложены друг в друга слишком глубоко: ")));

    QByteArray wide = blockOf("B0", line());
    for (int i = 1; i <= 10; ++i) {
        QByteArray inside;
        for (int k = 0; k < 10; ++k)
            inside += insertOf("B" + QByteArray::number(i - 1));
        wide += blockOf("B" + QByteArray::number(i), inside);
    }
    EXPECT_EQ(read(drawing, drawingOf(wide, insertOf("B10"))), NcStatus::FileFormat);
    EXPECT_EQ(drawingFault(), QStringLiteral("Вложенные блоки показывают слишком много объектов."));
    EXPECT_EQ(read(drawing, drawingOf(wide, insertOf("B4"))), NcStatus::FileFormat) << "unused, but it could be shown";
    EXPECT_EQ(read(drawing, "no drawing"), NcStatus::FileFormat);
    EXPECT_EQ(drawingFault(), QStringLiteral("Файл не является чертежом DXF или оборван."));
    EXPECT_EQ(drawing.readDwgFile(folder.filePath(QStringLiteral("missing.dwg"))), NcStatus::FileAccess);
    EXPECT_TRUE(drawingFault().startsWith(QStringLiteral("Файл не читается: ")));
}

// Numbers that no program of ours can count with.
TEST_F(BrokenFile, hostileNumbersDoNoHarm)
{
    const QByteArray huge = "1e300", most = "2147483647", least = "-2147483648";
    QByteArray entities = group(0, "MTEXT") + group(8, "0") + group(10, huge) + group(20, "0") + group(40, huge)
        + group(71, least) + group(1, "x");
    entities += group(0, "ARC") + group(8, "0") + group(10, "0") + group(20, "0") + group(40, "1") + group(50, huge)
        + group(51, "-1e300");
    for (const QByteArray& angle : {huge, QByteArray("-1e300"), QByteArray("1e18")})
        entities += group(0, "HATCH") + group(8, "0") + group(2, "ANSI31") + group(70, "0") + group(91, "2")
            + group(92, "0") + group(93, "1") + group(72, "3") + group(10, huge) + group(20, "0") + group(11, "1")
            + group(21, "0") + group(40, "1") + group(50, "0") + group(51, angle) + group(73, "1") + group(97, most)
            + group(92, "0") + group(93, most) + group(72, "2") + group(10, "0") + group(20, "0") + group(40, huge)
            + group(50, angle) + group(51, "7") + group(73, "0") + group(97, most) + group(41, "1e-9");
    NcDbDatabase drawing;
    ASSERT_EQ(read(drawing, drawingOf({}, entities)), NcStatus::Ok);
    int texts = 0;
    for (const auto& entry : HostAccess::data(drawing).objects) {
        if (!entry.second->isKindOf(NcDbMText::desc()))
            continue;
        ++texts;
        EXPECT_EQ(static_cast<const NcDbMText&>(*entry.second).attachment(), 1);
        static_cast<const NcDbMText&>(*entry.second).extents();
    }
    EXPECT_EQ(texts, 1);
    recordDrawing(drawing);
    EXPECT_FALSE(drawingBytes(drawing).isEmpty());
}

namespace {

// As newer programs write a text with columns, which are an object inside of it.
QByteArray textWithColumns(bool withStyle)
{
    const QByteArray style = withStyle ? group(7, "Standard") : QByteArray();
    const QByteArray text = group(0, "MTEXT") + group(5, "2F") + group(330, "1F") + group(100, "AcDbEntity")
        + group(8, "0") + group(100, "AcDbMText") + group(10, "1") + group(20, "2") + group(30, "0") + group(40, "2.5")
        + group(41, "50") + group(46, "0.0") + group(71, "1") + group(72, "5") + group(1, "text") + style
        + group(73, "1") + group(44, "1.0") + group(101, "Embedded Object") + group(70, "1") + group(10, "1.0")
        + group(20, "0.0") + group(30, "0.0") + group(11, "1") + group(21, "2") + group(31, "0") + group(40, "50")
        + group(41, "0.0") + group(42, "9.5") + group(43, "2.5") + group(71, "2") + group(72, "1") + group(44, "50")
        + group(45, "12.5") + group(73, "0") + group(74, "0") + group(46, "0.0") + group(1001, "ACAD")
        + group(1000, "MTEXTBEGIN");
    return group(0, "SECTION") + group(2, "HEADER") + group(9, "$ACADVER") + group(1, "AC1032") + group(0, "ENDSEC")
        + drawingOf({}, text);
}

} // namespace

TEST_F(BrokenFile, aTextWithAnEmbeddedObjectStaysAsLongAsItIs)
{
    for (const bool withStyle : {true, false}) {
        QByteArray bytes = textWithColumns(withStyle);
        NcDbDatabase drawing;
        int size = 0;
        for (int i = 0; i < 4; ++i) {
            ASSERT_EQ(read(drawing, bytes), NcStatus::Ok);
            bytes = drawingBytes(drawing);
            EXPECT_EQ(bytes.count("Embedded Object"), 1) << i;
            EXPECT_TRUE(i == 0 || bytes.size() == size) << "save " << i << ": " << size << " became " << bytes.size();
            size = bytes.size();
        }
        EXPECT_LT(bytes.indexOf("Embedded Object"), bytes.indexOf("MTEXTBEGIN"));
        EXPECT_LT(bytes.indexOf("Standard\n", bytes.indexOf("\nMTEXT\n")), bytes.indexOf("Embedded Object"));
    }
}
