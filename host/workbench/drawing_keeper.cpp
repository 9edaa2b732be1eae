#include "drawing_keeper.h"

#include <drawing/documents.h>
#include <drawing/host_access.h>
#include <dxf/drawing_file.h>
#include <files/written_file.h>

#include <QCoreApplication>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

const QString kOriginal = QStringLiteral("original"), kUntitled = QStringLiteral("untitled");
const QString kSaved = QStringLiteral("saved");

// The running program's own mark in the folder of copies.
QString runMark(const QString& folder, qint64 process)
{
    return QDir(folder).filePath(QStringLiteral("%1.running").arg(process));
}

QString noteOf(const QString& copy) { return copy + QStringLiteral(".json"); }

QString lockPath(const QString& path)
{
    const QFileInfo file(path);
    return file.absolutePath() + QStringLiteral("/.") + file.fileName() + QStringLiteral(".workbench-lock");
}

QString keyOf(const QString& path) { return QDir::cleanPath(QFileInfo(path).absoluteFilePath()); }

bool isRunning(const QString& folder, qint64 process)
{
    QLockFile mark(runMark(folder, process));
    mark.setStaleLockTime(0);
    if (!QFileInfo::exists(runMark(folder, process)) || !mark.tryLock(0))
        return QFileInfo::exists(runMark(folder, process)) && mark.error() == QLockFile::LockFailedError;
    mark.unlock();
    return false;
}

QString holderOf(const QString& lockFile, const QLockFile& lock)
{
    qint64 process = 0;
    QString machine, program;
    lock.getLockInfo(&process, &machine, &program);
    return QStringLiteral("пользователь %1, машина %2, процесс %3")
        .arg(QFileInfo(lockFile).owner(), machine, QString::number(process));
}

} // namespace

DrawingKeeper::DrawingKeeper(const QString& folder)
    : folder_(folder), running_(runMark(folder, QCoreApplication::applicationPid()))
{
    QDir().mkpath(folder_);
    running_.setStaleLockTime(0);
    running_.tryLock(0);
}

DrawingKeeper::~DrawingKeeper()
{
    for (const auto& kept : kept_)
        remove({kept.second.file, {}, false, {}});
}

QString DrawingKeeper::freeName()
{
    return QDir(folder_).filePath(QStringLiteral("%1-%2.dxf").arg(QCoreApplication::applicationPid()).arg(++count_));
}

int DrawingKeeper::keep(QString* problem)
{
    int written = 0;
    for (const auto& document : Documents::instance().all()) {
        const quint64 change = HostAccess::data(*document->database()).changeCount;
        const auto known = kept_.find(document.get());
        if (!document->isModified() || (known != kept_.end() && known->second.change == change))
            continue;
        const QString file = known != kept_.end() ? known->second.file : freeName();
        const QJsonObject note = {{kOriginal, document->fileName()},
                                  {kUntitled, document->isUntitled()},
                                  {kSaved, QDateTime::currentDateTime().toString(Qt::ISODate)}};
        if (!isOk(writeDrawing(*document->database(), file, problem))
            || !saveFile(noteOf(file), QJsonDocument(note).toJson(), problem))
            continue;
        kept_[document.get()] = {file, change};
        ++written;
    }
    return written;
}

void DrawingKeeper::forget(const Document& document)
{
    const auto known = kept_.find(&document);
    if (known == kept_.end())
        return;
    remove({known->second.file, {}, false, {}});
    kept_.erase(known);
}

QString DrawingKeeper::keepClosed(const Document& document, QString* problem)
{
    const QDir closed(folder_ + QStringLiteral("/closed"));
    closed.mkpath(QStringLiteral("."));
    const QString stem = QFileInfo(document.fileName()).completeBaseName()
        + QDateTime::currentDateTime().toString(QStringLiteral("_yyyy-MM-dd_HH-mm-ss"));
    QString path = closed.filePath(stem + QStringLiteral(".dxf"));
    for (int number = 2; QFileInfo::exists(path); ++number)
        path = closed.filePath(QStringLiteral("%1_%2.dxf").arg(stem).arg(number));
    return isOk(writeDrawing(*document.database(), path, problem)) ? path : QString();
}

std::vector<LeftCopy> DrawingKeeper::left() const
{
    std::vector<LeftCopy> copies;
    const QFileInfoList files = QDir(folder_).entryInfoList({QStringLiteral("*.dxf")}, QDir::Files, QDir::Time);
    for (const QFileInfo& file : files) {
        const qint64 process = file.fileName().section(QLatin1Char('-'), 0, 0).toLongLong();
        QFile note(noteOf(file.filePath()));
        if (process == QCoreApplication::applicationPid() || isRunning(folder_, process)
            || !note.open(QIODevice::ReadOnly))
            continue;
        const QJsonObject told = QJsonDocument::fromJson(note.readAll()).object();
        copies.push_back({file.filePath(), told.value(kOriginal).toString(), told.value(kUntitled).toBool(),
                          QDateTime::fromString(told.value(kSaved).toString(), Qt::ISODate)});
    }
    return copies;
}

void DrawingKeeper::remove(const LeftCopy& copy)
{
    QFile::remove(copy.copy);
    QFile::remove(noteOf(copy.copy));
}

QString DrawingKeeper::lock(const QString& path)
{
    const QString key = keyOf(path);
    if (locks_.count(key))
        return {};
    auto lock = std::make_unique<QLockFile>(lockPath(path));
    lock->setStaleLockTime(0);
    if (!lock->tryLock(0) && lock->error() == QLockFile::LockFailedError)
        return holderOf(lockPath(path), *lock);
    locks_[key] = std::move(lock);
    return {};
}

void DrawingKeeper::unlock(const QString& path) { locks_.erase(keyOf(path)); }

bool DrawingKeeper::holds(const QString& path) const
{
    const auto known = locks_.find(keyOf(path));
    return known != locks_.end() && known->second->isLocked();
}
