#pragma once
// A run of the generator: which documents go into a file and which into a
// folder, and what is said at the start and at the end.

#include "reports/templates/export_template_class.h"

#include <memory>
#include <vector>

/// One object of each kind, in the order of the list of documents.
std::vector<std::unique_ptr<ExportTemplateClass>> makeReportClasses();

/// Kinds that make one document an element or a position.
bool goesIntoFolder(const ExportTemplateClass& document);

/// Whether the folder can be written into: it is told and exists.
bool isFolder(const QString& folder);

/// Makes the document with its parameters. `path` is the file, for kinds that
/// go into one. Statements that the server refused meanwhile are told at the end.
ReportOutcome runReport(ExportTemplateClass& document, const QString& path);
