#pragma once
// A new docx file, written beside its place and moved over it.

#include "files/written_file.h"
#include "reports/docx/package_reader.h"

#include <QSet>
#include <functional>

namespace docx {

/// Takes the bytes of an entry piece by piece; false when they cannot be taken.
using TakeBytes = std::function<bool(const char*, qint64)>;

class PackageWriter {
public:
    PackageWriter();
    /// A container that was not committed leaves nothing behind.
    ~PackageWriter();

    bool open(const QString& path);

    /// Adds an entry, deflated. Two files made of the same entries are equal to
    /// the byte: without `time` an entry bears the earliest date of the format.
    /// False for a name that stands already or a failed write.
    bool add(const QString& name, const QByteArray& bytes, const QDateTime& time = QDateTime());

    /// The same for bytes that `give` hands over piece by piece; it gives false
    /// when it has not handed over all of them.
    bool addPieces(const QString& name, const std::function<bool(const TakeBytes&)>& give,
                   const QDateTime& time = QDateTime());

    /// Adds an entry of another container under `newName`, byte for byte.
    bool copy(const PackageReader& from, const QString& name, const QString& newName);

    bool contains(const QString& name) const { return names_.contains(name); }

    /// Finishes the container and moves it to its place. False, with nothing
    /// changed there, after any failure.
    bool commit();

private:
    class Entry;

    bool fail();

    std::unique_ptr<WrittenFile> file_;
    std::unique_ptr<QuaZip> zip_;
    QSet<QString> names_;
    bool failed_ = false;
};

} // namespace docx
