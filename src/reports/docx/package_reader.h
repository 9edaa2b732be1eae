#pragma once
// A docx file as a container of named parts, read with distrust: templates come
// from outside.

#include <QByteArray>
#include <QDateTime>
#include <QHash>
#include <QString>
#include <QVector>
#include <functional>
#include <memory>

class QuaZip;

namespace docx {

/// Bounds of a container. What unpacks to more than `freeTotal` must not be
/// smaller packed than a `ratio`-th of it, so that time and memory follow from
/// the size of the file.
struct PackageBounds {
    static constexpr int entries = 10000;
    static constexpr qint64 freeTotal = 64ll * 1024 * 1024;
    static constexpr qint64 ratio = 100;
    static constexpr qint64 total = 2048ll * 1024 * 1024;
    static constexpr qint64 entryInMemory = 64ll * 1024 * 1024;
};

struct PackageEntry {
    QString name;
    qint64 size = 0; ///< unpacked, as declared
    QDateTime time;
};

class PackageReader {
public:
    PackageReader();
    ~PackageReader();

    /// Opens the container and reads every entry once: names that leave the
    /// folder or stand twice, encryption, sizes beyond the bounds (as declared
    /// and as read) and wrong checksums all give false and leave it closed.
    /// `fault()` then has the reason.
    bool open(const QString& path);
    void close();
    bool isOpen() const { return zip_ != nullptr; }
    QString fault() const { return fault_; }

    /// In the order of the container.
    const QVector<PackageEntry>& entries() const { return entries_; }
    bool contains(const QString& name) const { return places_.contains(name); }
    PackageEntry entry(const QString& name) const;

    /// The bytes of an entry. False if there is none, it is beyond
    /// PackageBounds::entryInMemory, or it is damaged.
    bool read(const QString& name, QByteArray* bytes) const;

    /// Hands an entry to `take` piece by piece until it gives false.
    bool stream(const QString& name, const std::function<bool(const char*, qint64)>& take) const;

private:
    bool fail(const QString& fault);
    bool listEntries(qint64 packedSize);
    bool listCurrentEntry();
    bool verifyEntries();

    std::unique_ptr<QuaZip> zip_;
    QVector<PackageEntry> entries_;
    QHash<QString, int> places_;
    qint64 total_ = 0;
    QString fault_;
};

} // namespace docx
