#include "session/drawing_lock.h"

#include "base/placeholders.h"
#include "hostkit/console.h"

#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <map>
#include <memory>

namespace {

// They are given back when the program ends, too.
std::map<QString, std::unique_ptr<QLockFile>>& heldLocks()
{
    static std::map<QString, std::unique_ptr<QLockFile>> locks;
    return locks;
}

QString keyOf(const QString& path) { return QDir::cleanPath(QFileInfo(path).absoluteFilePath()); }

// "ivanov, станция АРМ-3, процесс 812"; what is not known is left out.
QString holderOf(const QString& lockPath, const QLockFile& lock)
{
    qint64 process = 0;
    QString machine, program;
    QStringList words;
    const QString user = QFileInfo(lockPath).owner();
    if (!user.isEmpty())
        words << user;
    if (lock.getLockInfo(&process, &machine, &program))
        words << fill(QStringLiteral("станция %1, процесс %2"), machine, process);
    return words.isEmpty() ? QStringLiteral("неизвестно кто") : words.join(QStringLiteral(", "));
}

} // namespace

// The dated copies are called after the whole name of the drawing, so that the
// lock must not be.
QString drawingLockPath(const QString& path)
{
    const QFileInfo file(path);
    return file.path() + QLatin1Char('/') + file.completeBaseName() + QStringLiteral(".lock");
}

bool lockDrawing(const QString& path)
{
    std::unique_ptr<QLockFile>& held = heldLocks()[keyOf(path)];
    if (held && QFileInfo::exists(drawingLockPath(path)))
        return true;
    const QString lockPath = drawingLockPath(path);
    held = std::make_unique<QLockFile>(lockPath);
    held->setStaleLockTime(0); // a drawing stays open for days
    if (held->tryLock(0) || held->error() != QLockFile::LockFailedError)
        return true;
    say(fill(QStringLiteral("\nЧертеж %1 открыт в другой программе (%2). Здесь он не открывается. Если это не так, "
                            "удалите файл %3\n"),
             path, holderOf(lockPath, *held), lockPath));
    heldLocks().erase(keyOf(path));
    return false;
}

void unlockDrawing(const QString& path) { heldLocks().erase(keyOf(path)); }
