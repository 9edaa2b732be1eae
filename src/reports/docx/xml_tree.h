#pragma once
// XML parts as trees, and back.

#include <QByteArray>
#include <QDomDocument>

namespace docx {

/// Parses a part. Names keep their prefixes ("w:p") and declarations of
/// namespaces are attributes like any other. Unlike QDomDocument::setContent,
/// white space between elements is kept: it is text to Word. Nothing is built
/// of a part that findFault() refuses. On failure the document is null and
/// `error`, if given, has the reason.
bool parseXml(const QByteArray& xml, QDomDocument* document, QString* error = nullptr);

/// Whether parseXml() would make a tree of the part, without making it. Gives
/// the part in UTF-8.
bool checkXml(const QByteArray& xml, QByteArray* inUtf8, QString* error);

/// UTF-8 with the given indent of one level; -1 adds nothing between elements.
QByteArray printXml(const QDomDocument& document, int indent);

} // namespace docx
