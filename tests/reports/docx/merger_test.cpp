// Files joined into one.
#include "docx_maker.h"
#include "package_checker.h"

#include "reports/docx/docx_merger.h"
#include "support/message_count.h"

#include <QDir>
#include <gtest/gtest.h>

namespace {

const QByteArray png = "<Default Extension=\"png\" ContentType=\"image/png\"/>";
const QByteArray section = "<w:sectPr><w:pgSz w:w=\"100\"/></w:sectPr>";
const QByteArray headerOf = "<w:hdr xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/"
                            "2006/main\" xmlns:r=\"http://schemas.openxmlformats.org/"
                            "officeDocument/2006/relationships\" xmlns:wp=\"p\" xmlns:a=\"a\" "
                            "xmlns:c=\"c\">";

/// A passport: a text, a picture and a section.
QString passport(const Folder& folder, const QString& name, const QByteArray& text)
{
    return DocxMaker(paragraph(run(text)) + paragraph(drawing("rId5", 4)) + section)
        .image("rId5", "media/image1.png", imageBytes("PNG", 0xff112233))
        .declare(png)
        .write(folder / name);
}

QDomDocument mergedDocument(const QString& path)
{
    QDomDocument part;
    EXPECT_TRUE(part.setContent(documentPart(path)));
    return part;
}

QStringList bodyNames(const QString& path)
{
    QStringList names;
    const QDomDocument part = mergedDocument(path);
    const QDomElement body = elements(part, "w:body")[0];
    for (QDomElement c = body.firstChildElement(); !c.isNull(); c = c.nextSiblingElement())
        names.append(c.tagName());
    return names;
}

} // namespace

TEST(DocxMerger, needsAnInput)
{
    Folder folder;
    EXPECT_FALSE(DocxMerger(QStringList()).merge(folder / "out.docx", true));
    EXPECT_TRUE(folder.files().isEmpty());
}

TEST(DocxMerger, copiesASingleInput)
{
    Folder folder;
    const QString one = passport(folder, "1.docx", "a");
    EXPECT_TRUE(DocxMerger({one}).merge(folder / "out.docx", false));
    EXPECT_EQ(readFile(one), readFile(folder / "out.docx"));
    EXPECT_FALSE(DocxMerger({one}).merge(folder / "out.docx", false)) << "it exists now";
    EXPECT_TRUE(DocxMerger({one}).merge(folder / "out.docx", true));
    EXPECT_FALSE(DocxMerger({folder / "none.docx"}).merge(folder / "new.docx", true));
    EXPECT_EQ(folder.files(), QStringList({"1.docx", "out.docx"}));
}

TEST(DocxMerger, refusesAnExistingOutputAtOnce)
{
    Folder folder;
    const QStringList inputs{passport(folder, "1.docx", "a"), passport(folder, "2.docx", "b")};
    writeFile(folder / "out.docx", "earlier");
    EXPECT_FALSE(DocxMerger(inputs).merge(folder / "out.docx", false));
    EXPECT_EQ(readFile(folder / "out.docx"), "earlier");
    EXPECT_TRUE(DocxMerger(inputs).merge(folder / "out.docx", true));
    EXPECT_EQ(findFaults(folder / "out.docx"), QStringList());
    EXPECT_EQ(folder.files(), QStringList({"1.docx", "2.docx", "out.docx"}));
    ASSERT_TRUE(QDir().mkdir(folder / "dir.docx"));
    EXPECT_FALSE(DocxMerger(inputs).merge(folder / "dir.docx", true));
    EXPECT_FALSE(DocxMerger(inputs).merge(folder / "no folder/out.docx", true));
}

TEST(DocxMerger, tellsTheLogWhyItRefuses)
{
    Folder folder;
    const QStringList inputs{passport(folder, "1.docx", "a"), passport(folder, "2.docx", "b")};
    writeFile(folder / "out.docx", "earlier");
    writeFile(folder / "bad.docx", "no package");
    ASSERT_TRUE(QDir().mkdir(folder / "dir.docx"));
    const QString unreachable = folder / "no folder/out.docx";
    const MessageCount log;
    DocxMerger(inputs).merge(folder / "out.docx", false);
    DocxMerger(inputs).merge(folder / "dir.docx", true);
    DocxMerger(inputs).merge(unreachable, true);
    DocxMerger(inputs.mid(0, 1)).merge(unreachable, true);
    DocxMerger({folder / "bad.docx", inputs[0]}).merge(unreachable, true);
    const QString notCopied = "DocxMerger: Failed to copy first file to \"" + unreachable + "\"";
    EXPECT_EQ(log.texts(),
              QStringList({"DocxMerger: Output file already exists and overwrite is false",
                           "DocxMerger: Failed to remove existing file", notCopied, notCopied, notCopied,
                           "DocxMerger: First file does not open: \"not a container\""}));
}

TEST(DocxMerger, refusesAnOutputThatIsTheFirstInput)
{
    Folder folder;
    const QStringList inputs{passport(folder, "1.docx", "a"), passport(folder, "2.docx", "b")};
    const QByteArray before = readFile(inputs[0]);
    EXPECT_FALSE(DocxMerger(inputs).merge(inputs[0], true));
    EXPECT_FALSE(DocxMerger({inputs[0]}).merge(inputs[0], true));
    EXPECT_EQ(readFile(inputs[0]), before);
}

TEST(DocxMerger, mayReplaceALaterInput)
{
    Folder folder;
    const QStringList inputs{passport(folder, "1.docx", "a"), passport(folder, "2.docx", "b")};
    EXPECT_TRUE(DocxMerger(inputs).merge(inputs[1], true));
    EXPECT_EQ(textOf(mergedDocument(inputs[1]).documentElement()), "ab");
}

TEST(DocxMerger, separatesBodiesByPageAndSection)
{
    Folder folder;
    ASSERT_TRUE(DocxMerger({passport(folder, "1.docx", "a"), passport(folder, "2.docx", "b")})
                    .merge(folder / "out.docx", false));
    EXPECT_EQ(bodyNames(folder / "out.docx"), QStringList({"w:p", "w:p", "w:p", "w:p", "w:p", "w:p", "w:sectPr"}));
    const QDomDocument part = mergedDocument(folder / "out.docx");
    const auto paragraphs = elements(part, "w:p");
    EXPECT_EQ(elements(paragraphs[2], "w:sectPr").size(), 1) << "the first file's section ends";
    EXPECT_EQ(paragraphs[2].firstChildElement().tagName(), "w:pPr");
    EXPECT_EQ(elements(paragraphs[3], "w:br")[0].attribute("w:type"), "page");
    EXPECT_EQ(textOf(paragraphs[4]), "b");
    EXPECT_EQ(findFaults(folder / "out.docx"), QStringList());
}

TEST(DocxMerger, appendsAtTheEndOfABodyWithoutASection)
{
    Folder folder;
    const QString bare = DocxMaker(paragraph(run("a"))).write(folder / "1.docx");
    ASSERT_TRUE(DocxMerger({bare, bare, passport(folder, "2.docx", "b"), bare}).merge(folder / "out.docx", false));
    EXPECT_EQ(bodyNames(folder / "out.docx"),
              QStringList({"w:p", "w:p", "w:p", "w:p", "w:p", "w:p", "w:p", "w:p", "w:p"}));
    EXPECT_EQ(textOf(mergedDocument(folder / "out.docx").documentElement()), "aaba");
}

TEST(DocxMerger, givesPicturesNewPartsIdsAndNumbers)
{
    Folder folder;
    const QString one = passport(folder, "1.docx", "a");
    ASSERT_TRUE(DocxMerger({one, one}).merge(folder / "out.docx", false));
    const QDomDocument part = mergedDocument(folder / "out.docx");
    const auto blips = elements(part, "a:blip");
    ASSERT_EQ(blips.size(), 2);
    EXPECT_EQ(blips[0].attribute("r:embed"), "rId5");
    EXPECT_EQ(blips[1].attribute("r:embed"), "rId6") << "behind the highest number";
    EXPECT_EQ(relationship(folder / "out.docx", "rId6")["Target"], "media/image_merged_1.png");
    const auto entries = unpacked(folder / "out.docx");
    EXPECT_EQ(entries["word/media/image_merged_1.png"], entries["word/media/image1.png"]);
    const auto drawings = elements(part, "wp:docPr");
    EXPECT_EQ(drawings[0].attribute("id"), "4");
    EXPECT_EQ(drawings[1].attribute("id"), "5") << "one more than the highest of the first file";
}

TEST(DocxMerger, countsFromOneWhereTheFirstFileHasNoNumbers)
{
    Folder folder;
    const QString first = DocxMaker().relationship("other", "hyperlink", "h", "External").write(folder / "1.docx");
    ASSERT_TRUE(DocxMerger({first, passport(folder, "2.docx", "b")}).merge(folder / "out.docx", false));
    EXPECT_EQ(relationship(folder / "out.docx", "rId1")["Target"], "media/image_merged_1.png");
    const QDomDocument part = mergedDocument(folder / "out.docx");
    EXPECT_EQ(elements(part, "wp:docPr")[0].attribute("id"), "1");
    EXPECT_TRUE(unpacked(folder / "out.docx")["[Content_Types].xml"].contains("image/png"));
    EXPECT_EQ(findFaults(folder / "out.docx"), QStringList());
}

TEST(DocxMerger, mergesItsOwnResultsAgain)
{
    Folder folder;
    const QString one = passport(folder, "1.docx", "a");
    ASSERT_TRUE(DocxMerger({one, one}).merge(folder / "2.docx", false));
    ASSERT_TRUE(DocxMerger({folder / "2.docx", folder / "2.docx", one}).merge(folder / "3.docx", false));
    EXPECT_EQ(findFaults(folder / "3.docx"), QStringList());
    EXPECT_EQ(elements(mergedDocument(folder / "3.docx"), "a:blip").size(), 5);
    EXPECT_TRUE(unpacked(folder / "3.docx").contains("word/media/image_merged_4.png"));
}

TEST(DocxMerger, stillFindsDrawingIdsWhereTheFirstFileHasTheHighest)
{
    Folder folder;
    const QString first =
        DocxMaker(paragraph(drawing("", 2147483647)) + paragraph(drawing("", 1))).write(folder / "1.docx");
    ASSERT_TRUE(DocxMerger({first, passport(folder, "2.docx", "b")}).merge(folder / "out.docx", false));
    EXPECT_EQ(findFaults(folder / "out.docx"), QStringList());
    EXPECT_EQ(elements(mergedDocument(folder / "out.docx"), "wp:docPr")[2].attribute("id"), "2");
}

TEST(DocxMerger, keepsHyperlinksWithTheirMode)
{
    Folder folder;
    const QString later =
        DocxMaker("<w:p><w:hyperlink r:id=\"rId1\">" + run("link")
                  + "</w:hyperlink><w:hyperlink w:anchor=\"here\"/><w:hyperlink r:id=\"rId2\"/></w:p>")
            .relationship("rId1", "hyperlink", "http://example.org/?a=1&amp;b=2", "External")
            .relationship("rId2", "hyperlink", "#top")
            .write(folder / "2.docx");
    ASSERT_TRUE(DocxMerger({passport(folder, "1.docx", "a"), later}).merge(folder / "out.docx", false));
    const QDomDocument part = mergedDocument(folder / "out.docx");
    const auto links = elements(part, "w:hyperlink");
    const auto external = relationship(folder / "out.docx", links[0].attribute("r:id"));
    EXPECT_EQ(external["Target"], "http://example.org/?a=1&b=2");
    EXPECT_EQ(external["TargetMode"], "External");
    const auto internal = relationship(folder / "out.docx", links[2].attribute("r:id"));
    EXPECT_EQ(internal["Target"], "#top");
    EXPECT_FALSE(internal.contains("TargetMode"));
    EXPECT_EQ(findFaults(folder / "out.docx"), QStringList());
}

TEST(DocxMerger, keepsHeadersAndFootersWithAllTheyReach)
{
    Folder folder;
    const QByteArray relationships =
        "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
        "<Relationship Id=\"rId1\" Type=\"x/image\" Target=\"media/logo.emf\"/>"
        "<Relationship Id=\"rId2\" Type=\"x/chart\" Target=\"/word/charts/chart1.xml\"/>"
        "<Relationship Id=\"rId3\" Type=\"x/hyperlink\" Target=\"http://a/\" TargetMode=\"External\"/>"
        "<Relationship Id=\"rId4\" Type=\"x/image\" Target=\"media/gone.png\"/></Relationships>";
    const QByteArray chartRelationships =
        "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
        "<Relationship Id=\"rId1\" Type=\"x/package\" Target=\"../embeddings/book.xlsx\"/>"
        "<Relationship Id=\"rId2\" Type=\"x/theme\" Target=\"../theme/theme9.xml\"/>"
        "<Relationship Id=\"rId3\" Type=\"x/image\" Target=\"../media/logo.emf\"/></Relationships>";
    const QString later = DocxMaker(paragraph(run("b"))
                                    + "<w:sectPr><w:headerReference w:type=\"default\" r:id=\"rId1\"/>"
                                      "<w:footerReference w:type=\"default\" r:id=\"rId2\"/></w:sectPr>")
                              .relationship("rId1", "header", "header1.xml")
                              .relationship("rId2", "footer", "footer1.xml")
                              .relationship("rId3", "styles", "styles.xml")
                              .entry("word/header1.xml",
                                     headerOf
                                         + "<w:p><w:r><wp:docPr id=\"4\"/><a:blip r:embed=\"rId1\"/><c:chart "
                                           "r:id=\"rId2\"/></w:r></w:p></w:hdr>")
                              .entry("word/_rels/header1.xml.rels", relationships)
                              .entry("word/footer1.xml", headerOf + "</w:hdr>")
                              .entry("word/styles.xml", "<s/>")
                              .entry("word/media/logo.emf", "emf")
                              .entry("word/charts/chart1.xml", "<c:chart xmlns:c=\"c\"/>")
                              .entry("word/charts/_rels/chart1.xml.rels", chartRelationships)
                              .entry("word/embeddings/book.xlsx", "book")
                              .entry("word/theme/theme9.xml", "<t/>")
                              .declare("<Default Extension=\"emf\" ContentType=\"image/x-emf\"/>"
                                       "<Default Extension=\"xlsx\" ContentType=\"application/book\"/>")
                              .write(folder / "2.docx");
    ASSERT_TRUE(DocxMerger({passport(folder, "1.docx", "a"), later}).merge(folder / "out.docx", false));
    EXPECT_EQ(findFaults(folder / "out.docx"), QStringList());

    const QDomDocument part = mergedDocument(folder / "out.docx");
    const QString header =
        relationship(folder / "out.docx", elements(part, "w:headerReference")[0].attribute("r:id"))["Target"];
    EXPECT_EQ(header, "header_merged_1.xml");
    EXPECT_EQ(relationship(folder / "out.docx", elements(part, "w:footerReference")[0].attribute("r:id"))["Target"],
              "footer_merged_6.xml");
    const auto entries = unpacked(folder / "out.docx");
    for (const char* name : {"word/media/image_merged_2.emf", "word/charts/chart_merged_3.xml",
                             "word/part_merged_4.xlsx", "word/theme/theme_merged_5.xml"})
        EXPECT_TRUE(entries.contains(name)) << name << QStringList(entries.keys()).join(" ");
    EXPECT_EQ(entries.keys().filter("emf").size(), 1) << "reached twice, copied once";
    EXPECT_FALSE(entries.contains("word/styles.xml")) << "other relationships of the body are passed over";
    const QByteArray links = entries["word/_rels/header_merged_1.xml.rels"];
    EXPECT_TRUE(links.contains("media/image_merged_2.emf"));
    EXPECT_TRUE(links.contains("charts/chart_merged_3.xml"));
    EXPECT_TRUE(links.contains("http://a/"));
    EXPECT_FALSE(links.contains("gone"));
    EXPECT_TRUE(entries["word/charts/_rels/chart_merged_3.xml.rels"].contains("../media/image_merged_2.emf"));
    EXPECT_TRUE(entries["word/header_merged_1.xml"].contains("id=\"5\"")) << "its drawing is renumbered";
    const QByteArray types = entries["[Content_Types].xml"];
    EXPECT_TRUE(types.contains("wordprocessingml.header+xml"));
    EXPECT_TRUE(types.contains("wordprocessingml.footer+xml"));
    EXPECT_TRUE(types.contains("drawingml.chart+xml"));
    EXPECT_TRUE(types.contains("officedocument.theme+xml"));
    EXPECT_TRUE(types.contains("application/book")) << "what has no type of its own keeps its declaration";
}

TEST(DocxMerger, declaresAnImageByItsSuffixOrByItsName)
{
    Folder folder;
    const QByteArray jpeg = imageBytes("JPEG");
    const QString later =
        DocxMaker(paragraph(drawing("rId1", 1)) + paragraph(drawing("rId2", 2)) + paragraph(drawing("rId3", 3)))
            .image("rId1", "media/a.jpeg", jpeg)
            .image("rId2", "media/b.PNG", imageBytes("PNG"))
            .image("rId3", "media/c.tmp", imageBytes("PNG"))
            .declare("<Default Extension=\"tmp\" ContentType=\"image/png\"/>")
            .write(folder / "2.docx");
    ASSERT_TRUE(DocxMerger({passport(folder, "1.docx", "a"), later}).merge(folder / "out.docx", false));
    QDomDocument types;
    ASSERT_TRUE(types.setContent(unpacked(folder / "out.docx")["[Content_Types].xml"]));
    QStringList declared;
    for (const char* name : {"Default", "Override"}) {
        for (const QDomElement& one : elements(types, name))
            declared += one.attribute("Extension") + one.attribute("PartName") + " " + one.attribute("ContentType");
    }
    EXPECT_TRUE(declared.contains("jpeg image/jpeg")) << declared.join("\n");
    EXPECT_TRUE(declared.contains("/word/media/image_merged_2.PNG image/png")) << "png is declared already";
    EXPECT_TRUE(declared.contains("tmp image/png"));
    EXPECT_EQ(findFaults(folder / "out.docx"), QStringList());
}

TEST(DocxMerger, leavesOutWhatRefersToPartsThatAreNotCarriedOver)
{
    Folder folder;
    const QString later =
        DocxMaker("<w:p><w:r><w:drawing><c:chart xmlns:c=\"c\" r:id=\"rId1\"/></w:drawing></w:r>" + run("b")
                  + "<w:r><w:footnoteReference w:id=\"2\"/></w:r><w:commentRangeStart w:id=\"0\"/></w:p>"
                    "<w:altChunk r:id=\"rId2\"/>"
                    "<w:sectPr><w:headerReference r:id=\"rId9\"/></w:sectPr>")
            .relationship("rId1", "chart", "charts/chart1.xml")
            .entry("word/charts/chart1.xml", "<c/>")
            .write(folder / "2.docx");
    ASSERT_TRUE(DocxMerger({passport(folder, "1.docx", "a"), later}).merge(folder / "out.docx", false));
    const QByteArray xml = documentPart(folder / "out.docx");
    for (const char* gone : {"c:chart", "footnoteReference", "commentRangeStart", "altChunk", "headerReference"})
        EXPECT_FALSE(xml.contains(gone)) << gone;
    EXPECT_EQ(textOf(mergedDocument(folder / "out.docx").documentElement()), "ab");
    EXPECT_EQ(findFaults(folder / "out.docx"), QStringList());
}

TEST(DocxMerger, carriesOlderPicturesToo)
{
    Folder folder;
    const QString later = DocxMaker("<w:p><w:r><w:pict><v:imagedata xmlns:v=\"v\" r:id=\"rId1\"/></w:pict></w:r></w:p>")
                              .image("rId1", "media/a.png", imageBytes("PNG"))
                              .write(folder / "2.docx");
    ASSERT_TRUE(DocxMerger({passport(folder, "1.docx", "a"), later}).merge(folder / "out.docx", false));
    EXPECT_EQ(elements(mergedDocument(folder / "out.docx"), "v:imagedata")[0].attribute("r:id"), "rId6");
}

TEST(DocxMerger, bringsTheNamespacesOfLaterFiles)
{
    Folder folder;
    const QString first =
        DocxMaker(paragraph(run("a")))
            .rootAttributes("xmlns:mc=\"http://schemas.openxmlformats.org/markup-compatibility/2006\" "
                            "xmlns:w14=\"one\" mc:Ignorable=\"w14\"")
            .write(folder / "1.docx");
    const QString later =
        DocxMaker("<w:p w14:x=\"1\" w15:y=\"2\">" + run("b") + "</w:p>")
            .rootAttributes("xmlns:mc=\"http://schemas.openxmlformats.org/markup-compatibility/2006\" "
                            "xmlns:w14=\"two\" xmlns:w15=\"three\" mc:Ignorable=\"w14 w15\"")
            .write(folder / "2.docx");
    ASSERT_TRUE(DocxMerger({first, later}).merge(folder / "out.docx", false));
    EXPECT_EQ(findFaults(folder / "out.docx"), QStringList());
    const QDomDocument part = mergedDocument(folder / "out.docx");
    EXPECT_EQ(part.documentElement().attribute("xmlns:w14"), "one");
    EXPECT_EQ(part.documentElement().attribute("xmlns:w15"), "three");
    EXPECT_EQ(part.documentElement().attribute("mc:Ignorable"), "w14 w15");
    const auto paragraphs = elements(part, "w:p");
    EXPECT_EQ(paragraphs.last().attribute("xmlns:w14"), "two") << "a prefix bound otherwise is bound where it is used";
}

TEST(DocxMerger, keepsEverythingElseOfTheFirstFile)
{
    Folder folder;
    const QString first = DocxMaker(paragraph(run("a")))
                              .entry("word/styles.xml", "<a>  <b/></a>")
                              .entry("docProps/app.xml", "<p/>")
                              .write(folder / "1.docx");
    ASSERT_TRUE(DocxMerger({first, passport(folder, "2.docx", "b")}).merge(folder / "out.docx", false));
    const auto before = unpacked(first);
    const auto after = unpacked(folder / "out.docx");
    EXPECT_EQ(before["word/styles.xml"], after["word/styles.xml"]);
    EXPECT_EQ(before["docProps/app.xml"], after["docProps/app.xml"]);
    EXPECT_EQ(before["_rels/.rels"], after["_rels/.rels"]);
}

TEST(DocxMerger, endsAtPartsThatPointAtEachOther)
{
    Folder folder;
    const auto link = [](const QByteArray& target) {
        return "<Relationships xmlns=\"r\"><Relationship Id=\"rId1\" Type=\"x/part\" Target=\"" + target
            + "\"/></Relationships>";
    };
    DocxMaker maker(paragraph(run("b")));
    maker.relationship("rId1", "header", "header1.xml").entry("word/header1.xml", headerOf + "</w:hdr>");
    maker.entry("word/_rels/header1.xml.rels", link("p0.xml"));
    for (int i = 0; i < 1000; ++i) {
        const QString name = "p" + QString::number(i) + ".xml";
        maker.entry("word/" + name, "<p/>");
        maker.entry("word/_rels/" + name + ".rels", link("p" + QByteArray::number((i + 1) % 1000) + ".xml"));
    }
    maker.write(folder / "2.docx");
    ASSERT_TRUE(DocxMerger({passport(folder, "1.docx", "a"), folder / "2.docx"}).merge(folder / "out.docx", false));
    EXPECT_EQ(unpacked(folder / "out.docx").keys().filter("part_merged_").size(), 2000);
    EXPECT_EQ(findFaults(folder / "out.docx").filter("nowhere"), QStringList());
}

TEST(DocxMerger, copiesAPartThatARelationshipWithoutATypeNames)
{
    Folder folder;
    const QString later =
        DocxMaker(paragraph(run("b")))
            .relationship("rId1", "header", "header1.xml")
            .entry("word/header1.xml", headerOf + "</w:hdr>")
            .entry("word/_rels/header1.xml.rels",
                   "<Relationships xmlns=\"r\"><Relationship Id=\"rId1\" Target=\"p.xml\"/></Relationships>")
            .entry("word/p.xml", "<p/>")
            .write(folder / "2.docx");
    ASSERT_TRUE(DocxMerger({passport(folder, "1.docx", "a"), later}).merge(folder / "out.docx", false));
    EXPECT_TRUE(unpacked(folder / "out.docx").contains("word/part_merged_2.xml"));
}

TEST(DocxMerger, keepsAPartThatDoesNotParse)
{
    Folder folder;
    const QString later = DocxMaker(paragraph(run("b")))
                              .relationship("rId1", "header", "header1.xml")
                              .entry("word/header1.xml", "<broken")
                              .write(folder / "2.docx");
    const QString first = passport(folder, "1.docx", "a");
    const MessageCount log;
    ASSERT_TRUE(DocxMerger({first, later}).merge(folder / "out.docx", false));
    ASSERT_EQ(log.texts().size(), 1);
    const QString told = "DocxMerger: Failed to parse XML part \"word/header1.xml\" \"";
    EXPECT_TRUE(log.texts().first().startsWith(told)) << log.texts().first();
    EXPECT_GT(log.texts().first().size(), told.size() + 1) << "and what the parser says";
    EXPECT_EQ(unpacked(folder / "out.docx")["word/header_merged_1.xml"], "<broken");
}

TEST(DocxMerger, tellsTheLogOfAPartThatIsNotThere)
{
    Folder folder;
    const QString first = passport(folder, "1.docx", "a");
    const QString later = DocxMaker(paragraph(run("b")) + "<w:sectPr><w:headerReference r:id=\"rId1\"/></w:sectPr>")
                              .relationship("rId1", "header", "gone.xml")
                              .write(folder / "2.docx");
    const MessageCount log;
    ASSERT_TRUE(DocxMerger({first, later}).merge(folder / "out.docx", false));
    EXPECT_EQ(log.texts().value(0), "DocxMerger: Failed to open source part \"word/gone.xml\"");
    EXPECT_EQ(findFaults(folder / "out.docx"), QStringList());
}

TEST(DocxMerger, keepsLinkedPicturesAsLinks)
{
    Folder folder;
    const QByteArray linked = "<w:p><w:r><w:drawing><a:blip xmlns:a=\"a\" r:link=\"rId1\"/></w:drawing></w:r></w:p>";
    const auto file = [&](const QString& name, const QByteArray& text, const QString& target) {
        return DocxMaker(paragraph(run(text)) + linked)
            .relationship("rId1", "image", target, "External")
            .write(folder / name);
    };
    const QString first = file("1.docx", "a", "file:///C:/photos/first.png");
    const QString later = file("2.docx", "b", "http://example.org/later.png");
    const QString out = folder / "out.docx";
    ASSERT_TRUE(DocxMerger({first, later}).merge(out, false));
    EXPECT_EQ(textOf(mergedDocument(out).documentElement()), "ab");
    const QDomDocument part = mergedDocument(out);
    const auto blips = elements(part, "a:blip");
    ASSERT_EQ(blips.size(), 2);
    QStringList targets;
    for (const QDomElement& blip : blips) {
        const auto link = relationship(out, blip.attribute("r:link"));
        EXPECT_EQ(link["TargetMode"], "External");
        targets.append(link["Target"]);
    }
    EXPECT_EQ(targets, QStringList({"file:///C:/photos/first.png", "http://example.org/later.png"}));
    EXPECT_EQ(findFaults(out), QStringList());
}
