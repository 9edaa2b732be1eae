#pragma once
// The body of a later file behind that of the merged document.

#include "reports/docx/merged_document.h"

namespace docx {

/// Old relationship id to the one in the merged document.
using RelationshipMap = QHash<QString, QString>;

/// Appends the children of the file's body on a new page. The section that
/// ended the merged document ends before them; the file's own last section ends
/// the document now. References are rewritten; what refers to parts that are
/// not carried over (charts of the body, notes, comments) is left out, since a
/// reference into nowhere makes Word refuse the whole file.
void appendBody(const WordDocument& file, const RelationshipMap& relationships, MergedDocument* merged);

} // namespace docx
