#pragma once
// The document that grows while files are merged.

#include "reports/docx/body_text.h"
#include "reports/docx/package_writer.h"
#include "reports/docx/packed_text.h"
#include "reports/docx/part_names.h"
#include "reports/docx/word_document.h"

namespace docx {

/// Starts as the first file. Hands out relationship ids, part names and drawing
/// ids that are free in the whole package. Of the bodies it keeps the packed
/// text, so that the memory hardly grows with their number.
class MergedDocument {
public:
    /// Copies every entry of the first file but the three parts that grow.
    /// `firstText` stands behind its head.
    bool start(const PackageReader& first, const WordDocument& firstParts, DocumentText* firstText,
               const QString& path);

    /// Writes the three parts and moves the file to its place.
    bool finish();

    /// Gives the root what that of a later file declares in addition, and gives
    /// back what is bound otherwise there.
    QVector<MarkupAttribute> adoptRoot(const QVector<MarkupAttribute>& ofFile);

    /// Appends a body on a new page. The section that ended the document ends
    /// before it; the body's own section ends the document now.
    void appendPage(const BodyText& body);

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

    bool giveDocument(const TakeBytes& take) const;

    PackageWriter writer_;
    WordDocument parts_;
    AroundBody around_;
    PackedText pages_; ///< up to the last section
    QByteArray section_;
    QByteArray behindSection_;
    QSet<QString> relationshipIds_;
    QSet<QString> defaults_; ///< suffixes in lower case
    DrawingIds drawingIds_;
    qint64 relationCounter_ = 1;
    qint64 drawingCounter_ = 1;
    int partCounter_ = 1;
};

} // namespace docx
