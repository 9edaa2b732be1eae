#pragma once
// Containers for tests, written byte by byte, so that they can lie.

#include <QByteArray>
#include <QString>
#include <QVector>

struct ZipEntry {
    QString name;
    QByteArray bytes;
    bool deflate = true;
    qint64 declaredSize = -1; ///< in place of the true size
    bool wrongChecksum = false;
    int flags = 0;   ///< 1: encrypted
    int method = -1; ///< in place of 0 or 8
};

/// The bytes of a container with these entries. `declaredCount` in place of
/// their true number.
QByteArray zipBytes(const QVector<ZipEntry>& entries, int declaredCount = -1);

/// Writes bytes to a file.
void writeFile(const QString& path, const QByteArray& bytes);
QByteArray readFile(const QString& path);
