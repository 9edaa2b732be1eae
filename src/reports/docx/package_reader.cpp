#include "reports/docx/package_reader.h"

#include <QFileInfo>
#include <QStringList>
#include <array>
#include <quazip/quazip.h>
#include <quazip/quazipfile.h>
#include <quazip/quazipfileinfo.h>
#include <zlib.h>

namespace docx {
namespace {

constexpr int encryptedFlag = 1;
constexpr int longestName = 1024;

/// A relative path inside the container, in forward slashes.
bool isSafeName(const QString& name)
{
    if (name.isEmpty() || name.size() > longestName || name.startsWith(QLatin1Char('/')))
        return false;
    for (const QChar c : name) {
        if (c < QLatin1Char(' ') || c == QLatin1Char('\\') || c == QLatin1Char(':') || c == QChar::ReplacementCharacter)
            return false;
    }
    const QStringList segments = name.split(QLatin1Char('/'));
    return !segments.contains(QStringLiteral("..")) && !segments.contains(QStringLiteral("."));
}

bool isSupported(const QuaZipFileInfo64& info)
{
    return (info.flags & encryptedFlag) == 0 && (info.method == 0 || info.method == Z_DEFLATED);
}

} // namespace

PackageReader::PackageReader() = default;

PackageReader::~PackageReader() { close(); }

bool PackageReader::open(const QString& path)
{
    close();
    fault_.clear();
    zip_ = std::make_unique<QuaZip>(path);
    zip_->setFileNameCodec("UTF-8");
    if (!QFileInfo(path).isFile() || !zip_->open(QuaZip::mdUnzip))
        return fail(QStringLiteral("not a container"));
    return listEntries(QFileInfo(path).size()) && verifyEntries();
}

void PackageReader::close()
{
    if (zip_ && zip_->isOpen())
        zip_->close();
    zip_.reset();
    entries_.clear();
    places_.clear();
    total_ = 0;
}

bool PackageReader::fail(const QString& fault)
{
    close();
    fault_ = fault;
    return false;
}

bool PackageReader::listEntries(qint64 packedSize)
{
    const int count = zip_->getEntriesCount();
    if (count <= 0 || count > PackageBounds::entries)
        return fail(QStringLiteral("no entries, or too many"));
    const qint64 bound = qMin(PackageBounds::total, qMax(PackageBounds::freeTotal, packedSize * PackageBounds::ratio));
    for (bool more = zip_->goToFirstFile(); more; more = zip_->goToNextFile()) {
        if (!listCurrentEntry())
            return false;
        if (total_ > bound)
            return fail(QStringLiteral("unpacks to too much"));
    }
    if (entries_.size() != count)
        return fail(QStringLiteral("the list of entries is damaged"));
    return true;
}

bool PackageReader::listCurrentEntry()
{
    QuaZipFileInfo64 info;
    if (!zip_->getCurrentFileInfo(&info))
        return fail(QStringLiteral("the list of entries is damaged"));
    if (!isSafeName(info.name) || places_.contains(info.name))
        return fail(QStringLiteral("a name that leaves the folder or stands twice"));
    if (!isSupported(info))
        return fail(QStringLiteral("an entry is encrypted or packed in an unknown way"));
    if (info.uncompressedSize > quint64(PackageBounds::total))
        return fail(QStringLiteral("unpacks to too much"));
    places_.insert(info.name, entries_.size());
    entries_.append({info.name, qint64(info.uncompressedSize), info.dateTime});
    total_ += entries_.last().size;
    return true;
}

bool PackageReader::verifyEntries()
{
    const QVector<PackageEntry> listed = entries_;
    for (const PackageEntry& entry : listed) {
        if (!stream(entry.name, [](const char*, qint64) { return true; }))
            return fail(QStringLiteral("an entry is damaged: ") + entry.name);
    }
    return true;
}

PackageEntry PackageReader::entry(const QString& name) const
{
    const int place = places_.value(name, -1);
    return place < 0 ? PackageEntry() : entries_.at(place);
}

bool PackageReader::read(const QString& name, QByteArray* bytes) const
{
    bytes->clear();
    const qint64 size = entry(name).size;
    if (size > PackageBounds::entryInMemory)
        return false;
    bytes->reserve(int(size));
    return stream(name, [bytes](const char* piece, qint64 length) {
        bytes->append(piece, int(length));
        return true;
    });
}

bool PackageReader::stream(const QString& name, const std::function<bool(const char*, qint64)>& take) const
{
    if (!isOpen() || !contains(name) || !zip_->setCurrentFile(name, QuaZip::csSensitive))
        return false;
    QuaZipFile file(zip_.get());
    if (!file.open(QIODevice::ReadOnly))
        return false;
    std::array<char, 65536> piece;
    const qint64 declared = entry(name).size;
    qint64 read = 0;
    qint64 length = 0;
    while ((length = file.read(piece.data(), qint64(piece.size()))) > 0) {
        read += length;
        if (read > declared || !take(piece.data(), length))
            return false;
    }
    const bool complete = length == 0 && read == declared && file.getZipError() == UNZ_OK;
    file.close(); // this is where the checksum is compared
    return complete && file.getZipError() == UNZ_OK;
}

} // namespace docx
