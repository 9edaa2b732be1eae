// Elements out of a file into the working drawing and the database.
#pragma once

#include "exchange/elements/element_records.h"
#include "exchange/measure_import.h"

struct ElementImportTask {
    int kind = -1;
    int positionId = -1;  ///< of records that name none
    int subobjectId = -1; ///< under which positions are made that the project lacks
    int catalogId = -1;   ///< construction of thermostabilisers
};

/// Told the records that are done; false gives the rest up.
using ElementImportProgress = std::function<bool(int done, int total)>;

struct ElementImportResult {
    int inserted = 0;
    int updated = 0;
    int skipped = 0; ///< without a name or a place, by the user's word, or refused
};

/// Compares each record with the rows of its position: new ones are inserted
/// with their blocks, of others the user is asked. Prints what became of each.
ElementImportResult importElements(const QVector<ElementRecord>& records, const ElementImportTask& task,
                                   const ImportQuestion& ask, const ElementImportProgress& progress = {});
