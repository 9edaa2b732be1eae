// The checker itself: each breach is seen, and only that.
#include "docx_maker.h"
#include "package_checker.h"

#include <gtest/gtest.h>

namespace {

QStringList faultsOf(const DocxMaker& maker)
{
    Folder folder;
    return findFaults(maker.write(folder / "a.docx"));
}

const QByteArray png = "<Default Extension=\"png\" ContentType=\"image/png\"/>";

} // namespace

TEST(PackageChecker, passesASoundPackage)
{
    EXPECT_EQ(faultsOf(DocxMaker(paragraph(run("a")) + paragraph(drawing("rId5", 1)))
                           .image("rId5", "media/a.png", imageBytes("PNG"))
                           .declare(png)),
              QStringList());
}

TEST(PackageChecker, seesEachBreach)
{
    const QByteArray bytes = imageBytes("PNG");
    EXPECT_EQ(faultsOf(DocxMaker().entry("word/a.png", bytes)), QStringList("no content type: word/a.png"));
    EXPECT_EQ(faultsOf(DocxMaker(drawing("rId6", 1))), QStringList("word/document.xml: blip refers to nothing: rId6"));
    EXPECT_EQ(faultsOf(DocxMaker(drawing("rId6", 1)).relationship("rId6", "hyperlink", "h", "External")).size(), 1);
    EXPECT_EQ(faultsOf(DocxMaker(drawing("", 1) + drawing("", 1))),
              QStringList("word/document.xml: drawing id twice 1"));
    EXPECT_EQ(faultsOf(DocxMaker("<x:y/>")).size(), 1);
    EXPECT_EQ(faultsOf(DocxMaker().relationship("rId1", "styles", "styles.xml")).size(), 1);
    EXPECT_EQ(faultsOf(DocxMaker().relationship("1", "hyperlink", "h", "External")).size(), 1);
    EXPECT_EQ(faultsOf(DocxMaker()
                           .relationship("rId1", "hyperlink", "h", "External")
                           .relationship("rId1", "hyperlink", "h", "External"))
                  .size(),
              1);
    EXPECT_EQ(faultsOf(DocxMaker().declare(png + png)).size(), 1);
    EXPECT_EQ(faultsOf(DocxMaker().declare("<Default Extension=\"q\" ContentType=\"\"/>")).size(), 1);
    EXPECT_EQ(faultsOf(DocxMaker().declare("<Override PartName=\"/x\" ContentType=\"y\"/>")).size(), 1);
}
