// Field inspections out of the database and back, with what the command line
// says of it.
#pragma once

#include "exchange/inspections/inspections_document.h"

/// Writes the document as gzip; a path without ".gz" gets it. False when no file was written.
bool exportInspections(const InspectionsTask& task, const QString& path, const ExchangeProgress& progress = {});

struct InspectionsImport {
    int written = 0;
    int errors = 0;
};

/// The largest document that is read, unpacked: more would not fit into the
/// memory of a working place beside what is made of it.
constexpr qint64 mostInspectionBytes = 256 * 1024 * 1024;

/// Reads a document of groups and merges it into the inspections of the cycle.
/// A record that fails does not stop the run, and what was written stays.
InspectionsImport importInspections(const QString& path, int cycleId, const ExchangeProgress& progress = {});
