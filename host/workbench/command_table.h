// Captions of commands and where they stand: config/menu.csv beside a module, and
// the host's own. A line a command, in the order of the menus:
// "Меню;КОМАНДА;Подпись;значок;панель;подсказка", of which the last three may
// lack; ";-;" in place of a command makes a separator. "Меню/Ещё" is a menu in a
// menu; the menu "-" is none: the command is left to the command line.
#pragma once

#include <QString>
#include <QVector>

struct MenuRow {
    QString menu, command, caption; // an empty command is a separator
    QString icon, bar, tip, keys;
};

// Rows of a table's text; lines that make no sense are passed over.
QVector<MenuRow> parseMenuTable(const QString& text);
// The table beside the program; empty when there is none.
QVector<MenuRow> readMenuTable();
// The host's own commands.
QVector<MenuRow> hostMenuTable();
