#pragma once
// The document that grows while files are merged.

#include "reports/docx/package_writer.h"
#include "reports/docx/part_names.h"
#include "reports/docx/word_document.h"

namespace docx {

/// Starts as the first file. Hands out relationship ids, part names and drawing
/// ids that are free in the whole package.
class MergedDocument {
public:
    /// Copies every entry of the first file but the three parts that grow.
    bool start(const PackageReader& first, const WordDocument& firstParts, const QString& path);

    /// Writes the three parts and moves the file to its place.
    bool finish();

    QDomDocument& document() { return parts_.document; }
    QDomElement body() const { return body_; }
    /// How the document's relationships name a part.
    QString targetOf(const QString& partName) const { return relativeTarget(parts_.mainPart, partName); }

    /// Puts a new relationship of the document and gives its id. An empty
    /// `mode` stands for a part of the package.
    QString addRelationship(const QString& type, const QString& target, const QString& mode);

    QString newPartName(const PartPlace& place, const QString& suffix);
    qint64 newDrawingId();

    /// Adds a part and declares its content type.
    bool addPart(const QString& name, const QString& contentType, const QByteArray& bytes);
    bool copyPart(const QString& name, const QString& contentType, const PackageReader& from, const QString& oldName);
    /// Adds a relationships part: its content type is declared by every package.
    bool addRelationshipsPart(const QString& name, const QByteArray& bytes);

private:
    void readNumbers(const PackageReader& first);
    void readContentTypes();
    void declare(const QString& partName, const QString& contentType);
    void addDefault(const QString& suffix, const QString& contentType);

    PackageWriter writer_;
    WordDocument parts_;
    QDomElement body_;
    QSet<QString> relationshipIds_;
    QSet<QString> defaults_; ///< suffixes in lower case
    DrawingIds drawingIds_;
    qint64 relationCounter_ = 1;
    qint64 drawingCounter_ = 1;
    int partCounter_ = 1;
};

} // namespace docx
