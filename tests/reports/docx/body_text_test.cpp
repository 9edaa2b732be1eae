// Document parts as text: taken apart at the body, changed on the way, indented.
#include "reports/docx/body_text.h"
#include "reports/docx/indented_text.h"
#include "reports/docx/packed_text.h"
#include "reports/docx/xml_tree.h"

#include <gtest/gtest.h>

using namespace docx;

namespace {

const QByteArray root = "<w:document xmlns:w=\"w\" xmlns:r='r&amp;s' a=\"1 > 0\">";

QByteArray partOf(const QByteArray& body) { return root + "<w:body>" + body + "</w:body></w:document>"; }

BodyText read(const QByteArray& body, const BodyChanges& changes)
{
    const QByteArray part = partOf(body);
    QByteArray same;
    QString error;
    EXPECT_TRUE(checkXml(part, &same, &error)) << error;
    DocumentText text(part);
    EXPECT_TRUE(text.readHead());
    return text.readBody(changes);
}

BodyText asItIs(const QByteArray& body)
{
    DocumentText text(partOf(body));
    EXPECT_TRUE(text.readHead());
    return text.readBody();
}

BodyChanges someChanges()
{
    BodyChanges changes;
    changes.relationships = {{"rId1", "rId7"}, {"r&2", "rId8"}};
    changes.newDrawingId = [id = qint64(40)]() mutable { return ++id; };
    return changes;
}

QByteArray changed(const QByteArray& body) { return read(body, someChanges()).before; }

/// The whole part put together again.
QByteArray again(const QByteArray& part)
{
    DocumentText text(part);
    EXPECT_TRUE(text.readHead());
    const BodyText body = text.readBody();
    text.readTail();
    const AroundBody& around = text.around();
    QByteArray start = "<" + around.rootName;
    for (const MarkupAttribute& attribute : around.rootAttributes)
        start += attribute.written();
    return around.prolog + "\n" + start + ">" + around.beforeBody + body.before + body.section + body.behind
        + around.tail;
}

} // namespace

TEST(BodyText, isThePrintedTreeOfThePart)
{
    // Attributes of one each, since a tree has no order of them.
    const QByteArray part = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><!--front--><w:document xmlns:w=\"w\">"
                            "<w:background w:color=\"FF\"><a/></w:background><w:body><w:p><w:r><w:t>one</w:t></w:r>"
                            "<w:r><w:t xml:space=\"preserve\"> </w:t><w:br></w:br></w:r></w:p>text<w:p/>\n  <w:p>"
                            "<!--c--></w:p><w:sectPr><w:pgSz w:w=\"1\"/></w:sectPr></w:body><w:end/></w:document>\n";
    QDomDocument tree;
    ASSERT_TRUE(parseXml(part, &tree));
    EXPECT_EQ(again(part), printXml(tree, 1));
    EXPECT_EQ(again(again(part)), again(part));
}

TEST(BodyText, keepsTheLastSectionApart)
{
    const BodyText body = asItIs("<w:p><w:pPr><w:sectPr/></w:pPr></w:p><w:sectPr><w:x/></w:sectPr>\n text \n ");
    EXPECT_EQ(body.section, "<w:sectPr>\n   <w:x/>\n  </w:sectPr>");
    EXPECT_EQ(body.behind, "\n text");
    EXPECT_EQ(asItIs("<w:p/>\n<w:sectPr/>\n ").behind, "");
    EXPECT_EQ(asItIs("<w:p/>\n ").before, "\n  <w:p/>");
    EXPECT_TRUE(body.before.contains("<w:sectPr/>")) << "one inside a paragraph is none of the body's";
    EXPECT_TRUE(asItIs("<w:p/>").section.isEmpty());
    EXPECT_EQ(asItIs("<w:sectPr/>").section, "<w:sectPr/>");
    const BodyText later = read("<w:sectPr n=\"1\"/><w:p/><w:sectPr n=\"2\"/><w:p/>", someChanges());
    EXPECT_EQ(later.section, "<w:sectPr n=\"2\"/>");
    EXPECT_EQ(later.before.count("<w:p/>"), 2);
    EXPECT_EQ(later.before.count("sectPr"), 0);
}

TEST(BodyText, aDocumentWithoutABodyIsNone)
{
    for (const char* part : {"<w:document/>", "<w:document></w:document>", "<a><b><w:body/></b></a>", "<w:body/>"})
        EXPECT_FALSE(DocumentText(part).readHead()) << part;
    DocumentText empty("<w:document><w:body/></w:document>");
    ASSERT_TRUE(empty.readHead());
    EXPECT_TRUE(empty.readBody().before.isEmpty());
    empty.readTail();
    EXPECT_EQ(empty.around().beforeBody + empty.around().tail, "\n <w:body>\n </w:body>\n</w:document>\n");
}

TEST(BodyText, rewritesReferencesAndNumbersDrawings)
{
    EXPECT_EQ(changed("<a:blip r:embed=\"rId1\" x='\"'/>"), "\n  <a:blip r:embed=\"rId7\" x='\"'/>");
    EXPECT_EQ(changed("<a r:id='r&amp;2'/>"), "\n  <a r:id=\"rId8\"/>") << "an id is what it means";
    EXPECT_EQ(changed("<a r:id=\"\"/>"), "\n  <a r:id=\"\"/>");
    EXPECT_EQ(changed("<a r:id=\"gone\" b=\"r:id\"/>"), "\n  <a b=\"r:id\"/>") << "elsewhere only the reference goes";
    EXPECT_EQ(changed("<wp:docPr id=\"1\" n=\"2\"/><x:docPr\n n=\"id\"></x:docPr>"),
              "\n  <wp:docPr id=\"41\" n=\"2\"/>\n  <x:docPr n=\"id\" id=\"42\"/>");
    EXPECT_EQ(asItIs("<a r:id=\"gone\"/>").before, "\n  <a r:id=\"gone\"/>");
}

TEST(BodyText, leavesOutTheWholeOfWhatLeadsNowhere)
{
    EXPECT_EQ(changed("<w:p><w:drawing><c><b r:id=\"x\"><d/></b></c></w:drawing><w:t>t</w:t></w:p>"),
              "\n  <w:p>\n   <w:t>t</w:t>\n  </w:p>");
    EXPECT_EQ(changed("<w:p><w:drawing><b r:id=\"x\"/><b r:id=\"y\"/></w:drawing></w:p>"), "\n  <w:p/>");
    EXPECT_EQ(changed("<w:p><w:altChunk r:id=\"x\"/></w:p>"), "\n  <w:p/>");
    EXPECT_EQ(changed("<w:altChunk r:id=\"x\">t<a/></w:altChunk><b/>"), "\n  <b/>");
    // Only the nearest: the outer one is sound.
    EXPECT_EQ(changed("<w:object><w:pict><b r:id=\"x\"/></w:pict><c/></w:object>"),
              "\n  <w:object>\n   <c/>\n  </w:object>");
    EXPECT_EQ(changed("<w:drawing><b r:id=\"rId1\"/></w:drawing><w:p r:id=\"x\"/>"),
              "\n  <w:drawing>\n   <b r:id=\"rId7\"/>\n  </w:drawing>\n  <w:p/>");
    for (const char* note :
         {"footnoteReference", "endnoteReference", "commentReference", "commentRangeStart", "commentRangeEnd"}) {
        const QByteArray name = QByteArray("w:") + note;
        EXPECT_EQ(changed("<" + name + " w:id=\"1\"/><a/>"), "\n  <a/>") << note;
        EXPECT_EQ(changed("<" + name + "><" + name + "/>t</" + name + "><a/>"), "\n  <a/>") << note;
    }
}

TEST(BodyText, bindsPrefixesAtEachChildOfTheBody)
{
    BodyChanges changes = someChanges();
    changes.namespaces = {{"xmlns:x", "'one\"'"}};
    EXPECT_EQ(read("<a><b/></a><c xmlns:x=\"two\"/><w:sectPr/>", changes).before,
              "\n  <a xmlns:x='one\"'>\n   <b/>\n  </a>\n  <c xmlns:x=\"two\"/>\n  ");
}

TEST(MarkupReader, tellsPiecesApart)
{
    MarkupReader reader("<?p?><a b = 'x>y' c=\"&lt;\"\n>t<!-- <z> --><![CDATA[<q>]]></a >");
    QStringList met;
    while (reader.next())
        met << QString::number(int(reader.kind())) + QString::fromUtf8(reader.raw());
    EXPECT_EQ(
        met,
        (QStringList{"4<?p?>", "0<a b = 'x>y' c=\"&lt;\"\n>", "3t", "4<!-- <z> -->", "3<![CDATA[<q>]]>", "2</a >"}));
    MarkupReader tag("<a b = 'x>y' c=\"&lt;\"/>");
    ASSERT_TRUE(tag.next());
    EXPECT_EQ(tag.name(), "a");
    ASSERT_EQ(tag.attributes().size(), 2);
    EXPECT_EQ(tag.attributes()[0].value(), "x>y");
    EXPECT_EQ(tag.attributes()[1].name, "c");
    EXPECT_EQ(tag.attributes()[1].value(), "<");
    EXPECT_EQ(tag.kind(), MarkupReader::Empty);
}

TEST(MarkupReader, endsAtWhatIsNoMarkup)
{
    for (const char* text : {"<", "</", "<a", "<a b='", "<!--", "<![CDATA[", "<?", "a<", "<a b=", "<a b"}) {
        MarkupReader reader(text);
        int pieces = 0;
        while (reader.next() && ++pieces < 10)
            reader.attributes();
        EXPECT_LT(pieces, 10) << text;
    }
}

TEST(PackedText, isHandedOverInOrderUntilItIsRefused)
{
    PackedText text;
    for (const char* piece : {"one ", "", "two ", "three"})
        text.append(piece);
    QByteArray all;
    EXPECT_TRUE(text.give([&all](const char* piece, qint64 length) {
        all.append(piece, int(length));
        return true;
    }));
    EXPECT_EQ(all, "one two three");
    int given = 0;
    EXPECT_FALSE(text.give([&given](const char*, qint64) { return ++given < 2; }));
    EXPECT_EQ(given, 2);
}
