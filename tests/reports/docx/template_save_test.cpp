// The file that DocxTemplate writes.
#include "docx_maker.h"
#include "package_checker.h"

#include "reports/docx/docx_template.h"
#include "support/message_count.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <gtest/gtest.h>

namespace {

const QByteArray pngType = "<Default Extension=\"png\" ContentType=\"image/png\"/>";

/// A template with two picture controls over one picture.
DocxMaker twoPictures()
{
    return DocxMaker(paragraph(pictureControl("a", "rId5"))
                     + paragraph(control("b", "<w:picture/>", drawing("rId5", 8))))
        .image("rId5", "media/old.png", imageBytes("PNG"))
        .declare(pngType);
}

QString redPicture(const Folder& folder)
{
    writeFile(folder / "red.png", imageBytes("PNG", 0xffff0000, 12));
    return folder / "red.png";
}

} // namespace

TEST(DocxTemplateSave, givesReplacedPicturesNamesOfTheirTags)
{
    Folder folder;
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(twoPictures().write(folder / "a.docx")));
    ASSERT_TRUE(docx.setTag("a", redPicture(folder)));
    ASSERT_TRUE(docx.setTag("b", redPicture(folder)));
    ASSERT_TRUE(docx.save(folder / "b.docx"));

    const auto entries = unpacked(folder / "b.docx");
    EXPECT_TRUE(entries.contains("word/media/tag_image_a_0.png"));
    EXPECT_TRUE(entries.contains("word/media/tag_image_b_1.png")) << "one counter for the save";
    EXPECT_TRUE(entries.contains("word/media/old.png")) << "media without relationships stay";
    EXPECT_EQ(QImage::fromData(entries["word/media/tag_image_a_0.png"], "PNG").pixel(0, 0), 0xffff0000);
    const auto added = relationship(folder / "b.docx", "rId_tag_a_0");
    EXPECT_EQ(added["Target"], "media/tag_image_a_0.png");
    EXPECT_EQ(added["Type"], "http://schemas.openxmlformats.org/officeDocument/2006/relationships/image");
    DocxTemplate again;
    ASSERT_TRUE(again.open(folder / "b.docx"));
    EXPECT_EQ(again.tagValues["a"], "rId_tag_a_0");
    EXPECT_EQ(again.tagValues["b"], "rId_tag_b_0");
    EXPECT_EQ(findFaults(folder / "b.docx"), QStringList());
}

TEST(DocxTemplateSave, takesThePngFileAsItIsAndPacksTheOthers)
{
    Folder folder;
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(twoPictures().write(folder / "a.docx")));
    ASSERT_TRUE(docx.setTag("a", redPicture(folder)));
    writeFile(folder / "green.bmp", imageBytes("BMP", 0xff00ff00, 12));
    ASSERT_TRUE(docx.setTag("b", folder / "green.bmp"));
    ASSERT_TRUE(QFile::remove(folder / "red.png"));
    ASSERT_TRUE(docx.save(folder / "b.docx"));
    const auto entries = unpacked(folder / "b.docx");
    EXPECT_EQ(entries["word/media/tag_image_a_0.png"], imageBytes("PNG", 0xffff0000, 12));
    EXPECT_EQ(QImage::fromData(entries["word/media/tag_image_b_1.png"], "PNG").pixel(0, 0), 0xff00ff00);
    // A picture that is put in its place by hand is the one that counts.
    docx.m_rels_image["a"].fill(Qt::blue);
    ASSERT_TRUE(docx.save(folder / "c.docx"));
    EXPECT_EQ(QImage::fromData(unpacked(folder / "c.docx")["word/media/tag_image_a_0.png"], "PNG").pixel(0, 0),
              0xff0000ff);
}

TEST(DocxTemplateSave, takesAWholePngFileUnseen)
{
    Folder folder;
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(twoPictures().write(folder / "a.docx")));
    const QByteArray whole = imageBytes("PNG", 0xffff0000, 12);
    QByteArray spoiled = whole;
    spoiled[45] = char(spoiled[45] ^ 1);
    const QByteArray others[] = {QByteArray(), whole.left(whole.size() - 1), whole.left(8),
                                 spoiled,      imageBytes("JPEG"),           whole.left(33) + whole.right(12)};
    for (const QByteArray& bytes : others) {
        writeFile(folder / "other.png", bytes);
        EXPECT_FALSE(docx.setPngFile("a", folder / "other.png")) << bytes.size();
    }
    EXPECT_FALSE(docx.setPngFile("a", folder / "none.png"));
    EXPECT_FALSE(docx.setPngFile("no tag", redPicture(folder)));
    ASSERT_TRUE(docx.setPngFile("a", redPicture(folder)));
    ASSERT_TRUE(docx.save(folder / "b.docx"));
    EXPECT_EQ(unpacked(folder / "b.docx")["word/media/tag_image_a_0.png"], whole);
    EXPECT_EQ(relationship(folder / "b.docx", "rId_tag_a_0")["Target"], "media/tag_image_a_0.png");
    EXPECT_EQ(findFaults(folder / "b.docx"), QStringList());
    writeFile(folder / "green.png", imageBytes("PNG", 0xff00ff00));
    ASSERT_TRUE(docx.setTag("a", folder / "green.png")) << "the last one counts";
    ASSERT_TRUE(docx.save(folder / "c.docx"));
    EXPECT_EQ(unpacked(folder / "c.docx")["word/media/tag_image_a_0.png"], imageBytes("PNG", 0xff00ff00));
}

TEST(DocxTemplateSave, readsAnotherPictureOfTheSameFileWithinTheSecond)
{
    Folder folder;
    QByteArray colors[] = {imageBytes("PNG", 0xffff0000), imageBytes("PNG", 0xff0000ff)};
    const int size = qMax(colors[0].size(), colors[1].size());
    for (QByteArray& bytes : colors) {
        bytes.append(QByteArray(size - bytes.size(), '\0')); // behind the end of the picture
        DocxTemplate docx;
        ASSERT_TRUE(docx.open(twoPictures().write(folder / "a.docx")));
        writeFile(folder / "photo.png", bytes);
        QFile file(folder / "photo.png");
        ASSERT_TRUE(file.open(QIODevice::ReadWrite)
                    && file.setFileTime(QDateTime(QDate(2026, 1, 1), QTime(0, 0)), QFileDevice::FileModificationTime));
        ASSERT_TRUE(docx.setTag("a", folder / "photo.png"));
        EXPECT_EQ(docx.m_rels_image["a"].toImage().pixel(0, 0), QImage::fromData(bytes).pixel(0, 0));
    }
}

TEST(DocxTemplateSave, findsFreeNamesInAFilledTemplate)
{
    Folder folder;
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(twoPictures().write(folder / "a.docx")));
    ASSERT_TRUE(docx.setTag("a", redPicture(folder)));
    ASSERT_TRUE(docx.save(folder / "b.docx"));
    ASSERT_TRUE(docx.open(folder / "b.docx"));
    ASSERT_TRUE(docx.setTag("a", redPicture(folder)));
    ASSERT_TRUE(docx.save(folder / "c.docx"));
    EXPECT_TRUE(unpacked(folder / "c.docx").contains("word/media/tag_image_a_1.png"));
    EXPECT_EQ(relationship(folder / "c.docx", "rId_tag_a_1")["Target"], "media/tag_image_a_1.png");
    EXPECT_EQ(findFaults(folder / "c.docx"), QStringList());
}

TEST(DocxTemplateSave, takesAPictureTagNamedLikeARelationshipForItsTagOnlyWhenSet)
{
    Folder folder;
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(DocxMaker(paragraph(pictureControl("rId5", "rId6")))
                              .image("rId5", "media/a.png", imageBytes("PNG"))
                              .image("rId6", "media/b.png", imageBytes("PNG"))
                              .declare(pngType)
                              .write(folder / "a.docx")));
    ASSERT_TRUE(docx.save(folder / "b.docx"));
    EXPECT_TRUE(documentPart(folder / "b.docx").contains("r:embed=\"rId6\""));
}

TEST(DocxTemplateSave, makesPlainNamesOfTagsWithOtherCharacters)
{
    Folder folder;
    DocxTemplate docx;
    const QByteArray tag = "../x y@&amp;\xd0\xa4";
    ASSERT_TRUE(docx.open(DocxMaker(paragraph(pictureControl(tag, "rId5")))
                              .image("rId5", "media/a.png", imageBytes("PNG"))
                              .declare(pngType)
                              .write(folder / "a.docx")));
    ASSERT_EQ(docx.tags(), QStringList(QString::fromUtf8("../x y@&\xd0\xa4")));
    ASSERT_TRUE(docx.setTag(docx.tags().first(), redPicture(folder)));
    ASSERT_TRUE(docx.save(folder / "b.docx"));
    EXPECT_TRUE(unpacked(folder / "b.docx").contains("word/media/tag_image_.._x_y____0.png"));
    EXPECT_EQ(findFaults(folder / "b.docx"), QStringList());
    DocxTemplate again;
    ASSERT_TRUE(again.open(folder / "b.docx"));
    EXPECT_EQ(again.m_rels_image[again.tagValues.first()].size(), QSize(12, 12));
}

TEST(DocxTemplateSave, savesTwiceTheSameBytes)
{
    Folder folder;
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(twoPictures().write(folder / "a.docx")));
    ASSERT_TRUE(docx.setTag("a", redPicture(folder)));
    ASSERT_FALSE(docx.addImage(plainPicture()).isEmpty());
    ASSERT_TRUE(docx.save(folder / "b.docx"));
    ASSERT_TRUE(docx.save(folder / "c.docx"));
    EXPECT_EQ(readFile(folder / "b.docx"), readFile(folder / "c.docx"));
    EXPECT_TRUE(docx.isValid());
}

TEST(DocxTemplateSave, takesThePlaceholderFlagFromAFilledPicture)
{
    Folder folder;
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(DocxMaker(paragraph(control("p", "<w:showingPlcHdr/><w:picture/>", drawing("rId5", 1))))
                              .image("rId5", "media/a.png", imageBytes("PNG"))
                              .write(folder / "a.docx")));
    ASSERT_TRUE(docx.setTag("p", redPicture(folder)));
    ASSERT_TRUE(docx.save(folder / "b.docx"));
    EXPECT_FALSE(documentPart(folder / "b.docx").contains("showingPlcHdr"));
}

TEST(DocxTemplateSave, writesAPictureOfAControlWithoutABlipAndSaysSo)
{
    Folder folder;
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(DocxMaker(paragraph(control("p", "<w:picture/>", run("x")))).write(folder / "a.docx")));
    ASSERT_TRUE(docx.setTag("p", redPicture(folder)));
    const MessageCount log;
    ASSERT_TRUE(docx.save(folder / "b.docx"));
    EXPECT_EQ(log.texts(),
              QStringList({"Warning: a:blip element not found for tag \"p\"",
                           "Adding new image file: \"word/media/tag_image_p_0.png\" for tag \"p\"",
                           "Successfully saved image for tag \"p\""}));
    EXPECT_TRUE(unpacked(folder / "b.docx").contains("word/media/tag_image_p_0.png"));
}

TEST(DocxTemplateSave, tellsTheLogOfEachNewPicture)
{
    Folder folder;
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(twoPictures().write(folder / "a.docx")));
    ASSERT_TRUE(docx.setTag("a", redPicture(folder)));
    ASSERT_EQ(docx.addImage(plainPicture()), "rId_auto_2");
    const MessageCount log;
    ASSERT_TRUE(docx.save(folder / "b.docx"));
    EXPECT_EQ(log.texts(),
              QStringList({"Updated r:embed for tag \"a\" to \"rId_tag_a_0\"",
                           "Adding new image file: \"word/media/tag_image_a_0.png\" for tag \"a\"",
                           "Successfully saved image for tag \"a\"",
                           "Adding new image file: \"word/media/image_auto_2.png\" for rId \"rId_auto_2\"",
                           "Successfully saved image for rId \"rId_auto_2\""}));
}

TEST(DocxTemplateSave, addsPicturesForTheBody)
{
    Folder folder;
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(DocxMaker(paragraph(run("a")))
                              .image("rId_auto_2", "media/image_auto_3.png", imageBytes("PNG"))
                              .relationship("rId_auto_3", "hyperlink", "h", "External")
                              .write(folder / "a.docx")));
    EXPECT_EQ(docx.nextRelation, 2);
    EXPECT_TRUE(docx.addImage(QPixmap()).isEmpty());
    const QString first = docx.addImage(plainPicture());
    const QString second = docx.addImage(plainPicture(5));
    EXPECT_EQ(first, "rId_auto_4") << "ids of every kind of relationship are passed over";
    EXPECT_EQ(second, "rId_auto_5");
    EXPECT_EQ(docx.newImagePaths[first], "word/media/image_auto_4.png");
    EXPECT_EQ(docx.newImages[second].size(), QSize(5, 5));
    ASSERT_TRUE(docx.save(folder / "b.docx"));
    EXPECT_EQ(relationship(folder / "b.docx", second)["Target"], "media/image_auto_5.png");
    EXPECT_TRUE(unpacked(folder / "b.docx").contains("word/media/image_auto_4.png"));
    EXPECT_EQ(findFaults(folder / "b.docx"), QStringList());
}

TEST(DocxTemplateSave, passesOverEntriesThatNoRelationshipNames)
{
    Folder folder;
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(DocxMaker().entry("word/media/image_auto_1.png", "x").write(folder / "a.docx")));
    const QString id = docx.addImage(plainPicture());
    EXPECT_EQ(id, "rId_auto_1");
    EXPECT_EQ(docx.newImagePaths[id], "word/media/image_auto_2.png");
}

TEST(DocxTemplateSave, declaresTheThreeFormatsWithNewPicturesOnly)
{
    Folder folder;
    DocxTemplate docx;
    const QByteArray upper = "<Default Extension=\"JPG\" ContentType=\"image/jpeg\"/>";
    ASSERT_TRUE(docx.open(DocxMaker().declare(pngType + upper).write(folder / "a.docx")));
    ASSERT_TRUE(docx.save(folder / "b.docx"));
    EXPECT_EQ(unpacked(folder / "b.docx")["[Content_Types].xml"], unpacked(folder / "a.docx")["[Content_Types].xml"]);
    docx.addImage(plainPicture());
    ASSERT_TRUE(docx.save(folder / "c.docx"));
    const QByteArray types = unpacked(folder / "c.docx")["[Content_Types].xml"];
    QDomDocument part;
    ASSERT_TRUE(part.setContent(types));
    QStringList extensions;
    for (const QDomElement& one : elements(part, "Default"))
        extensions += one.attribute("Extension") + " " + one.attribute("ContentType");
    EXPECT_EQ(extensions.filter("image/"),
              QStringList({"png image/png", "JPG image/jpeg", "jpg image/jpeg", "jpeg image/jpeg"}))
        << "an extension is compared exactly";
}

TEST(DocxTemplateSave, copiesEveryOtherEntryByteForByte)
{
    Folder folder;
    const QByteArray odd = QByteArray("\x00\xff\x01 <x>", 7);
    DocxMaker maker(paragraph(textControl("t", "a")));
    maker.entry("word/styles.xml", "<a>  <b/></a>").entry("customXml/item.bin", odd).entry("docProps/", "");
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(maker.write(folder / "a.docx")));
    docx.setTag("t", "b");
    ASSERT_TRUE(docx.save(folder / "b.docx"));
    const auto before = unpacked(folder / "a.docx");
    const auto after = unpacked(folder / "b.docx");
    EXPECT_EQ(before.keys(), after.keys());
    for (const QString& name : before.keys()) {
        if (name != "word/document.xml" && name != "word/_rels/document.xml.rels") {
            EXPECT_EQ(before[name], after[name]) << name;
        }
    }
}

TEST(DocxTemplateSave, keepsWhiteSpaceBetweenAndInRuns)
{
    Folder folder;
    const QByteArray body = "<w:p><w:r><w:t>a</w:t></w:r> \n <w:r><w:t xml:space=\"preserve\"> "
                            "</w:t></w:r><w:r><w:t>b</w:t></w:r></w:p>";
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(DocxMaker(body).write(folder / "a.docx")));
    ASSERT_TRUE(docx.save(folder / "b.docx"));
    const QByteArray once = documentPart(folder / "b.docx");
    EXPECT_TRUE(once.contains("<w:t xml:space=\"preserve\"> </w:t>")) << once.constData();
    EXPECT_TRUE(once.contains("</w:r> \n <w:r>")) << once.constData();
    ASSERT_TRUE(docx.open(folder / "b.docx"));
    ASSERT_TRUE(docx.save(folder / "c.docx"));
    EXPECT_EQ(textOf(docx.document.documentElement()), "a b");
}

TEST(DocxTemplateSave, keepsTheDeclarationAndOddMarkup)
{
    Folder folder;
    const QByteArray body = "<w:p><!-- note --><w:r><w:t><![CDATA[a<b]]></w:t></w:r><?pi data?></w:p>";
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(DocxMaker(body).rootAttributes("w:a=\"x&#10;y&quot;&lt;\"").write(folder / "a.docx")));
    ASSERT_TRUE(docx.save(folder / "b.docx"));
    const QByteArray xml = documentPart(folder / "b.docx");
    EXPECT_TRUE(xml.startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>"));
    EXPECT_TRUE(xml.contains("<!-- note -->"));
    EXPECT_TRUE(xml.contains("<![CDATA[a<b]]>"));
    EXPECT_TRUE(xml.contains("<?pi data?>"));
    ASSERT_TRUE(docx.open(folder / "b.docx"));
    EXPECT_EQ(docx.document.documentElement().attribute("w:a"), "x\ny\"<");
}

TEST(DocxTemplateSave, readsADocumentInUtf16)
{
    Folder folder;
    const QString xml =
        QString::fromUtf8("<?xml version=\"1.0\" encoding=\"UTF-16\"?><w:document xmlns:w=\"w\"><w:body><w:p><w:r>"
                          "<w:t>\xd0\xa4</w:t></w:r></w:p></w:body></w:document>");
    const QByteArray bytes =
        QByteArray("\xff\xfe", 2) + QByteArray(reinterpret_cast<const char*>(xml.utf16()), xml.size() * 2);
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(DocxMaker().document(bytes).write(folder / "a.docx")));
    ASSERT_TRUE(docx.save(folder / "b.docx"));
    EXPECT_TRUE(documentPart(folder / "b.docx").contains("<w:t>\xd0\xa4</w:t>"));
    EXPECT_EQ(findFaults(folder / "b.docx"), QStringList());
}

TEST(DocxTemplateSave, replacesAnEarlierFileAndLeavesNoOther)
{
    Folder folder;
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(DocxMaker(paragraph(run("new"))).write(folder / "a.docx")));
    writeFile(folder / "b.docx", "earlier");
    ASSERT_TRUE(docx.save(folder / "b.docx"));
    EXPECT_TRUE(documentPart(folder / "b.docx").contains("new"));
    EXPECT_EQ(folder.files(), QStringList({"a.docx", "b.docx"}));
    ASSERT_TRUE(docx.save(folder / "a.docx")) << "over the open template";
    EXPECT_TRUE(documentPart(folder / "a.docx").contains("new"));
}

TEST(DocxTemplateSave, givesFalseWhereItCannotWrite)
{
    Folder folder;
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(DocxMaker(paragraph(run("new"))).write(folder / "a.docx")));
    EXPECT_FALSE(docx.save(folder / "no such folder/b.docx"));
    ASSERT_TRUE(QDir().mkdir(folder / "dir.docx"));
    EXPECT_FALSE(docx.save(folder / "dir.docx"));
    EXPECT_EQ(folder.files(), QStringList("a.docx"));
}

TEST(DocxTemplateSave, writesNothingWhenTheTemplateIsDamagedMeanwhile)
{
    Folder folder;
    DocxTemplate docx;
    const QString path =
        DocxMaker(paragraph(run("new"))).entry("word/x.bin", QByteArray(100000, 'x')).write(folder / "a.docx");
    ASSERT_TRUE(docx.open(path));
    ASSERT_FALSE(docx.addImage(plainPicture()).isEmpty());
    QFile file(path);
    ASSERT_TRUE(file.resize(200));
    writeFile(folder / "b.docx", "earlier");
    const MessageCount log;
    EXPECT_FALSE(docx.save(folder / "b.docx"));
    EXPECT_TRUE(docx.relationsXml.isEmpty());
    EXPECT_TRUE(docx.contentTypesXml.isEmpty());
    EXPECT_EQ(log.texts().filter("Failed"),
              QStringList({"Failed to open relationships file", "Failed to open [Content_Types].xml"}));
    EXPECT_EQ(readFile(folder / "b.docx"), "earlier");
    EXPECT_EQ(folder.files(), QStringList({"a.docx", "b.docx"}));
}
