#include "reports/templates/table_rows.h"

namespace {

QDomElement lastRowOf(const DocxTable& table) { return table.element().lastChildElement(QStringLiteral("w:tr")); }

} // namespace

TableRows::TableRows(DocxTable& table)
    : table_(table), headings_(qMax(0, table.rowCount() - 1)), next_(headings_), sample_(lastRowOf(table))
{ }

void TableRows::setHeading(int above, int column, const QString& text)
{
    if (above >= 1 && above <= headings_)
        table_.setCellText(headings_ - above, column, text);
}

QDomElement TableRows::nextRow()
{
    const QDomElement row = sample_;
    sample_ = table_.appendRow();
    ++next_;
    return row;
}

int TableRows::cellsOfRow(const QDomElement& row) const
{
    int count = 0;
    for (QDomElement cell = row.firstChildElement(QStringLiteral("w:tc")); !cell.isNull();
         cell = cell.nextSiblingElement(QStringLiteral("w:tc")))
        ++count;
    return count;
}

void TableRows::setTexts(const QDomElement& row, const QStringList& texts)
{
    const int count = qMax(cellsOfRow(row), texts.size());
    for (int cell = 0; cell < count; ++cell)
        table_.setCellText(row, cell, texts.value(cell));
}

QDomElement TableRows::add(const QStringList& texts)
{
    const QDomElement row = nextRow();
    setTexts(row, texts);
    return row;
}

void TableRows::section(const QString& title)
{
    section_ = title;
    const int number = next_;
    const QDomElement row = nextRow();
    table_.mergeColumns(number, 0, table_.columnCount() - 1);
    table_.setRowAlignment(number, QStringLiteral("center"));
    setTexts(row, {title});
}

void TableRows::sectionOf(const QString& title)
{
    if (section_.isNull() || title != section_)
        section(title.isNull() ? QStringLiteral("") : title);
}

void TableRows::finish()
{
    if (sample_.isNull())
        return;
    if (next_ > 0)
        sample_.parentNode().removeChild(sample_);
    else
        setTexts(sample_, {});
    sample_ = QDomElement();
}

void repeatColumn(DocxTable& table, int column, int count)
{
    for (int made = 1; made < count; ++made)
        table.insertColumn(column);
}
