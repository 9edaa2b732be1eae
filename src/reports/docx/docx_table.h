#pragma once
// A table of an open template, extended and filled in place.

#include <QDomDocument>
#include <QDomElement>
#include <QSize>
#include <QString>

/// Wraps one w:tbl. Rows and columns count from 0. A column given together
/// with a row number is a column of the grid (spans and vertical merges are
/// followed); a cell index given together with a row node counts cells. The
/// bool results tell whether the cell was found and written.
class DocxTable {
public:
    explicit DocxTable(const QDomElement& tableElement);

    QDomElement element() const { return table_; }
    /// The table's w:tblPr, null if it has none.
    QDomElement properties() const { return properties_; }

    int rowCount() const;
    /// Columns of the grid.
    int columnCount() const;

    /// Always a null node; rows are walked through cellAt().
    QDomNode rowAt(int index) const;

    /// The w:tc that covers the grid column; for a cell merged vertically the
    /// one in which the merge starts. Null on failure.
    QDomElement cellAt(int row, int column) const;

    /// Whether a control with the tag stands in the table.
    bool containsTag(const QString& tag) const;

    /// Adds a copy of the last row; drawings in the copy get ids of their own.
    QDomElement appendRow();
    /// Adds copies of the last column of the grid and of each row's last cell.
    void appendColumn();
    /// Doubles a grid column: a cell that spans several grows by one, another
    /// is copied behind itself. Ends at the first row without such a column.
    void insertColumn(int index);
    /// Makes one cell of those between two grid columns; the others' content
    /// goes.
    void mergeColumns(int row, int first, int last);

    /// Replaces the first text of the first run of the first paragraph, making
    /// them where they lack. Nothing else changes, which keeps the formatting.
    bool setCellText(QDomElement cell, const QString& text);
    bool setCellText(int row, int column, const QString& text);
    bool setCellText(const QDomNode& rowNode, int cellIndex, const QString& text);

    /// Leaves one empty run in each paragraph of the cell.
    bool clearCell(QDomElement cell);
    bool clearCell(const QDomNode& rowNode, int cellIndex);

    /// Sets an attribute of a paragraph property ("w:jc", "w:val", "center") in
    /// the first paragraph of the cell at `column0`.
    bool setParagraphProperty(int row, int column0, const QString& elementName, const QString& attribute,
                              const QString& value);
    /// Alignment of the row's first cell: "left", "center", "right", "both".
    bool setRowAlignment(int row, const QString& value);

    /// The background of a cell, `color` as six hexadecimal digits.
    bool setCellShading(QDomElement cell, const QString& color);
    /// The same by components of 0 to 255.
    bool setCellColor(int row, int column, int red, int green, int blue);
    bool setCellColor(const QDomNode& rowNode, int cellIndex, int red, int green, int blue);

    /// Puts a picture of DocxTemplate::addImage() in the place of the first
    /// run's texts and pictures. `size` in pixels of 1/96 inch. 1 when done,
    /// else 0.
    int setCellImage(QDomElement cell, const QString& relationId, const QSize& size);

private:
    QDomElement cellByIndex(const QDomNode& rowNode, int cellIndex) const;

    QDomDocument document_; ///< keeps the tree alive
    QDomElement table_;
    QDomElement properties_;
    QDomElement grid_;
};
