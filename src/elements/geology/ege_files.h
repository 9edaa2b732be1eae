#pragma once
// The catalogue of ground elements as a file: the columns' names as header, a
// line an entry.

#include "elements/geology/ege_catalogue.h"

#include <functional>

/// The whole catalogue; empty without an entry, nothing when the server refused.
std::optional<QString> egeFileText(const EgeColumns& columns);

struct EgeImport {
    int created = 0;
    int updated = 0;
    QStringList problems; ///< a line each: which one was not written, and why
    QString refusal;      ///< why nothing was read
};

/// Told the lines that are done; false gives the rest up.
using EgeProgress = std::function<bool(int done, int total)>;

/// Brings the lines into the catalogue: an entry of the same code is updated in
/// the columns that the file has, any other is new. Columns that the table
/// lacks are passed over.
EgeImport importEgeFile(const QString& text, const EgeColumns& columns, const EgeProgress& progress = {});
