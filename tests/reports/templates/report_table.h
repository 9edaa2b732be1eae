#pragma once
// Tables of a Word file, seen as texts and shades.

#include "docx_maker.h"

#include "reports/docx/docx_table.h"
#include "reports/docx/docx_template.h"

#include <QStringList>
#include <gtest/gtest.h>

/// Texts of a table, cells by "|", one line a row.
inline QStringList tableTexts(const QDomElement& table)
{
    QStringList lines;
    for (const QDomElement& row : elements(table, "w:tr")) {
        QStringList cells;
        for (const QDomElement& cell : elements(row, "w:tc"))
            cells << textOf(cell);
        lines << cells.join('|');
    }
    return lines;
}

/// The shades of a row, "" where a cell has none.
inline QStringList rowShades(const QDomElement& table, int row)
{
    QStringList shades;
    for (const QDomElement& cell : elements(elements(table, "w:tr").value(row), "w:tc"))
        shades << elements(cell, "w:shd").value(0).attribute("w:fill");
    return shades;
}

/// The tables of a written file, read without the engine.
inline QVector<QDomElement> tablesOf(const QString& path, QDomDocument& into)
{
    EXPECT_TRUE(into.setContent(documentPart(path))) << path;
    return elements(into, "w:tbl");
}

/// A table whose rows are written as "a|b|c".
inline QByteArray plainTable(const QStringList& lines)
{
    QVector<QByteArray> rows;
    for (const QString& line : lines) {
        QVector<QByteArray> cells;
        for (const QString& text : line.split('|'))
            cells.append(cell(text.toUtf8()));
        rows.append(row(cells));
    }
    return table(lines.first().count('|') + 1, rows);
}

/// One table of an open template, to be built in place.
class ReportTable : public ::testing::Test {
protected:
    DocxTable open(const QStringList& lines)
    {
        EXPECT_TRUE(document.open(DocxMaker(plainTable(lines)).write(folder / "a.docx")));
        return DocxTable(elements(document.document, "w:tbl").value(0));
    }

    Folder folder;
    DocxTemplate document;
};
