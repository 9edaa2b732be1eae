#pragma once
// What an XML part may look like before a tree is made of it.

#include <QByteArray>
#include <QString>

namespace docx {

/// Bounds of one XML part. A tree costs up to 400 bytes a node, so they also
/// bound the memory of a document.
struct XmlBounds {
    static constexpr int bytes = 64 * 1024 * 1024;
    static constexpr int depth = 256;
    static constexpr int nodes = 1500000; ///< elements, attributes, texts
    static constexpr int attributesOfElement = 256;
};

/// Walks over the markup without building anything. Gives what is wrong, empty
/// when the part may be parsed: too large, too deep, too many nodes, a document
/// type (a Word document has none; it is the road of entity attacks), an
/// encoding other than UTF-8. It does not judge whether the XML is well formed.
QString findFault(const QByteArray& xml);

} // namespace docx
