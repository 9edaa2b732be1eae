#pragma once
// Disks and files that take no more bytes.

#include <QString>
#include <QTemporaryDir>

/// A disk of a few kilobytes of its own. Where none can be mounted a test has
/// nothing to say and skips.
class SmallDisk {
public:
    explicit SmallDisk(int kilobytes);
    ~SmallDisk();
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    bool isMounted() const { return mounted_; }
    QString filePath(const QString& name) const { return folder_.filePath(name); }
    /// Takes all the room that is left but for about so many bytes.
    bool fillUpTo(qint64 left) const;
    /// Gives the room back that fillUpTo took.
    void freeAgain() const;

private:
    QTemporaryDir folder_;
    bool mounted_ = false;
};

/// While it lives no file of this process grows beyond so many bytes: a full
/// disk for those who may not mount one.
class FileSizeLimit {
public:
    explicit FileSizeLimit(qint64 bytes);
    ~FileSizeLimit();
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    unsigned long before_ = 0;
    void (*handlerBefore_)(int) = nullptr;
};
