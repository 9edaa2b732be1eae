// Delimited text files as loggers and people write them.
#pragma once

#include "exchange/work_step.h"

#include <QString>
#include <QStringList>

enum class TextEncoding { Utf8, Windows1251 };

/// A file's lines, the encoding they were read by, and what the user should know about them.
struct TextFile {
    QStringList lines;
    TextEncoding encoding = TextEncoding::Utf8;
    QStringList remarks; ///< Russian sentences; empty for a sound file
};

/// The lines of a file, without their ends (LF, CRLF or a CR alone); a byte order
/// mark before the first is dropped and makes the encoding UTF-8. Bytes that the encoding does not know become
/// replacement characters. A line longer than a mebibyte is no row of a survey
/// and counts as an empty one. A file that cannot be read to its end, is being written meanwhile, or is in
/// UTF-16, has no lines. All of this is remarked on, a byte order mark where
/// another encoding was wanted, and zero bytes are. The step is told kibibytes; a
/// reading that it stops has no lines and says so.
TextFile readTextFile(const QString& path, TextEncoding encoding, const WorkStep& step = {});

/// The lines alone.
QStringList readLines(const QString& path, TextEncoding encoding);

/// So many lines from the beginning, or fewer: the rest is not read.
QStringList readFirstLines(const QString& path, TextEncoding encoding, int most);

/// The cells of a line, empty ones kept. Without a separator the line is one cell.
QStringList splitCells(const QString& line, const QString& separator);

/// The number of cells that splitCells() gives.
int countCells(const QString& line, const QString& separator);
