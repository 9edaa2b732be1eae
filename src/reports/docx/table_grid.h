#pragma once
// Rows, cells and grid columns of a Word table.

#include <QDomElement>
#include <QStringList>
#include <QVector>

namespace docx {

/// Rows of a table and cells of a row, also those inside controls, but not
/// those of nested tables.
QVector<QDomElement> rowsOf(const QDomElement& table);
QVector<QDomElement> cellsOf(const QDomElement& row);

/// One of them, null if there are fewer.
QDomElement rowOf(const QDomElement& table, int index);
QDomElement cellOf(const QDomElement& row, int index);

/// The cell properties of a cell, null if it has none.
QDomElement cellProperties(const QDomElement& cell);

/// The w:gridSpan of a cell, null if it has none.
QDomElement gridSpanOf(const QDomElement& cell);

/// Place among `cells` of the cell that covers the grid column: the first at
/// which the sum of the widths exceeds the column; -1 behind the row. A cell is
/// as wide as its w:gridSpan tells, 1 without one; a w:gridSpan without a value
/// counts nothing.
int cellOfColumn(const QVector<QDomElement>& cells, int column);

/// The cell that covers a grid column of a row. For a cell of a vertical merge
/// the one in which the merge starts: the same cell index is looked at in each
/// row above. Null for a w:vMerge whose value is not "restart", for one that
/// never starts, and outside the table.
QDomElement cellAtGrid(const QDomElement& table, int row, int column);

/// The order in which the format wants the children of w:tcPr and w:pPr.
const QStringList& cellPropertyOrder();
const QStringList& paragraphPropertyOrder();

/// The properties of a cell, made in front if there are none.
QDomElement makeCellProperties(QDomElement cell);

} // namespace docx
