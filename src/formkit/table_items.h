#pragma once
// Cells of tables, and a table as text.

#include <QTableWidget>

namespace formkit {

QTableWidgetItem* textItem(const QString& text); ///< read only
/// Sorts as the number; a number that is not finite shows `missing` and sorts first.
QTableWidgetItem* numberItem(double number, int decimals, const QString& missing = QString());
/// A number that is a text already, for tables that nobody sorts: cheap by the thousand.
QTableWidgetItem* figureItem(const QString& text);
/// A box that the user ticks.
QTableWidgetItem* checkItem(bool on);

/// Fits a table whose cells are all there: columns to their texts, the last
/// one to the room that is left.
void fitColumns(QTableWidget* table);

/// What a table's text begins with, and how its numbers are written.
enum TextParts {
    CellsOnly = 0,
    WithTitles = 1,
    WithRowTitles = 2,
    DecimalComma = 4, ///< in the numbers, for those who open the file in an office program
};
Q_DECLARE_FLAGS(TextPart, TextParts)

/// The cells as shown, a line a row, cells joined by the separator.
QString tableText(const QTableWidget* table, QChar separator, TextPart parts = CellsOnly);

/// Asks where, and writes the table's cells joined by ";" as UTF-8; a failure is told.
void exportCsv(QWidget* parent, const QTableWidget* table, TextPart parts, const QString& title,
               const QString& filter = QStringLiteral("*.csv"));
/// Puts the table's cells joined by tabs onto the clipboard.
void copyTable(const QTableWidget* table, TextPart parts);
void copyText(const QString& text);

} // namespace formkit

Q_DECLARE_OPERATORS_FOR_FLAGS(formkit::TextPart)
