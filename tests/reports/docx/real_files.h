#pragma once
// The Word documents of other makers in tests/data/docx.

#include <QString>
#include <QStringList>

/// Names of those that DocxTemplate must open, and of those that it must not.
QStringList soundDocuments();
QStringList unsoundDocuments();
QString documentPath(const QString& name);
