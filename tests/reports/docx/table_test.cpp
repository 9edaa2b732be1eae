// Tables extended and filled in place.
#include "docx_maker.h"
#include "package_checker.h"

#include "reports/docx/docx_table.h"
#include "reports/docx/docx_template.h"

#include <gtest/gtest.h>
#include <memory>

namespace {

const QByteArray span3 = "<w:gridSpan w:val=\"3\"/>";
const QByteArray mergeStart = "<w:vMerge w:val=\"restart\"/>";
const QByteArray mergeNext = "<w:vMerge/>";

/// The first table of a document with this body.
class TableTest : public testing::Test {
protected:
    DocxTable open(const QByteArray& body)
    {
        EXPECT_TRUE(docx_.open(DocxMaker(body).write(folder_ / "a.docx")));
        return DocxTable(elements(docx_.document, "w:tbl").value(0));
    }

    DocxTable openPlain(int columns, int rows)
    {
        QVector<QByteArray> all;
        for (int r = 0; r < rows; ++r) {
            QVector<QByteArray> cells;
            for (int c = 0; c < columns; ++c)
                cells.append(cell(QByteArray::number(r) + QByteArray::number(c)));
            all.append(row(cells));
        }
        return open(table(columns, all));
    }

    static QDomElement rowOf(const DocxTable& table, int index)
    {
        return elements(table.element(), "w:tr").value(index);
    }

    /// Texts of all cells, cells by "|", rows by "/".
    static QString texts(const DocxTable& table)
    {
        QStringList rows;
        for (const QDomElement& one : elements(table.element(), "w:tr")) {
            QStringList cells;
            for (const QDomElement& tc : elements(one, "w:tc"))
                cells.append(textOf(tc));
            rows.append(cells.join('|'));
        }
        return rows.join('/');
    }

    static QStringList childNames(const QDomElement& element)
    {
        QStringList names;
        for (QDomElement c = element.firstChildElement(); !c.isNull(); c = c.nextSiblingElement())
            names.append(c.tagName());
        return names;
    }

    Folder folder_;
    DocxTemplate docx_;
};

} // namespace

TEST_F(TableTest, countsRowsAndGridColumns)
{
    DocxTable table = openPlain(3, 2);
    EXPECT_EQ(table.rowCount(), 2);
    EXPECT_EQ(table.columnCount(), 3);
    EXPECT_EQ(table.properties().tagName(), "w:tblPr");
}

TEST_F(TableTest, givesNoRowByIndex)
{
    DocxTable table = openPlain(3, 2);
    for (int index : {-1, 0, 1, 2})
        EXPECT_TRUE(table.rowAt(index).isNull());
}

TEST_F(TableTest, findsCellsInsideControlsButNotThoseOfNestedTables)
{
    const QByteArray wrapped =
        "<w:sdt><w:sdtPr/><w:sdtContent>" + row({cell("b"), cell("c")}) + "</w:sdtContent></w:sdt>";
    const QByteArray nested = "<w:tc>" + ::table(1, {row({cell("deep")})}) + paragraph("") + "</w:tc>";
    const QByteArray wrappedCell = "<w:sdt><w:sdtPr/><w:sdtContent>" + cell("d") + "</w:sdtContent></w:sdt>";
    DocxTable table = open(::table(2, {row({nested, cell("a")}), wrapped, row({wrappedCell, cell("e")})}));
    EXPECT_EQ(table.rowCount(), 3);
    EXPECT_EQ(textOf(table.cellAt(0, 1)), "a");
    EXPECT_EQ(textOf(table.cellAt(1, 1)), "c");
    EXPECT_EQ(textOf(table.cellAt(2, 0)), "d");
    EXPECT_TRUE(table.setCellText(0, 0, "X"));
    EXPECT_EQ(textOf(table.cellAt(0, 0)), "deepX") << "the paragraph of the cell itself";
}

TEST_F(TableTest, resolvesGridColumnsThroughSpans)
{
    DocxTable table = open(::table(5, {row({cell("a"), cell("b", span3), cell("c")})}));
    EXPECT_EQ(textOf(table.cellAt(0, 0)), "a");
    for (int column : {1, 2, 3})
        EXPECT_EQ(textOf(table.cellAt(0, column)), "b") << column;
    EXPECT_EQ(textOf(table.cellAt(0, 4)), "c");
    EXPECT_TRUE(table.cellAt(0, 5).isNull());
    EXPECT_TRUE(table.cellAt(0, -1).isNull());
    EXPECT_TRUE(table.cellAt(1, 0).isNull());
    EXPECT_TRUE(table.cellAt(-1, 0).isNull());
}

TEST_F(TableTest, countsASpanWithoutAValueAsNothing)
{
    DocxTable table = open(::table(2, {row({cell("a", "<w:gridSpan/>"), cell("b"), cell("c")})}));
    EXPECT_EQ(textOf(table.cellAt(0, 0)), "b");
    EXPECT_EQ(textOf(table.cellAt(0, 1)), "c");
}

TEST_F(TableTest, followsVerticalMergesToTheirStart)
{
    DocxTable table = open(::table(2,
                                   {row({cell("a", mergeStart), cell("b")}), row({cell("", mergeNext), cell("c")}),
                                    row({cell("", mergeNext), cell("d")})}));
    EXPECT_EQ(textOf(table.cellAt(2, 0)), "a");
    EXPECT_TRUE(table.setCellText(2, 0, "new"));
    EXPECT_EQ(texts(table), "new|b/|c/|d");
}

TEST_F(TableTest, takesTheSameCellIndexAboveAVerticalMerge)
{
    DocxTable table = open(::table(3,
                                   {row({cell("wide", "<w:gridSpan w:val=\"2\"/>"), cell("x", mergeStart)}),
                                    row({cell("p"), cell("", mergeNext), cell("q")})}));
    EXPECT_EQ(textOf(table.cellAt(1, 1)), "x") << "cell 1 above, though it stands in grid column 2";
}

TEST_F(TableTest, countsAMergeThatSaysContinueAsOutside)
{
    DocxTable table = open(::table(1,
                                   {row({cell("a", mergeStart)}), row({cell("b", "<w:vMerge w:val=\"continue\"/>")}),
                                    row({cell("c", mergeNext)})}));
    EXPECT_TRUE(table.cellAt(1, 0).isNull());
    EXPECT_TRUE(table.cellAt(2, 0).isNull());
    EXPECT_FALSE(table.setCellText(1, 0, "lost"));
    EXPECT_EQ(texts(table), "a/b/c");
}

TEST_F(TableTest, givesNoCellForAMergeThatNeverStarts)
{
    DocxTable table = open(::table(
        2, {row({cell("only")}), row({cell("p"), cell("q", mergeNext)}), row({cell("r", mergeNext), cell("s")})}));
    EXPECT_TRUE(table.cellAt(1, 1).isNull());
    EXPECT_EQ(textOf(table.cellAt(2, 0)), "p");
    DocxTable first = open(::table(1, {row({cell("a", mergeNext)})}));
    EXPECT_TRUE(first.cellAt(0, 0).isNull());
}

TEST_F(TableTest, knowsTheTagsOfItsControls)
{
    DocxTable table = open(paragraph(textControl("outside", "x"))
                           + ::table(1, {row({"<w:tc>" + paragraph(textControl("inside", "x")) + "</w:tc>"})}));
    EXPECT_TRUE(table.containsTag("inside"));
    EXPECT_FALSE(table.containsTag("outside"));
    EXPECT_FALSE(table.containsTag(""));
}

TEST_F(TableTest, appendsACopyOfTheLastRow)
{
    DocxTable table = openPlain(2, 2);
    const QDomElement added = table.appendRow();
    EXPECT_EQ(added.tagName(), "w:tr");
    EXPECT_TRUE(table.setCellText(added, 0, "new"));
    EXPECT_EQ(texts(table), "00|01/10|11/new|11");
    DocxTable empty = open("<w:tbl/>");
    EXPECT_TRUE(empty.appendRow().isNull());
}

TEST_F(TableTest, appendsACopyOfARowInsideAControlToTheTable)
{
    DocxTable table = open(::table(
        1, {row({cell("a")}), "<w:sdt><w:sdtPr/><w:sdtContent>" + row({cell("b")}) + "</w:sdtContent></w:sdt>"}));
    EXPECT_EQ(table.appendRow().parentNode(), table.element());
    EXPECT_EQ(texts(table), "a/b/b");
}

TEST_F(TableTest, givesDrawingsInCopiedRowsIdsOfTheirOwn)
{
    DocxTable table = open(::table(1, {row({"<w:tc>" + paragraph(drawing("", 3)) + "</w:tc>"})}));
    table.appendRow();
    table.appendColumn();
    ASSERT_TRUE(docx_.save(folder_ / "b.docx"));
    EXPECT_EQ(findFaults(folder_ / "b.docx"), QStringList());
}

TEST_F(TableTest, appendsAColumn)
{
    DocxTable table = openPlain(2, 2);
    table.appendColumn();
    EXPECT_EQ(table.columnCount(), 3);
    EXPECT_EQ(texts(table), "00|01|01/10|11|11");
    const auto columns = elements(table.element(), "w:gridCol");
    EXPECT_EQ(columns[2].attribute("w:w"), "2001");
}

TEST_F(TableTest, insertsAColumnBehindTheGivenOne)
{
    DocxTable table =
        open(::table(4, {row({cell("a"), cell("wide", span3)}), row({cell("b"), cell("c"), cell("d"), cell("e")})}));
    table.insertColumn(1);
    EXPECT_EQ(table.columnCount(), 5);
    EXPECT_EQ(elements(table.element(), "w:gridCol")[2].attribute("w:w"), "2001");
    EXPECT_EQ(texts(table), "a|wide/b|c|c|d|e");
    EXPECT_EQ(elements(table.element(), "w:gridSpan")[0].attribute("w:val"), "4");
}

TEST_F(TableTest, endsAnInsertionAtARowWithoutTheColumn)
{
    DocxTable table = open(::table(2, {row({cell("a"), cell("b")}), row({cell("c")}), row({cell("d"), cell("e")})}));
    table.insertColumn(1);
    EXPECT_EQ(texts(table), "a|b|b/c/d|e");
    table.insertColumn(7);
    table.insertColumn(-1);
    EXPECT_EQ(table.columnCount(), 3) << "no such column of the grid: nothing is done";
}

TEST_F(TableTest, mergesColumnsOfARow)
{
    DocxTable table = openPlain(4, 2);
    table.mergeColumns(1, 1, 2);
    EXPECT_EQ(texts(table), "00|01|02|03/10|11|13");
    const QDomElement properties = elements(rowOf(table, 1), "w:tcPr")[1];
    EXPECT_EQ(childNames(properties), QStringList({"w:tcW", "w:gridSpan"}));
    EXPECT_EQ(properties.lastChildElement().attribute("w:val"), "2");
    EXPECT_EQ(textOf(table.cellAt(1, 3)), "13");
}

TEST_F(TableTest, mergesCellsWithoutPropertiesAndWithSpans)
{
    const QByteArray bare = "<w:tc>" + paragraph(run("a")) + "</w:tc>";
    DocxTable table = open(::table(5, {row({bare, cell("b", span3), cell("c")})}));
    table.mergeColumns(0, 1, 3);
    EXPECT_EQ(texts(table), "a|b|c") << "both columns are one cell already";
    table.mergeColumns(0, 0, 3);
    EXPECT_EQ(texts(table), "a|c");
    EXPECT_EQ(elements(table.element(), "w:gridSpan")[0].attribute("w:val"), "4");
    EXPECT_EQ(childNames(elements(table.element(), "w:tc")[0]), QStringList({"w:tcPr", "w:p"}));
    table.mergeColumns(0, 4, 0);
    table.mergeColumns(0, 0, 9);
    table.mergeColumns(5, 0, 1);
    EXPECT_EQ(texts(table), "a|c");
}

TEST_F(TableTest, setsTheFirstTextOfACellAndKeepsItsFormat)
{
    const QByteArray formatted =
        "<w:tc><w:p><w:pPr/><w:r><w:rPr><w:b/></w:rPr><w:t>old</w:t></w:r>" + run("rest") + "</w:p></w:tc>";
    DocxTable table = open(::table(1, {row({formatted})}));
    EXPECT_TRUE(table.setCellText(table.cellAt(0, 0), " new"));
    EXPECT_EQ(texts(table), " newrest");
    EXPECT_EQ(elements(table.element(), "w:b").size(), 1);
    EXPECT_EQ(elements(table.element(), "w:t")[0].attribute("xml:space"), "preserve");
}

TEST_F(TableTest, makesWhatACellLacksForAText)
{
    DocxTable table =
        open(::table(4,
                     {row({"<w:tc/>", "<w:tc><w:p/></w:tc>", "<w:tc><w:p><w:r><w:rPr/></w:r></w:p></w:tc>",
                           "<w:tc><w:p><w:r><w:t/></w:r></w:p></w:tc>"})}));
    for (int column = 0; column < 4; ++column)
        EXPECT_TRUE(table.setCellText(0, column, QString::number(column)));
    EXPECT_EQ(texts(table), "0|1|2|3");
    EXPECT_EQ(elements(table.element(), "w:t").size(), 4) << "an empty text is used";
    EXPECT_EQ(childNames(elements(table.element(), "w:r")[2]), QStringList({"w:rPr", "w:t"}));
}

TEST_F(TableTest, setsTextsByCellIndexWithoutSpans)
{
    DocxTable table = open(::table(5, {row({cell("a"), cell("b", span3), cell("c")})}));
    EXPECT_TRUE(table.setCellText(rowOf(table, 0), 2, "X"));
    EXPECT_EQ(texts(table), "a|b|X");
    EXPECT_FALSE(table.setCellText(rowOf(table, 0), 3, "X"));
    EXPECT_FALSE(table.setCellText(rowOf(table, 0), -1, "X"));
    EXPECT_FALSE(table.setCellText(QDomNode(), 0, "X"));
    EXPECT_FALSE(table.setCellText(QDomElement(), "X"));
}

TEST_F(TableTest, clearsACellToOneEmptyRunPerParagraph)
{
    DocxTable table = open(::table(
        2,
        {row({"<w:tc><w:p><w:pPr/>" + run("a") + run("b") + "</w:p><w:p>" + textControl("t", "c") + "</w:p></w:tc>",
              "<w:tc/>"})}));
    EXPECT_TRUE(table.clearCell(table.cellAt(0, 0)));
    EXPECT_TRUE(table.clearCell(rowOf(table, 0), 1));
    EXPECT_EQ(texts(table), "|");
    const auto paragraphs = elements(table.element(), "w:p");
    ASSERT_EQ(paragraphs.size(), 3);
    EXPECT_EQ(childNames(paragraphs[0]), QStringList({"w:pPr", "w:r"}));
    EXPECT_EQ(elements(paragraphs[1], "w:r").size(), 1);
    EXPECT_EQ(childNames(paragraphs[2]), QStringList("w:r"));
    EXPECT_TRUE(elements(paragraphs[2], "w:t")[0].firstChild().isText());
    EXPECT_TRUE(table.setCellText(0, 0, "new"));
    EXPECT_EQ(texts(table), "new|");
}

TEST_F(TableTest, clearsNothingBehindTheLastCell)
{
    DocxTable table = openPlain(2, 1);
    EXPECT_FALSE(table.clearCell(rowOf(table, 0), 2)) << "an index equal to the count";
    EXPECT_FALSE(table.clearCell(rowOf(table, 0), 3));
    EXPECT_FALSE(table.clearCell(rowOf(table, 0), -1));
    EXPECT_FALSE(table.clearCell(QDomElement()));
    EXPECT_EQ(texts(table), "00|01");
}

TEST_F(TableTest, alignsTheFirstCellOfARow)
{
    DocxTable table = openPlain(2, 2);
    EXPECT_TRUE(table.setRowAlignment(1, "center"));
    const QDomElement p = elements(rowOf(table, 1), "w:p")[0];
    EXPECT_EQ(childNames(p), QStringList({"w:pPr", "w:r"})) << "in front of the text";
    EXPECT_EQ(elements(p, "w:jc")[0].attribute("w:val"), "center");
    EXPECT_EQ(elements(table.element(), "w:jc").size(), 1);
    EXPECT_TRUE(table.setRowAlignment(1, "right"));
    EXPECT_EQ(elements(table.element(), "w:jc").size(), 1);
    EXPECT_EQ(elements(p, "w:jc")[0].attribute("w:val"), "right");
    EXPECT_FALSE(table.setRowAlignment(2, "center"));
}

TEST_F(TableTest, setsParagraphPropertiesInTheOrderOfTheFormat)
{
    const QByteArray full = "<w:tc><w:p><w:pPr><w:pStyle/><w:spacing/><w:rPr/></w:pPr>" + run("a") + "</w:p></w:tc>";
    const QByteArray drawn = "<w:tc><w:p>" + drawing("", 3) + "</w:p></w:tc>";
    DocxTable table = open(::table(3, {row({full, drawn, "<w:tc/>"})}));
    EXPECT_TRUE(table.setParagraphProperty(0, 0, "w:jc", "w:val", "both"));
    EXPECT_EQ(childNames(elements(table.element(), "w:pPr")[0]),
              QStringList({"w:pStyle", "w:spacing", "w:jc", "w:rPr"}));
    EXPECT_TRUE(table.setParagraphProperty(0, 1, "w:jc", "w:val", "both"));
    EXPECT_EQ(childNames(elements(table.cellAt(0, 1), "w:p")[0]), QStringList({"w:r", "w:pPr"}))
        << "behind everything in a paragraph without a text";
    EXPECT_TRUE(table.setParagraphProperty(0, 2, "w:jc", "w:val", "both"));
    EXPECT_EQ(childNames(table.cellAt(0, 2)), QStringList("w:p"));
    EXPECT_FALSE(table.setParagraphProperty(0, 0, "w:jc", "", "both"));
    EXPECT_FALSE(table.setParagraphProperty(0, 0, "w:jc", "w:val", ""));
    EXPECT_FALSE(table.setParagraphProperty(0, 7, "w:jc", "w:val", "both"));
}

TEST_F(TableTest, shadesCells)
{
    DocxTable table =
        open(::table(3, {row({cell("a", "<w:vAlign w:val=\"top\"/>"), "<w:tc><w:p/></w:tc>", cell("c")})}));
    EXPECT_TRUE(table.setCellShading(table.cellAt(0, 0), "ABCDEF"));
    EXPECT_EQ(childNames(elements(table.element(), "w:tcPr")[0]), QStringList({"w:tcW", "w:shd", "w:vAlign"}));
    EXPECT_TRUE(table.setCellColor(0, 1, 0, 10, 255));
    EXPECT_EQ(childNames(table.cellAt(0, 1)), QStringList({"w:tcPr", "w:p"}));
    EXPECT_TRUE(table.setCellColor(rowOf(table, 0), 2, 171, 205, 3));
    EXPECT_TRUE(table.setCellColor(rowOf(table, 0), 2, 171, 205, 4));
    QStringList fills;
    for (const QDomElement& shading : elements(table.element(), "w:shd"))
        fills += shading.attribute("w:fill") + shading.attribute("w:val") + shading.attribute("w:color");
    EXPECT_EQ(fills, QStringList({"ABCDEFclearauto", "000AFFclearauto", "ABCD04clearauto"}));
    EXPECT_FALSE(table.setCellColor(0, 3, 0, 0, 0));
    EXPECT_FALSE(table.setCellColor(rowOf(table, 0), 3, 0, 0, 0));
    EXPECT_FALSE(table.setCellShading(QDomElement(), "000000"));
}

TEST_F(TableTest, putsAPictureInThePlaceOfTextsAndPictures)
{
    DocxTable table = open(::table(
        1, {row({"<w:tc><w:p><w:r><w:rPr/><w:t>a</w:t><w:t>b</w:t><w:tab/></w:r>" + run("rest") + "</w:p></w:tc>"})}));
    const QString id = docx_.addImage(plainPicture());
    ASSERT_EQ(table.setCellImage(table.cellAt(0, 0), id, QSize(100, 37)), 1);
    ASSERT_EQ(table.setCellImage(table.cellAt(0, 0), id, QSize(100, 37)), 1) << "again, in place";
    EXPECT_EQ(textOf(table.element()), "rest");
    EXPECT_EQ(childNames(elements(table.element(), "w:r")[0]), QStringList({"w:rPr", "w:tab", "w:drawing"}));
    const QDomElement inlined = elements(table.element(), "wp:inline")[0];
    for (const char* name : {"distT", "distB", "distL", "distR"})
        EXPECT_EQ(inlined.attribute(name), "0");
    EXPECT_EQ(childNames(inlined), QStringList({"wp:extent", "wp:docPr", "a:graphic"}));
    EXPECT_EQ(inlined.firstChildElement().attribute("cx"), "952500");
    EXPECT_EQ(inlined.firstChildElement().attribute("cy"), "352425");
    EXPECT_EQ(elements(inlined, "wp:docPr")[0].attribute("name"), "Picture");
    EXPECT_EQ(elements(inlined, "a:graphicData")[0].attribute("uri"),
              "http://schemas.openxmlformats.org/drawingml/2006/picture");
    EXPECT_EQ(childNames(elements(inlined, "pic:pic")[0]), QStringList({"pic:nvPicPr", "pic:blipFill", "pic:spPr"}));
    EXPECT_EQ(elements(inlined, "a:blip")[0].attribute("r:embed"), id);
    EXPECT_EQ(elements(inlined, "a:ext")[0].attribute("cy"), "352425");
    EXPECT_EQ(elements(inlined, "a:prstGeom")[0].attribute("prst"), "rect");
    EXPECT_EQ(elements(inlined, "pic:cNvPr")[0].attribute("id"), "0");
    ASSERT_TRUE(docx_.save(folder_ / "b.docx"));
    EXPECT_EQ(findFaults(folder_ / "b.docx"), QStringList());
}

TEST_F(TableTest, putsNoPictureWithoutACellAnIdOrASize)
{
    DocxTable table = openPlain(1, 1);
    EXPECT_EQ(table.setCellImage(QDomElement(), "rId1", QSize(1, 1)), 0);
    EXPECT_EQ(table.setCellImage(table.cellAt(0, 0), "", QSize(1, 1)), 0);
    EXPECT_EQ(table.setCellImage(table.cellAt(0, 0), "rId1", QSize(0, 1)), 0);
    EXPECT_EQ(table.setCellImage(table.cellAt(0, 0), "rId1", QSize(1, -5)), 0);
    EXPECT_EQ(texts(table), "00");
    EXPECT_EQ(table.setCellImage(table.cellAt(0, 0), "rId1", QSize(1, 1)), 1);
}

TEST_F(TableTest, declaresThePrefixOfReferencesWhereADocumentLacksIt)
{
    ASSERT_TRUE(docx_.open(DocxMaker()
                               .document("<w:document xmlns:w=\"http://schemas.openxmlformats.org/"
                                         "wordprocessingml/2006/main\"><w:body>"
                                         + ::table(1, {row({cell("a")})}) + "</w:body></w:document>")
                               .write(folder_ / "a.docx")));
    DocxTable table(elements(docx_.document, "w:tbl")[0]);
    ASSERT_EQ(table.setCellImage(table.cellAt(0, 0), docx_.addImage(plainPicture()), QSize(9, 9)), 1);
    ASSERT_TRUE(docx_.save(folder_ / "b.docx"));
    EXPECT_EQ(findFaults(folder_ / "b.docx"), QStringList());
}

TEST_F(TableTest, countsDrawingsThroughTheProcessPastThoseOfOpenTemplates)
{
    DocxTable table = openPlain(2, 1);
    const auto nextId = [](DocxTable* into, int column) {
        EXPECT_EQ(into->setCellImage(into->cellAt(0, column), "rId1", QSize(9, 9)), 1);
        return elements(into->cellAt(0, column), "wp:docPr")[0].attribute("id").toInt();
    };
    const int first = nextId(&table, 0);
    EXPECT_GE(first, 1);
    EXPECT_EQ(nextId(&table, 1), first + 1);

    // The next three numbers stand in another template: in its body, its header
    // and its notes.
    const auto part = [](int id) {
        return "<w:x xmlns:wp=\"p\" xmlns:w=\"w\"><wp:docPr id=\"" + QByteArray::number(id) + "\"/></w:x>";
    };
    DocxTemplate other;
    ASSERT_TRUE(other.open(DocxMaker(::table(1, {row({cell("a")})}) + paragraph(drawing("", first + 2)))
                               .entry("word/header1.xml", part(first + 3))
                               .entry("word/footnotes.xml", part(first + 4))
                               .write(folder_ / "other.docx")));
    DocxTable otherTable(elements(other.document, "w:tbl")[0]);
    EXPECT_EQ(nextId(&otherTable, 0), first + 5);
    other.close();
    EXPECT_EQ(nextId(&table, 0), first + 6) << "never twice, closed or not";
}

TEST_F(TableTest, isFilledByThePatternOfTheReports)
{
    DocxTable table =
        open(::table(2,
                     {row({"<w:tc>" + paragraph(textControl("list", "marker") + run("No")) + "</w:tc>", cell("Name")}),
                      row({cell("0"), cell("sample")})}));
    ASSERT_TRUE(table.containsTag("list"));
    for (int i = 1; i <= 3; ++i) {
        const QDomElement added = i == 1 ? rowOf(table, 1) : table.appendRow();
        table.setCellText(added, 0, QString::number(i));
        table.setCellText(added, 1, "n" + QString::number(i));
    }
    ASSERT_TRUE(docx_.setTag("list", ""));
    ASSERT_TRUE(docx_.save(folder_ / "b.docx"));
    EXPECT_EQ(texts(table), "No|Name/1|n1/2|n2/3|n3");
}
