// Writes the checked rows of an import table to the database, row by row.
#pragma once

#include "exchange/import_family.h"

#include <functional>
#include <vector>

struct ImportCandidate {
    BaseMeasure* measure;
    bool checked;
};

enum class ImportAnswer { Yes, YesToAll, No, NoToAll };

/// Asks the user; the text ends in the question.
using ImportQuestion = std::function<ImportAnswer(const QString& text)>;
/// Told the number of rows that are done; false stops the run behind this row.
using ImportProgress = std::function<bool(int rows)>;

/// Returns how many rows were written, and tells the command line row by row
/// and in all. A row that fails does not stop the run: each row is a statement
/// of its own. While another session imports the same family's measures nothing
/// is written, which is told.
int importMeasures(const ImportFamily& family, const std::vector<ImportCandidate>& rows, const ImportQuestion& ask,
                   const ImportProgress& progress = {});
