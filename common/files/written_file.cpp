#include "files/written_file.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace {

constexpr QFileDevice::Permissions ownersFile = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
constexpr QFileDevice::Permissions ownersFolder = ownersFile | QFileDevice::ExeOwner;
constexpr qint64 pieceSize = 1 << 20;

QString reasonOf(const QFileDevice& file)
{
    switch (file.error()) {
    case QFileDevice::NoError: return QStringLiteral("файл не записан до конца");
    case QFileDevice::ResourceError:
        return QStringLiteral("на диске нет места (") + file.errorString() + QLatin1Char(')');
    case QFileDevice::PermissionsError: return QStringLiteral("нет прав на запись");
    default: return file.errorString();
    }
}

bool report(QString* problem, const QString& reason)
{
    if (problem)
        *problem = reason;
    return false;
}

QIODevice::OpenMode modeOf(WrittenFile::Options options)
{
    return options & WrittenFile::Text ? QIODevice::WriteOnly | QIODevice::Text : QIODevice::WriteOnly;
}

// Everything that was handed over has left for the disk. A buffered device
// tells a full disk only here.
bool isWritten(QFileDevice& file) { return file.flush() && file.error() == QFileDevice::NoError; }

// The old bytes hold their place on the disk, so they can always be put back.
bool saveInPlace(const QString& path, const QByteArray& bytes, QString* problem, WrittenFile::Options options)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite))
        return report(problem, reasonOf(file));
    const QByteArray before = file.readAll();
    file.setTextModeEnabled(options & WrittenFile::Text);
    if (file.seek(0) && file.write(bytes) == bytes.size() && isWritten(file) && file.resize(file.pos()))
        return true;
    report(problem, reasonOf(file));
    file.close();
    QFile again(path);
    if (again.open(QIODevice::ReadWrite) && again.write(before) == before.size() && isWritten(again))
        again.resize(before.size());
    return false;
}

bool folderRefuses(const QString& path)
{
    const QFileInfo file(path);
    return file.isFile() && file.isWritable() && !QFileInfo(file.absolutePath()).isWritable();
}

} // namespace

WrittenFile::WrittenFile(const QString& path) : path_(path) { }

WrittenFile::~WrittenFile() { cancel(); }

bool WrittenFile::open(Options options)
{
    options_ = options;
    written_ = 0;
    failed_ = false;
    problem_.clear();
    file_ = std::make_unique<QSaveFile>(path_);
    if (file_->open(modeOf(options)) && (!(options & Private) || file_->setPermissions(ownersFile)))
        return true;
    problem_ = reasonOf(*file_);
    cancel();
    return false;
}

QIODevice* WrittenFile::device() const { return file_.get(); }

bool WrittenFile::write(const QByteArray& bytes)
{
    if (!file_ || failed_)
        return false;
    written_ += bytes.size();
    return file_->write(bytes) == bytes.size() || fail();
}

bool WrittenFile::fail()
{
    if (problem_.isEmpty())
        problem_ = reasonOf(*file_);
    failed_ = true;
    return false;
}

void WrittenFile::cancel()
{
    if (file_)
        file_->cancelWriting();
    file_.reset();
}

bool WrittenFile::commit()
{
    if (!file_)
        return false;
    // The toolkit's own commit takes a file whose last bytes were refused.
    const bool whole = !failed_ && isWritten(*file_) && file_->size() >= written_;
    if (!whole || !file_->commit()) {
        fail();
        cancel();
        return false;
    }
    file_.reset();
    return true;
}

bool saveFile(const QString& path, const QByteArray& bytes, QString* problem, WrittenFile::Options options)
{
    if (folderRefuses(path))
        return saveInPlace(path, bytes, problem, options);
    WrittenFile file(path);
    if (file.open(options) && file.write(bytes) && file.commit())
        return true;
    return report(problem, file.problem());
}

bool copyFile(const QString& from, const QString& to, QString* problem, WrittenFile::Options options)
{
    QFile source(from);
    WrittenFile copy(to);
    if (!source.open(QIODevice::ReadOnly))
        return report(problem, source.errorString());
    if (!copy.open(options))
        return report(problem, copy.problem());
    while (!source.atEnd()) {
        const QByteArray piece = source.read(pieceSize);
        if (piece.isEmpty())
            return report(problem, source.errorString());
        if (!copy.write(piece))
            return report(problem, copy.problem());
    }
    return source.error() == QFileDevice::NoError && copy.commit() ? true : report(problem, copy.problem());
}

bool makePrivateFolder(const QString& path)
{
    if (QFileInfo(path).isDir())
        return true;
    const QString parent = QFileInfo(QDir::cleanPath(path)).absolutePath();
    if (parent != path && !QFileInfo(parent).isDir() && !makePrivateFolder(parent))
        return false;
    return QDir().mkdir(path) && QFile::setPermissions(path, ownersFolder);
}

bool makePrivate(const QString& path) { return QFile::setPermissions(path, ownersFile); }
