#include "database/provisioning/folder_copy.h"

#include "files/written_file.h"

#include <QDir>

namespace {

/// A folder inside the one that is copied would grow without end.
bool liesInside(const QDir& inner, const QDir& outer)
{
    return (inner.canonicalPath() + QLatin1Char('/')).startsWith(outer.canonicalPath() + QLatin1Char('/'));
}

bool copyContents(const QDir& from, const QDir& to)
{
    bool ok = true;
    for (const QString& folder : from.entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden))
        ok = to.mkpath(folder) && copyContents(from.filePath(folder), to.filePath(folder)) && ok;
    for (const QString& file : from.entryList(QDir::Files | QDir::Hidden))
        ok = (!to.exists(file) && copyFile(from.filePath(file), to.filePath(file))) && ok;
    return ok;
}

} // namespace

bool copyFolder(const QString& source, const QString& target)
{
    const QDir from(source);
    const QDir to(target);
    if (source.isEmpty() || !from.exists() || !to.mkpath(QStringLiteral(".")) || liesInside(to, from))
        return false;
    return copyContents(from, to);
}
