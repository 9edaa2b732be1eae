// Cells and rows of tables, lists and trees. Rows and columns count from 0, or
// go by text: a row by the text of any of its cells, a column by its heading. In
// a tree a row is a path of first-column texts: "Объект/Позиция".
#pragma once

#include <nrx/types.h>

#include <QAbstractItemView>
#include <QString>

// The cell, or an invalid index with the reason in `error`.
NRX_API QModelIndex findCell(QAbstractItemView* view, const QString& row, const QString& column, QString& error);

// Edits a cell through its delegate's editor or the widget that stands in it;
// "checked" and "unchecked" set its check mark. Returns what is wrong.
NRX_API QString setCell(QAbstractItemView* view, const QString& row, const QString& column, const QString& value);
// The shown text of a cell, or the value of a widget that stands in it.
NRX_API QString cellText(const QModelIndex& index, QAbstractItemView* view);
// Whether the cell carries a check mark and its state as "checked" or "unchecked".
NRX_API QString cellCheckMark(const QModelIndex& index);

// Selects a row as a click would; with `extend` the rows selected before stay.
NRX_API QString selectRow(QAbstractItemView* view, const QString& row, bool extend);
