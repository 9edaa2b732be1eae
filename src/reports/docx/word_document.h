#pragma once
// What the template and the merger both read of a Word document.

#include "reports/docx/drawing_ids.h"
#include "reports/docx/package_reader.h"

#include <QDomDocument>
#include <QMap>

namespace docx {

namespace parts {
/// Where the main part usually stands.
inline QString document() { return QStringLiteral("word/document.xml"); }
inline QString contentTypes() { return QStringLiteral("[Content_Types].xml"); }
inline QString packageRelationships() { return QStringLiteral("_rels/.rels"); }
} // namespace parts

inline QString imageRelationshipType()
{
    return QStringLiteral("http://schemas.openxmlformats.org/officeDocument/2006/relationships/image");
}

inline QString relationshipsNamespace()
{
    return QStringLiteral("http://schemas.openxmlformats.org/officeDocument/2006/relationships");
}

/// What becomes of a picture that a file only points at.
enum class LinkedImages { Refused, Kept };

/// How the main part is held: it is the one that may be large.
enum class MainPart { Tree, Text };

/// The three parts that hold a document together.
struct WordDocument {
    QDomDocument document; ///< null where the main part is a text
    QByteArray text;       ///< of the main part, in UTF-8; empty where it is a tree
    QDomDocument relationships;
    QDomDocument contentTypes;
    QString mainPart;              ///< "word/document.xml", or what the package names as its document
    QString relationshipsPart;     ///< of the main part
    QMap<QString, QString> images; ///< relationship id to entry, images only
    QString fault;                 ///< why read() gave false

    /// False when a part is missing or does not parse, or an image does not
    /// stand in the package: linked images are among these unless they are kept
    /// as links. Logs "Failed to open image file: " for the latter.
    bool read(const PackageReader& package, LinkedImages linked = LinkedImages::Refused,
              MainPart mainPartAs = MainPart::Tree);

private:
    bool readParts(const PackageReader& package, MainPart mainPartAs);
    bool readText(const PackageReader& package);
    bool readPart(const PackageReader& package, const QString& name, QDomDocument* part);
    bool readImages(const PackageReader& package, LinkedImages linked);
};

/// Reads a part of the package as a tree.
bool readXml(const PackageReader& package, const QString& name, QDomDocument* document);

/// The children named Relationship, in order.
QVector<QDomElement> relationshipElements(const QDomDocument& relationships);
/// Whether the target lies outside of the file.
bool isExternal(const QDomElement& relationship);

/// The ids of drawings in the document and in every other part of its folder.
DrawingIds drawingIds(const PackageReader& package, const WordDocument& parts);

} // namespace docx
