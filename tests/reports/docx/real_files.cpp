#include "real_files.h"

#include <QDir>

QStringList unsoundDocuments()
{
    return {"poi-ExternalEntityInText.docx",      // an external entity
            "poi-bug53475-password-is-pass.docx", // encrypted
            "poi-truncated62886.docx"};           // cut
}

QStringList soundDocuments()
{
    QStringList names = QDir(TERVA_SOURCE_DIR "/tests/data/docx").entryList({"*.docx"}, QDir::Files, QDir::Name);
    for (const QString& name : unsoundDocuments())
        names.removeAll(name);
    return names;
}

QString documentPath(const QString& name) { return TERVA_SOURCE_DIR "/tests/data/docx/" + name; }
