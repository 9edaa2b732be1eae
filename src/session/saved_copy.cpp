#include "session/saved_copy.h"

#include "base/placeholders.h"
#include "files/written_file.h"
#include "hostkit/console.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>

namespace {

// The dated copies are called after the whole name of the drawing, so that the
// note must not be.
QString notePath(const QString& path)
{
    const QFileInfo file(path);
    return file.path() + QLatin1Char('/') + file.completeBaseName() + QStringLiteral(".laid");
}

QByteArray fingerprint(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
}

bool readAll(const QString& path, QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    bytes = file.readAll();
    return file.error() == QFileDevice::NoError;
}

// A copy that cannot be read may hold anything.
bool holdsSavedWork(const QString& path, const QByteArray& stored)
{
    if (!QFileInfo::exists(path))
        return false;
    QByteArray copy, laid;
    if (!readAll(path, copy))
        return true;
    return copy != stored && !(readAll(notePath(path), laid) && laid == fingerprint(copy));
}

// "positionID7_2026-11-22_09-30-00.dwg" by the moment of the last saving, on
// the user's clock.
QString datedPath(const QString& path)
{
    const QFileInfo file(path);
    const QString stem = file.path() + QLatin1Char('/') + file.completeBaseName() + QLatin1Char('_')
        + file.lastModified().toString(QStringLiteral("yyyy-MM-dd_HH-mm-ss"));
    const QString suffix = QLatin1Char('.') + file.suffix();
    QString dated = stem + suffix;
    for (int number = 2; QFileInfo::exists(dated); ++number)
        dated = stem + QLatin1Char('_') + QString::number(number) + suffix;
    return dated;
}

} // namespace

void rememberLaidCopy(const QString& path)
{
    QByteArray bytes;
    if (!readAll(path, bytes)) {
        QFile::remove(notePath(path));
        return;
    }
    rememberStored(path, bytes);
}

void rememberStored(const QString& path, const QByteArray& stored) { saveFile(notePath(path), fingerprint(stored)); }

bool isRemembered(const QString& path, const QByteArray& stored)
{
    QByteArray laid;
    return readAll(notePath(path), laid) && laid == fingerprint(stored);
}

bool wasSavedSince(const QString& path)
{
    QByteArray copy, laid;
    return readAll(notePath(path), laid) && readAll(path, copy) && laid != fingerprint(copy);
}

bool keepSavedCopy(const QString& path, const QByteArray& stored)
{
    if (!holdsSavedWork(path, stored))
        return true;
    const QString dated = datedPath(path);
    if (!QFile::rename(path, dated)) {
        say(fill(
            QStringLiteral("\nРабочая копия чертежа %1 изменена и не может быть отложена: она оставлена как есть\n"),
            path));
        return false;
    }
    say(fill(QStringLiteral("\nРабочая копия чертежа сохранялась после записи в базу данных. Прежняя копия: %1\n"),
             dated));
    return true;
}
