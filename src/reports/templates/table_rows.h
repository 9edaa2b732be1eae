#pragma once
// Rows of a report's table. The last row of a table in a template is the
// sample: every row is a copy of it, and it goes at the end.
//
//   TableRows rows(table);
//   rows.section("Корпус 1");
//   const QDomElement row = rows.add({"1", "ДМ-1", "12.3456"});
//   rows.finish();

#include "reports/docx/docx_table.h"

#include <QStringList>

class TableRows {
public:
    explicit TableRows(DocxTable& table);

    /// Texts of the heading row that stands so far above the sample, 1 being the
    /// nearest. Nothing where the heading has fewer rows.
    void setHeading(int above, int column, const QString& text);
    int headingRows() const { return headings_; }

    /// A row with the texts in its cells; cells beyond them are emptied.
    QDomElement add(const QStringList& texts);
    /// A row merged over the whole width, in the middle of which the title stands.
    void section(const QString& title);
    /// A section when the title differs from that of the row before.
    void sectionOf(const QString& title);

    /// Takes the sample away. A table without any other row keeps it, emptied.
    void finish();

private:
    QDomElement nextRow();
    int cellsOfRow(const QDomElement& row) const;
    void setTexts(const QDomElement& row, const QStringList& texts);

    DocxTable& table_;
    int headings_;
    int next_; ///< number of the sample
    QDomElement sample_;
    QString section_;
};

/// Makes so many columns of the one at `column`, which is one of them.
void repeatColumn(DocxTable& table, int column, int count);
