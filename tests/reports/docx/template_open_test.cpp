// What DocxTemplate reads of a file.
#include "docx_maker.h"

#include "reports/docx/docx_template.h"
#include "support/message_count.h"

#include <gtest/gtest.h>
#include <zlib.h>

TEST(DocxTemplateOpen, readsTypesAliasesAndValuesOfControls)
{
    Folder folder;
    DocxTemplate docx;
    ASSERT_TRUE(
        docx.open(DocxMaker(paragraph(control("t", "<w:text/>", run("one ") + run("two")) + pictureControl("p", "rId5")
                                      + control("o", "<w:dropDownList/>", run("x"))
                                      + control("e", "<w:picture/>", run("no blip"))))
                      .image("rId5", "media/a.png", imageBytes("PNG"))
                      .write(folder / "a.docx")));
    EXPECT_TRUE(docx.isValid());
    EXPECT_EQ(docx.tags(), QStringList({"e", "o", "p", "t"}));
    EXPECT_EQ(docx.tagTypes["p"], 1);
    EXPECT_EQ(docx.tagTypes["e"], 1);
    EXPECT_EQ(docx.tagTypes["t"], 2);
    EXPECT_EQ(docx.tagTypes["o"], 3);
    EXPECT_EQ(docx.tagAliases["t"], "title of t");
    EXPECT_EQ(docx.tagValues["t"], "one two");
    EXPECT_EQ(docx.tagValues["p"], "rId5");
    EXPECT_FALSE(docx.tagValues.contains("o"));
    EXPECT_FALSE(docx.tagValues.contains("e")) << "a picture control without a blip has no value";
    EXPECT_EQ(docx.tagElements["t"].tagName(), "w:sdt");
}

TEST(DocxTemplateOpen, takesNestedControlsEachForItself)
{
    Folder folder;
    DocxTemplate docx;
    const QByteArray inner = textControl("inner", "text");
    ASSERT_TRUE(
        docx.open(DocxMaker(paragraph(control("outer", "<w:richText/>", inner) + "<w:sdt><w:sdtPr/><w:sdtContent>"
                                      + textControl("deep", "d") + "</w:sdtContent></w:sdt>"))
                      .write(folder / "a.docx")));
    EXPECT_EQ(docx.tags(), QStringList({"", "deep", "inner", "outer"}));
    EXPECT_EQ(docx.tagTypes[""], 3) << "an untagged control does not borrow the tag of one inside it";
    EXPECT_EQ(docx.tagTypes["outer"], 3);
    EXPECT_EQ(docx.tagTypes["inner"], 2);
}

TEST(DocxTemplateOpen, keepsTheLastOfTwoControlsWithOneTag)
{
    Folder folder;
    DocxTemplate docx;
    ASSERT_TRUE(
        docx.open(DocxMaker(paragraph(textControl("t", "first") + textControl("t", "last"))).write(folder / "a.docx")));
    EXPECT_EQ(docx.tagValues["t"], "last");
    ASSERT_TRUE(docx.setTag("t", "new"));
    ASSERT_TRUE(docx.save(folder / "b.docx"));
    QDomDocument part;
    ASSERT_TRUE(part.setContent(documentPart(folder / "b.docx")));
    EXPECT_EQ(textOf(part.documentElement()), "firstnew");
}

TEST(DocxTemplateOpen, tellsTheLogOfTagsThatStandTwice)
{
    static QStringList log;
    log.clear();
    Folder folder;
    DocxTemplate docx;
    const auto before =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& line) { log << line; });
    EXPECT_TRUE(docx.open(DocxMaker(paragraph(textControl("once", "a") + textControl("t", "b") + textControl("t", "c")))
                              .write(folder / "a.docx")));
    qInstallMessageHandler(before);
    EXPECT_EQ(log, QStringList("Of several controls with one tag only the last is filled:  \"t\""));
}

TEST(DocxTemplateOpen, storesControlsWithoutATagUnderTheEmptyTag)
{
    Folder folder;
    DocxTemplate docx;
    const QByteArray untagged = "<w:sdt><w:sdtPr><w:text/></w:sdtPr><w:sdtContent>";
    ASSERT_TRUE(docx.open(DocxMaker(paragraph(untagged + run("a") + "</w:sdtContent></w:sdt>" + untagged + run("b")
                                              + "</w:sdtContent></w:sdt>"))
                              .write(folder / "a.docx")));
    EXPECT_EQ(docx.tags(), QStringList(""));
    EXPECT_EQ(docx.tagValues[""], "b");
    EXPECT_TRUE(docx.setTag("", "c"));
}

TEST(DocxTemplateOpen, readsImageRelationshipsOnly)
{
    Folder folder;
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(DocxMaker()
                              .relationship("rId1", "styles", "styles.xml")
                              .relationship("rId2", "hyperlink", "http://a/", "External")
                              .image("rId3", "media/a.png", imageBytes("PNG", 0xff010203, 5))
                              .image("rId4", "media/b.jpg", imageBytes("JPEG"))
                              .relationship("rId5", "image", "media/a.png")
                              .write(folder / "a.docx")));
    EXPECT_EQ(docx.relationsToTargets.keys(), QStringList({"rId3", "rId4", "rId5"}));
    EXPECT_EQ(docx.relationsToTargets["rId3"], "word/media/a.png");
    EXPECT_EQ(docx.targetsToRelations.size(), 2);
    EXPECT_EQ(docx.targetsToRelations["word/media/b.jpg"], "rId4");
    EXPECT_EQ(docx.nextRelation, 3) << "targets count, not relationships";
    EXPECT_EQ(docx.m_rels_image["rId3"].size(), QSize(5, 5));
    EXPECT_TRUE(docx.m_rels_image.contains("rId4"));
    EXPECT_TRUE(docx.m_rels_image["rId4"].isNull()) << "pictures are read as PNG only";
}

TEST(DocxTemplateOpen, leavesAPictureOfGigabytesUnread)
{
    Folder folder;
    QByteArray huge = imageBytes("PNG");
    // A header of 60000 x 60000 points with its own checksum, and hardly any data.
    huge.replace(16, 8, QByteArray::fromHex("0000ea600000ea60"));
    const quint32 sum = quint32(crc32(0, reinterpret_cast<const Bytef*>(huge.constData()) + 12, 17));
    for (int i = 0; i < 4; ++i)
        huge[29 + i] = char(sum >> (24 - 8 * i));
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(DocxMaker().image("rId3", "media/a.png", huge).write(folder / "a.docx")));
    EXPECT_TRUE(docx.m_rels_image["rId3"].isNull());
}

TEST(DocxTemplateOpen, closesWhatWasOpenAndCanBeUsedAgain)
{
    Folder folder;
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(DocxMaker(paragraph(textControl("a", "x")))
                              .image("rId3", "media/a.png", imageBytes("PNG"))
                              .write(folder / "a.docx")));
    ASSERT_FALSE(docx.addImage(plainPicture(3)).isEmpty());
    ASSERT_TRUE(docx.open(DocxMaker(paragraph(textControl("b", "x"))).write(folder / "b.docx")));
    EXPECT_EQ(docx.tags(), QStringList("b"));
    EXPECT_TRUE(docx.relationsToTargets.isEmpty());
    EXPECT_TRUE(docx.newImages.isEmpty());
    docx.close();
    EXPECT_FALSE(docx.isValid());
    EXPECT_TRUE(docx.tags().isEmpty());
    EXPECT_FALSE(docx.setTag("b", "x"));
    EXPECT_FALSE(docx.applyText("b"));
    EXPECT_TRUE(docx.addImage(plainPicture(3)).isEmpty());
    EXPECT_FALSE(docx.save(folder / "c.docx"));
    EXPECT_TRUE(docx.document.isNull());
    docx.close();
}

TEST(DocxTemplateOpen, namesTheImageThatIsNotThere)
{
    Folder folder;
    DocxTemplate docx;
    for (const char* target : {"media/gone.png", "file:///c:/a.png"}) {
        const QString path = DocxMaker()
                                 .image("rId3", "media/a.png", imageBytes("PNG"))
                                 .relationship("rId4", "image", target)
                                 .write(folder / "a.docx");
        const MessageCount log;
        EXPECT_FALSE(docx.open(path));
        EXPECT_EQ(log.texts(), QStringList(QString("Failed to open image file:  \"word/%1\"").arg(target)));
    }
}

TEST(DocxTemplateOpen, takesATargetFromTheRootOfThePackage)
{
    Folder folder;
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(DocxMaker(paragraph(pictureControl("photo", "rId4")))
                              .entry("word/media/a.png", imageBytes("PNG", 0xff010203, 5))
                              .relationship("rId4", "image", "/word/media/a.png")
                              .write(folder / "a.docx")));
    EXPECT_EQ(docx.relationsToTargets["rId4"], "word/media/a.png");
    EXPECT_EQ(docx.m_rels_image["rId4"].size(), QSize(5, 5));
    EXPECT_FALSE(
        docx.open(DocxMaker().relationship("rId4", "image", "/word/media/gone.png").write(folder / "gone.docx")));
    EXPECT_EQ(docx.fault(), "a picture is missing: word/media/gone.png");
}

namespace {

// Some programs write the main part under another name.
QString writeRenamed(const DocxMaker& maker, const QString& path)
{
    QVector<ZipEntry> entries = maker.entries();
    for (ZipEntry& entry : entries) {
        entry.name.replace("word/document.xml", "word/document2.xml");
        entry.name.replace("word/_rels/document.xml.rels", "word/_rels/document2.xml.rels");
        if (entry.name == "_rels/.rels")
            entry.bytes.replace("word/document.xml", "/word/document2.xml");
    }
    writeFile(path, zipBytes(entries));
    return path;
}

} // namespace

TEST(DocxTemplateOpen, findsTheMainPartByTheRelationshipsOfThePackage)
{
    Folder folder;
    DocxTemplate docx;
    ASSERT_TRUE(
        docx.open(writeRenamed(DocxMaker(paragraph(textControl("a", "x")) + paragraph(pictureControl("photo", "rId4")))
                                   .image("rId4", "media/a.png", imageBytes("PNG")),
                               folder / "a.docx")))
        << docx.fault().toStdString();
    EXPECT_EQ(docx.tags(), QStringList({"a", "photo"}));
    writeFile(folder / "new.png", imageBytes("PNG", 0xff00ff00, 9));
    EXPECT_TRUE(docx.setTag("a", "new text"));
    EXPECT_TRUE(docx.setTag("photo", folder / "new.png"));
    ASSERT_TRUE(docx.save(folder / "out.docx"));
    const QMap<QString, QByteArray> written = unpacked(folder / "out.docx");
    EXPECT_TRUE(written["word/document2.xml"].contains("new text"));
    EXPECT_TRUE(written["word/_rels/document2.xml.rels"].contains("\"media/tag_image_photo_0.png\""));
    EXPECT_TRUE(written.contains("word/media/tag_image_photo_0.png"));
    EXPECT_FALSE(written.contains("word/document.xml"));
}

TEST(DocxTemplateOpen, namesTheReasonOfARefusal)
{
    Folder folder;
    DocxTemplate docx;
    const auto refusal = [&](const QVector<ZipEntry>& entries) {
        writeFile(folder / "a.docx", zipBytes(entries));
        EXPECT_FALSE(docx.open(folder / "a.docx"));
        return docx.fault();
    };
    const QVector<ZipEntry> sound = DocxMaker().entries();
    for (int missing : {0, 2, 3}) {
        QVector<ZipEntry> entries = sound;
        const QString name = entries.takeAt(missing).name;
        EXPECT_EQ(refusal(entries), "a part is missing or too large: " + name);
    }
    QVector<ZipEntry> entries = sound;
    entries[2].bytes = "<w:document><w:body></w:document>";
    EXPECT_TRUE(refusal(entries).startsWith("a part does not parse: word/document.xml: "));
    EXPECT_FALSE(docx.open(folder / "none.docx"));
    EXPECT_EQ(docx.fault(), "not a container");
    writeFile(folder / "a.docx", zipBytes(sound));
    EXPECT_TRUE(docx.open(folder / "a.docx"));
    EXPECT_EQ(docx.fault(), "");
}

TEST(DocxTemplateOpen, isClosedAfterAFailedOpen)
{
    Folder folder;
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(DocxMaker(paragraph(textControl("a", "x"))).write(folder / "a.docx")));
    EXPECT_FALSE(docx.open(folder / "none.docx"));
    EXPECT_FALSE(docx.isValid());
    EXPECT_TRUE(docx.tagTypes.isEmpty());
    docx.close();
    EXPECT_TRUE(docx.open(folder / "a.docx"));
}
