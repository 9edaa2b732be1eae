#pragma once
// Paragraphs, runs and pictures of a table cell.

#include <QDomElement>
#include <QSize>
#include <QString>

namespace docx {

/// The first paragraph of a cell, made if there is none. Nested tables do not
/// count, paragraphs inside controls do.
QDomElement firstParagraph(QDomElement cell);

/// The first run of the first paragraph, made if there is none.
QDomElement firstRun(const QDomElement& cell);

/// Puts an inline picture in the place of the texts and drawings of the cell's
/// first run. `size` in pixels of 1/96 inch. False, and nothing changes, for a
/// null cell, an empty id or an empty size.
bool putPicture(const QDomElement& cell, const QString& relationId, const QSize& size);

} // namespace docx
