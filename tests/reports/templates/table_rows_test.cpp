// Rows are copies of the sample, which goes at the end.
#include "report_table.h"

#include "reports/templates/table_rows.h"

namespace {
using TableRowsTest = ReportTable;
} // namespace

TEST_F(TableRowsTest, EveryRowIsACopyOfTheSample)
{
    DocxTable table = open({"№|Имя|Запас", "0|образец|лишнее"});
    TableRows rows(table);
    rows.add({"1", "a"});
    table.setCellColor(rows.add({"2", "b", "c"}), 1, 1, 2, 3);
    rows.add({"3"});
    rows.finish();
    EXPECT_EQ(tableTexts(table.element()), (QStringList{"№|Имя|Запас", "1|a|", "2|b|c", "3||"}));
    EXPECT_EQ(rowShades(table.element(), 2), (QStringList{"", "010203", ""}));
    EXPECT_EQ(rowShades(table.element(), 3), (QStringList{"", "", ""})) << "the sample takes nothing from a row";
}

TEST_F(TableRowsTest, ASectionIsMergedOverTheWholeWidth)
{
    DocxTable table = open({"a|b|c", "x|y|z"});
    TableRows rows(table);
    rows.sectionOf("Корпус 1");
    rows.add({"1", "2", "3"});
    rows.sectionOf("Корпус 1");
    rows.add({"4", "5", "6"});
    rows.sectionOf("Корпус 2");
    rows.finish();
    EXPECT_EQ(tableTexts(table.element()), (QStringList{"a|b|c", "Корпус 1", "1|2|3", "4|5|6", "Корпус 2"}));
    const QDomElement section = elements(table.element(), "w:tr").value(1);
    EXPECT_EQ(elements(section, "w:gridSpan").value(0).attribute("w:val"), "3");
    EXPECT_EQ(elements(section, "w:jc").value(0).attribute("w:val"), "center");
}

TEST_F(TableRowsTest, WithoutRowsTheHeadingRemains)
{
    DocxTable table = open({"a|b", "x|y"});
    TableRows rows(table);
    rows.finish();
    EXPECT_EQ(tableTexts(table.element()), (QStringList{"a|b"}));
}

TEST_F(TableRowsTest, ATableOfTheSampleAloneKeepsItEmptied)
{
    DocxTable table = open({"x|y"});
    TableRows rows(table);
    rows.finish();
    EXPECT_EQ(tableTexts(table.element()), (QStringList{"|"}));
}

TEST_F(TableRowsTest, HeadingsCountFromTheSample)
{
    DocxTable table = open({"a|b", "c|d", "x|y"});
    TableRows rows(table);
    rows.setHeading(1, 1, "near");
    rows.setHeading(2, 1, "far");
    rows.setHeading(3, 1, "beyond");
    rows.finish();
    EXPECT_EQ(tableTexts(table.element()), (QStringList{"a|far", "c|near"}));
}
