#include "reports/docx/docx_table.h"

#include "base/xml_text.h"
#include "reports/docx/cell_picture.h"
#include "reports/docx/drawing_ids.h"
#include "reports/docx/table_grid.h"
#include "reports/docx/xml_walk.h"

using docx::cellsOf;
using docx::rowsOf;

namespace {

QString valueAttribute() { return QStringLiteral("w:val"); }

/// A deep copy; drawings in it get ids of their own.
QDomElement cloneOf(const QDomElement& element)
{
    const QDomElement clone = element.cloneNode(true).toElement();
    docx::forEachElement(clone, [](QDomElement at) {
        if (docx::isDrawingProperties(at))
            at.setAttribute(QStringLiteral("id"), docx::nextDrawingId());
    });
    return clone;
}

void insertClone(const QDomElement& element)
{
    QDomNode parent = element.parentNode();
    parent.insertAfter(cloneOf(element), element);
}

QDomElement lastRow(const QDomElement& table)
{
    const QDomElement last = table.lastChildElement();
    if (docx::isNamed(last, "w:tr"))
        return last;
    const QVector<QDomElement> rows = rowsOf(table);
    return rows.isEmpty() ? QDomElement() : rows.last();
}

QString hexadecimal(int component)
{
    const QString digits = QString::number(qBound(0, component, 255), 16).toUpper();
    return digits.rightJustified(2, QLatin1Char('0'));
}

QString colorName(int red, int green, int blue) { return hexadecimal(red) + hexadecimal(green) + hexadecimal(blue); }

QDomElement appendElement(QDomElement parent, const char* name)
{
    const QDomElement made = parent.ownerDocument().createElement(QLatin1String(name));
    return parent.appendChild(made).toElement();
}

void appendEmptyRun(const QDomElement& paragraph)
{
    QDomElement text = appendElement(appendElement(paragraph, "w:r"), "w:t");
    text.appendChild(text.ownerDocument().createTextNode(QString()));
}

/// The w:pPr of a paragraph. A new one goes in front of the first text; in a
/// paragraph without a text it goes last.
QDomElement paragraphProperties(QDomElement paragraph)
{
    const QString name = QStringLiteral("w:pPr");
    QDomElement properties = paragraph.firstChildElement(name);
    if (!properties.isNull())
        return properties;
    properties = paragraph.ownerDocument().createElement(name);
    if (docx::firstDescendant(paragraph, "w:t").isNull())
        paragraph.appendChild(properties);
    else
        paragraph.insertBefore(properties, paragraph.firstChild());
    return properties;
}

} // namespace

DocxTable::DocxTable(const QDomElement& tableElement)
    : document_(tableElement.ownerDocument()),
      table_(tableElement),
      properties_(tableElement.firstChildElement(QStringLiteral("w:tblPr"))),
      grid_(tableElement.firstChildElement(QStringLiteral("w:tblGrid")))
{ }

int DocxTable::rowCount() const { return rowsOf(table_).size(); }

int DocxTable::columnCount() const { return docx::ownElements(grid_, "w:gridCol").size(); }

QDomNode DocxTable::rowAt(int) const
{
    // Existing report builders rely on a null row here and go through cellAt().
    return QDomNode();
}

QDomElement DocxTable::cellAt(int row, int column) const { return docx::cellAtGrid(table_, row, column); }

QDomElement DocxTable::cellByIndex(const QDomNode& rowNode, int cellIndex) const
{
    return docx::cellOf(rowNode.toElement(), cellIndex);
}

bool DocxTable::containsTag(const QString& tag) const
{
    for (const QDomElement& control : docx::descendants(table_, "w:sdt")) {
        const QDomElement name =
            control.firstChildElement(QStringLiteral("w:sdtPr")).firstChildElement(QStringLiteral("w:tag"));
        if (!name.isNull() && name.attribute(valueAttribute()) == tag)
            return true;
    }
    return false;
}

QDomElement DocxTable::appendRow()
{
    const QDomElement last = lastRow(table_);
    return last.isNull() ? QDomElement() : table_.appendChild(cloneOf(last)).toElement();
}

void DocxTable::appendColumn()
{
    const QDomElement column = grid_.lastChildElement(QStringLiteral("w:gridCol"));
    if (!column.isNull())
        grid_.appendChild(cloneOf(column));
    for (QDomElement row : rowsOf(table_)) {
        const QVector<QDomElement> cells = cellsOf(row);
        if (!cells.isEmpty())
            row.appendChild(cloneOf(cells.last()));
    }
}

void DocxTable::insertColumn(int index)
{
    const QDomElement column = docx::ownElement(grid_, "w:gridCol", index);
    if (column.isNull())
        return;
    insertClone(column);
    for (const QDomElement& row : rowsOf(table_)) {
        const QVector<QDomElement> cells = cellsOf(row);
        const int place = docx::cellOfColumn(cells, index);
        if (place < 0)
            return;
        QDomElement span = docx::gridSpanOf(cells.at(place));
        if (span.isNull())
            insertClone(cells.at(place));
        else
            span.setAttribute(valueAttribute(), span.attribute(valueAttribute()).toInt() + 1);
    }
}

void DocxTable::mergeColumns(int row, int first, int last)
{
    const QVector<QDomElement> cells = cellsOf(docx::rowOf(table_, row));
    const int from = docx::cellOfColumn(cells, first);
    const int to = docx::cellOfColumn(cells, last);
    if (from < 0 || to <= from)
        return;
    QDomElement span = docx::childInOrder(docx::makeCellProperties(cells.at(from)), QStringLiteral("w:gridSpan"),
                                          docx::cellPropertyOrder());
    span.setAttribute(valueAttribute(), last - first + 1);
    for (int place = from + 1; place <= to; ++place)
        cells.at(place).parentNode().removeChild(cells.at(place));
}

bool DocxTable::setCellText(QDomElement cell, const QString& text)
{
    if (cell.isNull())
        return false;
    QDomElement run = docx::firstRun(cell);
    QDomElement holder = run.firstChildElement(QStringLiteral("w:t"));
    if (holder.isNull())
        holder = appendElement(run, "w:t");
    docx::setText(holder, text);
    return true;
}

bool DocxTable::setCellText(int row, int column, const QString& text) { return setCellText(cellAt(row, column), text); }

bool DocxTable::setCellText(const QDomNode& rowNode, int cellIndex, const QString& text)
{
    return setCellText(cellByIndex(rowNode, cellIndex), text);
}

bool DocxTable::clearCell(QDomElement cell)
{
    if (cell.isNull())
        return false;
    QVector<QDomElement> paragraphs = docx::ownElements(cell, "w:p");
    if (paragraphs.isEmpty())
        paragraphs.append(appendElement(cell, "w:p"));
    for (const QDomElement& paragraph : paragraphs) {
        for (const QDomElement& run : docx::ownElements(paragraph, "w:r"))
            run.parentNode().removeChild(run);
        appendEmptyRun(paragraph);
    }
    return true;
}

bool DocxTable::clearCell(const QDomNode& rowNode, int cellIndex) { return clearCell(cellByIndex(rowNode, cellIndex)); }

bool DocxTable::setParagraphProperty(int row, int column0, const QString& elementName, const QString& attribute,
                                     const QString& value)
{
    const QDomElement cell = cellAt(row, column0);
    if (cell.isNull() || elementName.isEmpty() || attribute.isEmpty() || value.isEmpty())
        return false;
    const QDomElement properties = paragraphProperties(docx::firstParagraph(cell));
    docx::childInOrder(properties, elementName, docx::paragraphPropertyOrder())
        .setAttribute(attribute, storableInXml(value));
    return true;
}

bool DocxTable::setRowAlignment(int row, const QString& value)
{
    return setParagraphProperty(row, 0, QStringLiteral("w:jc"), valueAttribute(), value);
}

bool DocxTable::setCellShading(QDomElement cell, const QString& color)
{
    if (cell.isNull())
        return false;
    QDomElement shading =
        docx::childInOrder(docx::makeCellProperties(cell), QStringLiteral("w:shd"), docx::cellPropertyOrder());
    shading.setAttribute(QStringLiteral("w:fill"), storableInXml(color));
    shading.setAttribute(valueAttribute(), QStringLiteral("clear"));
    shading.setAttribute(QStringLiteral("w:color"), QStringLiteral("auto"));
    return true;
}

bool DocxTable::setCellColor(int row, int column, int red, int green, int blue)
{
    return setCellShading(cellAt(row, column), colorName(red, green, blue));
}

bool DocxTable::setCellColor(const QDomNode& rowNode, int cellIndex, int red, int green, int blue)
{
    return setCellShading(cellByIndex(rowNode, cellIndex), colorName(red, green, blue));
}

int DocxTable::setCellImage(QDomElement cell, const QString& relationId, const QSize& size)
{
    return docx::putPicture(cell, relationId, size) ? 1 : 0;
}
