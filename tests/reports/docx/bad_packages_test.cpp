// Files that are no sound Word documents, by accident or by intent.
#include "docx_maker.h"

#include "reports/docx/docx_merger.h"
#include "reports/docx/docx_template.h"

#include <QElapsedTimer>
#include <QFile>
#include <functional>
#include <gtest/gtest.h>

namespace {

DocxMaker sound()
{
    return DocxMaker(paragraph(textControl("t", "x")))
        .image("rId5", "media/a.png", imageBytes("PNG"))
        .declare("<Default Extension=\"png\" ContentType=\"image/png\"/>");
}

QVector<ZipEntry> changed(const QString& name, const std::function<void(ZipEntry*)>& change)
{
    QVector<ZipEntry> entries = sound().entries();
    for (ZipEntry& entry : entries) {
        if (entry.name == name)
            change(&entry);
    }
    return entries;
}

QVector<ZipEntry> without(const QString& name)
{
    QVector<ZipEntry> entries;
    for (const ZipEntry& entry : sound().entries()) {
        if (entry.name != name)
            entries.append(entry);
    }
    return entries;
}

QByteArray withDocument(const QByteArray& xml) { return zipBytes(sound().document(xml).entries()); }

QByteArray withEntry(const QString& name) { return zipBytes(sound().entry(name, "x").entries()); }

QByteArray nested(int depth)
{
    return "<w:document xmlns:w=\"w\"><w:body>" + QByteArray("<w:p>").repeated(depth)
        + QByteArray("</w:p>").repeated(depth) + "</w:body></w:document>";
}

QByteArray manyEntries(int count)
{
    QVector<ZipEntry> entries = sound().entries();
    for (int i = 0; i < count; ++i) {
        ZipEntry entry;
        entry.name = "word/e" + QString::number(i);
        entry.deflate = false;
        entries.append(entry);
    }
    return zipBytes(entries);
}

QByteArray expandingEntities()
{
    QByteArray xml = "<?xml version=\"1.0\"?><!DOCTYPE d [<!ENTITY e0 \"aaaaaaaaaa\">";
    for (int i = 1; i < 10; ++i) {
        const QByteArray inner = "&e" + QByteArray::number(i - 1) + ";";
        xml += "<!ENTITY e" + QByteArray::number(i) + " \"" + inner.repeated(10) + "\">";
    }
    return xml + "]><w:document xmlns:w=\"w\"><w:body><w:p>&e9;</w:p></w:body></w:document>";
}

struct BadPackage {
    const char* name;
    std::function<QByteArray()> make;
};

void PrintTo(const BadPackage& bad, std::ostream* stream) { *stream << bad.name; }

class BadPackages : public testing::TestWithParam<BadPackage> { };

/// Peak memory of this process in megabytes, from the system's own account.
qint64 peakMegabytes()
{
    QFile status("/proc/self/status");
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toLongLong() / 1024;
    }
    return -1;
}

const QVector<BadPackage>& badPackages()
{
    static const QVector<BadPackage> all{
        {"empty", [] { return QByteArray(); }},
        {"cut", [] { return zipBytes(sound().entries()).left(700); }},
        {"cutInTheDirectory", [] { return zipBytes(sound().entries()).chopped(30); }},
        {"noContainer", [] { return QByteArray(5000, 'x'); }},
        {"encryptedEntry", [] { return zipBytes(changed("word/document.xml", [](ZipEntry* e) { e->flags = 1; })); }},
        {"unknownPacking", [] { return zipBytes(changed("word/document.xml", [](ZipEntry* e) { e->method = 14; })); }},
        {"wrongChecksumOfTheDocument",
         [] { return zipBytes(changed("word/document.xml", [](ZipEntry* e) { e->wrongChecksum = true; })); }},
        {"wrongChecksumOfAnyEntry",
         [] { return zipBytes(changed("_rels/.rels", [](ZipEntry* e) { e->wrongChecksum = true; })); }},
        {"noDocumentPart", [] { return zipBytes(without("word/document.xml")); }},
        {"noRelationships", [] { return zipBytes(without("word/_rels/document.xml.rels")); }},
        {"noContentTypes", [] { return zipBytes(without("[Content_Types].xml")); }},
        {"missingImage", [] { return zipBytes(without("word/media/a.png")); }},
        {"imageOutsideTheFolder",
         [] { return zipBytes(sound().relationship("rId6", "image", "../../a.png").entries()); }},
        {"mainPartOfAnotherName",
         [] { return zipBytes(changed("word/document.xml", [](ZipEntry* e) { e->name = "word/document2.xml"; })); }},
        {"hundredThousandEntries", [] { return manyEntries(100000); }},
        {"moreEntriesThanCounted", [] { return zipBytes(sound().entries(), 3); }},
        {"fewerEntriesThanCounted", [] { return zipBytes(sound().entries(), 9000); }},
        {"entryOfHundredsOfMegabytes",
         [] {
             ZipEntry bomb;
             bomb.name = "word/media/bomb.bin";
             bomb.bytes = QByteArray(300 * 1024 * 1024, 'a');
             return zipBytes(sound().entries() + QVector<ZipEntry>{bomb});
         }},
        {"entryThatUnpacksToMoreThanDeclared",
         [] {
             ZipEntry bomb;
             bomb.name = "word/media/bomb.bin";
             bomb.bytes = QByteArray(300 * 1024 * 1024, 'a');
             bomb.declaredSize = 1000;
             return zipBytes(sound().entries() + QVector<ZipEntry>{bomb});
         }},
        {"entryThatUnpacksToLessThanDeclared",
         [] { return zipBytes(changed("word/document.xml", [](ZipEntry* e) { e->declaredSize = 5000; })); }},
        {"entryDeclaredAsGigabytes",
         [] { return zipBytes(changed("word/document.xml", [](ZipEntry* e) { e->declaredSize = 0xfffffffe; })); }},
        {"documentTooLarge",
         [] { return withDocument("<w:document>" + QByteArray(65 * 1024 * 1024, ' ') + "</w:document>"); }},
        {"fiftyThousandNestedElements", [] { return withDocument(nested(50000)); }},
        {"nestedJustTooDeep", [] { return withDocument(nested(255)); }},
        {"millionsOfElements",
         [] {
             return withDocument("<w:document><w:body>" + QByteArray("<a/>").repeated(1600000)
                                 + "</w:body></w:document>");
         }},
        {"thousandsOfAttributes",
         [] {
             QByteArray attributes;
             for (int i = 0; i < 200000; ++i)
                 attributes += " a" + QByteArray::number(i) + "=\"\"";
             return withDocument("<w:document" + attributes + "/>");
         }},
        {"entityExpansion", [] { return withDocument(expandingEntities()); }},
        {"externalEntity",
         [] {
             return withDocument("<!DOCTYPE d [<!ENTITY e SYSTEM \"file:///etc/passwd\">]>"
                                 "<w:document xmlns:w=\"w\"><w:body>&e;</w:body></w:document>");
         }},
        {"documentTypeInRelationships",
         [] {
             return zipBytes(changed("word/_rels/document.xml.rels",
                                     [](ZipEntry* e) { e->bytes = "<!DOCTYPE d><Relationships/>"; }));
         }},
        {"foreignEncoding",
         [] { return withDocument("<?xml version=\"1.0\" encoding=\"windows-1251\"?><w:document/>"); }},
        {"documentNotWellFormed", [] { return withDocument("<w:document><w:body></w:document>"); }},
        {"documentWithoutAnElement", [] { return withDocument("<?xml version=\"1.0\"?>"); }},
        {"documentCut", [] { return withDocument("<w:document><w:bo"); }},
        {"documentOfBytes", [] { return withDocument(QByteArray(100, '\0')); }},
        {"relationshipsNotWellFormed",
         [] { return zipBytes(changed("word/_rels/document.xml.rels", [](ZipEntry* e) { e->bytes = "<a>"; })); }},
        {"nameThatLeavesTheFolder", [] { return withEntry("word/../../x"); }},
        {"nameThatClimbs", [] { return withEntry("../x"); }},
        {"absoluteName", [] { return withEntry("/etc/x"); }},
        {"nameWithADrive", [] { return withEntry("C:x"); }},
        {"nameWithBackslashes", [] { return withEntry("..\\x"); }},
        {"nameTwice", [] { return withEntry("word/document.xml"); }},
    };
    return all;
}

} // namespace

TEST_P(BadPackages, areRefusedQuicklyWithNothingWritten)
{
    Folder folder;
    writeFile(folder / "bad.docx", GetParam().make());
    sound().write(folder / "good.docx");
    const QStringList before = folder.files();
    const qint64 memory = peakMegabytes();

    QElapsedTimer clock;
    clock.start();
    DocxTemplate docx;
    EXPECT_FALSE(docx.open(folder / "bad.docx"));
    EXPECT_FALSE(docx.isValid());
    EXPECT_FALSE(docx.save(folder / "out.docx"));
    EXPECT_FALSE(DocxMerger({folder / "bad.docx", folder / "good.docx"}).merge(folder / "out.docx", true));
    // Two attempts. Generous for a busy machine; the point is that nothing
    // hangs, the time itself is measured in bench/.
    EXPECT_LT(clock.elapsed(), 10000);
    EXPECT_LT(peakMegabytes() - memory, 512);
    EXPECT_EQ(folder.files(), before);
}

TEST_P(BadPackages, areSkippedBehindASoundFirstFile)
{
    Folder folder;
    writeFile(folder / "bad.docx", GetParam().make());
    sound().write(folder / "good.docx");
    EXPECT_TRUE(DocxMerger({folder / "good.docx", folder / "bad.docx"}).merge(folder / "out.docx", true));
    const auto entries = unpacked(folder / "out.docx");
    EXPECT_EQ(entries.keys(), unpacked(folder / "good.docx").keys()) << "nothing of the bad one";
    QDomDocument part;
    ASSERT_TRUE(part.setContent(entries["word/document.xml"]));
    EXPECT_EQ(elements(part, "w:br").size(), 0);
}

INSTANTIATE_TEST_SUITE_P(, BadPackages, testing::ValuesIn(badPackages().begin(), badPackages().end()),
                         [](const auto& info) { return std::string(info.param.name); });

// The merger keeps it as a link; a template's pictures are replaced, so that
// they must be there.
TEST(LinkedPictures, areRefusedInATemplate)
{
    Folder folder;
    writeFile(folder / "a.docx",
              zipBytes(sound().relationship("rId6", "image", "http://a/b.png", "External").entries()));
    DocxTemplate docx;
    EXPECT_FALSE(docx.open(folder / "a.docx"));
}

TEST(SoundPackages, mayBeNestedAsDeepAsWordGoes)
{
    Folder folder;
    DocxTemplate docx;
    writeFile(folder / "a.docx", withDocument(nested(254)));
    EXPECT_TRUE(docx.open(folder / "a.docx"));
    EXPECT_TRUE(docx.save(folder / "b.docx"));
}

TEST(SoundPackages, mayHoldStoredAndLargeEntries)
{
    Folder folder;
    QVector<ZipEntry> entries = sound().entries();
    ZipEntry large;
    large.name = "word/media/large.bin";
    large.bytes = QByteArray(40 * 1024 * 1024, 'a');
    entries.append(large);
    entries[2].deflate = false;
    writeFile(folder / "a.docx", zipBytes(entries));
    DocxTemplate docx;
    EXPECT_TRUE(docx.open(folder / "a.docx"));
}
