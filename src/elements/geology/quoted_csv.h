#pragma once
// Tables as text with cells that may hold anything: parted by ";", quoted where
// they hold one, a quote or a line feed, the quotes in them doubled.

#include <QStringList>
#include <QVector>

/// One line with its line feed.
QString csvLine(const QStringList& cells);

/// The lines of a text; those without any content are passed over.
QVector<QStringList> csvRows(const QString& text);
