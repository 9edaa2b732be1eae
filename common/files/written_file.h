#pragma once
// The one way in which files are written: beside their place, and moved over it
// only when every byte has arrived. Whatever fails, the file that stood there
// stays, and the reason is known.

#include <QByteArray>
#include <QFlags>
#include <QString>
#include <memory>

class QIODevice;
class QSaveFile;

class WrittenFile {
public:
    enum Option {
        Plain = 0,
        Text = 1,    ///< line ends of the system
        Private = 2, ///< readable by its owner alone, also when the one before was not
    };
    Q_DECLARE_FLAGS(Options, Option)

    explicit WrittenFile(const QString& path);
    /// A file that was not committed leaves nothing behind.
    ~WrittenFile();

    bool open(Options options = Plain);
    /// Null until open.
    QIODevice* device() const;
    /// After a failed write nothing is committed any more.
    bool write(const QByteArray& bytes);
    /// Gives the file up: what stood there stays.
    void cancel();
    /// Everything to the disk, then moved over. False with nothing changed.
    bool commit();

    /// Why it failed, for the user: "на диске нет места". Empty while all is well.
    const QString& problem() const { return problem_; }

private:
    bool fail();

    QString path_;
    Options options_ = Plain;
    std::unique_ptr<QSaveFile> file_;
    qint64 written_ = 0;
    bool failed_ = false;
    QString problem_;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(WrittenFile::Options)

/// The whole file at once. A file that may be written in a folder that may not
/// is written in place, and gets its old bytes back when that fails.
bool saveFile(const QString& path, const QByteArray& bytes, QString* problem = nullptr,
              WrittenFile::Options options = WrittenFile::Plain);

/// A copy of `from` under `to`; what stands there is replaced.
bool copyFile(const QString& from, const QString& to, QString* problem = nullptr,
              WrittenFile::Options options = WrittenFile::Plain);

/// Makes the folder and those above it. What is made is its owner's alone; a
/// folder that exists stays as it is.
bool makePrivateFolder(const QString& path);

/// Takes from everybody but the owner the right to read the file.
bool makePrivate(const QString& path);
