// Setting tags and writing their texts.
#include "docx_maker.h"

#include "reports/docx/docx_template.h"
#include "support/message_count.h"

#include <gtest/gtest.h>

namespace {

QDomDocument filled(const QByteArray& body, const QString& tag, const QString& value)
{
    Folder folder;
    DocxTemplate docx;
    EXPECT_TRUE(docx.open(DocxMaker(body).write(folder / "a.docx")));
    EXPECT_TRUE(docx.setTag(tag, value));
    EXPECT_TRUE(docx.save(folder / "b.docx"));
    DocxTemplate again;
    EXPECT_TRUE(again.open(folder / "b.docx"));
    return again.document;
}

QString filledText(const QString& value)
{
    const QDomDocument part = filled(paragraph(textControl("t", "old")), "t", value);
    return textOf(part.documentElement());
}

} // namespace

TEST(DocxTemplateFill, refusesAnUnknownTag)
{
    Folder folder;
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(DocxMaker(paragraph(textControl("t", "x"))).write(folder / "a.docx")));
    EXPECT_FALSE(docx.setTag("other", "x"));
    EXPECT_FALSE(docx.tagTypes.contains("other"));
    EXPECT_FALSE(docx.applyText("other"));
    EXPECT_FALSE(docx.tagTypes.contains("other"));
}

TEST(DocxTemplateFill, keepsATextUntilItIsApplied)
{
    Folder folder;
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(DocxMaker(paragraph(textControl("t", "old"))).write(folder / "a.docx")));
    ASSERT_TRUE(docx.setTag("t", "new"));
    EXPECT_EQ(docx.tagValues["t"], "new");
    EXPECT_EQ(textOf(docx.document.documentElement()), "old");
    EXPECT_TRUE(docx.applyText("t"));
    EXPECT_EQ(textOf(docx.document.documentElement()), "new");
    EXPECT_TRUE(docx.setTag("t", "newer"));
    EXPECT_TRUE(docx.applyText("t")) << "a control can be filled more than once";
    EXPECT_EQ(textOf(docx.document.documentElement()), "newer");
}

TEST(DocxTemplateFill, appliesAtSaveWhatWasSetAndNothingElse)
{
    const QByteArray body = paragraph(textControl("set", "a") + control("several", "<w:text/>", run("b") + run("c")));
    EXPECT_EQ(textOf(filled(body, "set", "X").documentElement()), "Xbc")
        << "a control of several runs that was not set is not doubled";
}

TEST(DocxTemplateFill, replacesTheFirstTextOfSeveralRuns)
{
    const QDomDocument part = filled(paragraph(control("t", "<w:text/>", run("one ") + run("two"))), "t", "X");
    EXPECT_EQ(textOf(part.documentElement()), "Xtwo");
}

TEST(DocxTemplateFill, leavesAControlWithoutATextToReplace)
{
    Folder folder;
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(DocxMaker(paragraph(control("none", "<w:text/><w:showingPlcHdr/>", "<w:r/>")
                                              + control("empty", "<w:text/>", "<w:r><w:t></w:t></w:r>")))
                              .write(folder / "a.docx")));
    for (const char* tag : {"none", "empty"}) {
        EXPECT_TRUE(docx.setTag(tag, "x"));
        EXPECT_FALSE(docx.applyText(tag)) << tag;
    }
    EXPECT_EQ(textOf(docx.document.documentElement()), "");
    EXPECT_EQ(elements(docx.document, "w:showingPlcHdr").size(), 1);
}

TEST(DocxTemplateFill, appliesToControlsOfEveryTypeButNotToUnknownOnes)
{
    const QByteArray body = paragraph(control("list", "<w:dropDownList/>", run("choose")) + run("rest"));
    EXPECT_EQ(textOf(filled(body, "list", "chosen").documentElement()), "chosenrest");
}

TEST(DocxTemplateFill, blanksAControlByAnEmptyText) { EXPECT_EQ(filledText(""), ""); }

TEST(DocxTemplateFill, fillsNestedControlsInTheOrderOfTheirTags)
{
    Folder folder;
    for (const QByteArray inner : {"a", "z"}) {
        DocxTemplate docx;
        ASSERT_TRUE(docx.open(
            DocxMaker(paragraph(control("m", "<w:richText/>", textControl(inner, "old")))).write(folder / "a.docx")));
        ASSERT_TRUE(docx.setTag("m", "outer"));
        ASSERT_TRUE(docx.setTag(inner, "inner"));
        ASSERT_TRUE(docx.save(folder / "b.docx"));
        EXPECT_EQ(textOf(docx.document.documentElement()), inner < "m" ? "outer" : "inner");
    }
}

TEST(DocxTemplateFill, takesThePlaceholderFlagFromAFilledControl)
{
    const QByteArray body = paragraph(control("set", "<w:showingPlcHdr/><w:text/>", run("Click here"))
                                      + control("other", "<w:showingPlcHdr/><w:text/>", run("Click there")));
    const QDomDocument part = filled(body, "set", "X");
    const auto controls = elements(part, "w:sdt");
    ASSERT_EQ(controls.size(), 2);
    EXPECT_EQ(elements(controls[0], "w:showingPlcHdr").size(), 0);
    EXPECT_EQ(elements(controls[1], "w:showingPlcHdr").size(), 1);
    EXPECT_EQ(elements(controls[0], "w:tag").size(), 1);
}

TEST(DocxTemplateFill, keepsBlanksAtTheEndsOfAValue)
{
    for (const QString value : {" a", "a ", "\ta", "a\n"}) {
        const QDomDocument part = filled(paragraph(textControl("t", "old")), "t", value);
        const auto texts = elements(part, "w:t");
        ASSERT_EQ(texts.size(), 1);
        EXPECT_EQ(texts[0].attribute("xml:space"), "preserve") << value;
        EXPECT_EQ(texts[0].text(), value);
    }
    const QDomDocument plain = filled(paragraph(textControl("t", "old")), "t", "a b");
    EXPECT_FALSE(elements(plain, "w:t")[0].hasAttribute("xml:space"));
}

TEST(DocxTemplateFill, dropsCharactersThatXmlCannotHold)
{
    EXPECT_EQ(filledText(QString("a") + QChar(0) + QChar(1) + QChar(0x1f) + QChar(0xfffe) + QChar(0xffff) + "b"), "ab");
    EXPECT_EQ(filledText(QString("a") + QChar(0xd83d) + "b" + QChar(0xde00)), "ab") << "halves of a pair";
    EXPECT_EQ(filledText(QString::fromUtf8("a\xf0\x9f\x98\x80\tb\nc")), QString::fromUtf8("a\xf0\x9f\x98\x80\tb\nc"));
}

TEST(DocxTemplateFill, escapesMarkupInValues)
{
    EXPECT_EQ(filledText("<w:t>&amp; \"'> ]]>"), "<w:t>&amp; \"'> ]]>");
    EXPECT_EQ(filledText("%1 %2"), "%1 %2");
}

TEST(DocxTemplateFill, loadsAPictureAndRefusesWhatIsNone)
{
    Folder folder;
    DocxTemplate docx;
    ASSERT_TRUE(docx.open(DocxMaker(paragraph(pictureControl("p", "rId5")))
                              .image("rId5", "media/a.png", imageBytes("PNG"))
                              .write(folder / "a.docx")));
    writeFile(folder / "text.png", "no picture");
    for (const char* name : {"none.png", "text.png"}) {
        const MessageCount log;
        EXPECT_FALSE(docx.setTag("p", folder / name));
        EXPECT_EQ(log.texts(), QStringList("Failed to load image:  \"" + folder / name + "\""));
    }
    EXPECT_FALSE(docx.m_rels_image.contains("p"));
    ASSERT_TRUE(docx.save(folder / "b.docx"));
    EXPECT_EQ(relationship(folder / "b.docx", "rId5")["Target"], "media/a.png");
    EXPECT_TRUE(documentPart(folder / "b.docx").contains("r:embed=\"rId5\"")) << "the old picture stays";

    writeFile(folder / "photo.jpg", imageBytes("JPEG", 0xff00ff00, 20));
    EXPECT_TRUE(docx.setTag("p", folder / "photo.jpg")) << "any format that Qt reads";
    EXPECT_EQ(docx.m_rels_image["p"].size(), QSize(20, 20));
    EXPECT_EQ(docx.tagValues["p"], "rId5");
}
