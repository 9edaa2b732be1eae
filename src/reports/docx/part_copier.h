#pragma once
// Parts of a later file, copied into the merged document with all they reach.

#include "reports/docx/merged_document.h"

#include <QHash>
#include <QQueue>

namespace docx {

/// Copies parts of one file. A part that is reached twice is copied once.
class PartCopier {
public:
    PartCopier(const PackageReader& source, const WordDocument& sourceParts, MergedDocument* merged);

    /// Copies the part that the body points at and everything it reaches. Gives
    /// the new name, empty if the source has no such part.
    QString copy(const QString& sourceName, const QString& relationshipType);

    /// Whether the merged file could not be written.
    bool failed() const { return failed_; }

private:
    struct Job {
        QString source;
        QString target;
        QString type;
    };

    QString schedule(const QString& sourceName, const QString& relationshipType, const PartPlace& place);
    void run(const Job& job);
    bool copyXml(const Job& job, const QString& contentType);
    void copyRelationships(const Job& job);
    bool redirect(QDomElement relationship, const Job& job);
    QString declaredType(const QString& sourceName) const;

    const PackageReader& source_;
    const WordDocument& sourceParts_;
    MergedDocument* merged_;
    QHash<QString, QString> newNames_;
    QQueue<Job> jobs_;
    bool failed_ = false;
};

} // namespace docx
