// Captions of commands and the menus they stand in: config/menu.csv beside a
// module. A line a command, "Меню;КОМАНДА;Подпись", in the order of the menus;
// ";-;" in place of a command makes a separator.
#pragma once

#include <QString>
#include <QVector>

struct MenuRow {
    QString menu, command, caption; // an empty command is a separator
};

// Rows of a table's text; lines that make no sense are passed over.
QVector<MenuRow> parseMenuTable(const QString& text);
// The table beside the program; empty when there is none.
QVector<MenuRow> readMenuTable();
