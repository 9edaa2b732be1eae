// Delimited text files as loggers and people write them.
#pragma once

#include <QString>
#include <QStringList>

enum class TextEncoding { Utf8, Windows1251 };

/// The lines of a file, without their ends (LF or CRLF); a byte order mark before
/// the first is dropped. Bytes that the encoding does not know become
/// replacement characters. A line longer than a mebibyte is no row of a survey
/// and counts as an empty one. A file that cannot be read has no lines.
QStringList readLines(const QString& path, TextEncoding encoding);

/// The cells of a line, empty ones kept. Without a separator the line is one cell.
QStringList splitCells(const QString& line, const QString& separator);

/// The number of cells that splitCells() gives.
int countCells(const QString& line, const QString& separator);
