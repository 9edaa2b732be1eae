#pragma once
// What the template and the merger both read of a Word document.

#include "reports/docx/drawing_ids.h"
#include "reports/docx/package_reader.h"

#include <QDomDocument>
#include <QMap>

namespace docx {

namespace parts {
inline QString document() { return QStringLiteral("word/document.xml"); }
inline QString relationships() { return QStringLiteral("word/_rels/document.xml.rels"); }
inline QString contentTypes() { return QStringLiteral("[Content_Types].xml"); }
inline QString folder() { return QStringLiteral("word/"); }
} // namespace parts

inline QString imageRelationshipType()
{
    return QStringLiteral("http://schemas.openxmlformats.org/officeDocument/2006/relationships/image");
}

inline QString relationshipsNamespace()
{
    return QStringLiteral("http://schemas.openxmlformats.org/officeDocument/2006/relationships");
}

/// The three parts that hold a document together, as trees.
struct WordDocument {
    QDomDocument document;
    QDomDocument relationships;
    QDomDocument contentTypes;
    QMap<QString, QString> images; ///< relationship id to entry, images only

    /// False when a part is missing or does not parse, or an image does not
    /// stand in the package: linked images and targets that begin with "/" are
    /// among these. Logs "Failed to open image file: " for the latter.
    bool read(const PackageReader& package);
    /// The three parts alone: pictures are nobody's concern here.
    bool readParts(const PackageReader& package);
};

/// Reads a part of the package as a tree.
bool readXml(const PackageReader& package, const QString& name, QDomDocument* document);

/// The children named Relationship, in order.
QVector<QDomElement> relationshipElements(const QDomDocument& relationships);
/// Whether the target lies outside of the file.
bool isExternal(const QDomElement& relationship);

/// The ids of drawings in the document and in every other part of its folder.
DrawingIds drawingIds(const PackageReader& package, const QDomDocument& document);

} // namespace docx
