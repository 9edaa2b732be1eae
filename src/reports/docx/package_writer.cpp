#include "reports/docx/package_writer.h"

#include <algorithm>
#include <quazip/quazip.h>
#include <quazip/quazipfile.h>
#include <quazip/quazipnewinfo.h>
#include <zlib.h>

namespace docx {
namespace {

// Beyond these the container would need the 64-bit form, which Word refuses.
constexpr int mostEntries = 65534;
constexpr qint64 mostBytes = 0xfffffff0;

constexpr int rawWindow = -15;
constexpr int memoryLevel = 8;

// Pictures are packed by themselves: packing them again costs time and wins nothing.
int levelFor(const QString& name)
{
    for (const char* suffix : {".png", ".jpg", ".jpeg"}) {
        if (name.endsWith(QLatin1String(suffix), Qt::CaseInsensitive))
            return Z_NO_COMPRESSION;
    }
    return Z_DEFAULT_COMPRESSION;
}

bool isAscii(const QString& name)
{
    return std::all_of(name.begin(), name.end(), [](QChar c) { return c.unicode() < 0x80; });
}

} // namespace

/// One entry while it is written.
class PackageWriter::Entry {
public:
    Entry(QuaZip* zip, const QString& name, const QDateTime& time) : file_(zip)
    {
        zip->setUtf8Enabled(!isAscii(name));
        QuaZipNewInfo info(name);
        info.dateTime = time.isValid() ? time : QDateTime(QDate(1980, 1, 1), QTime(0, 0));
        open_ = file_.open(QIODevice::WriteOnly, info, nullptr, 0, Z_DEFLATED, levelFor(name), false, rawWindow,
                           memoryLevel);
    }

    bool isOpen() const { return open_; }

    bool write(const char* bytes, qint64 length) { return file_.write(bytes, length) == length; }

    bool close()
    {
        file_.close();
        return file_.getZipError() == ZIP_OK;
    }

private:
    QuaZipFile file_;
    bool open_ = false;
};

PackageWriter::PackageWriter() = default;

PackageWriter::~PackageWriter()
{
    if (file_)
        zip_->close();
}

bool PackageWriter::open(const QString& path)
{
    auto file = std::make_unique<WrittenFile>(path);
    if (!file->open())
        return false;
    auto zip = std::make_unique<QuaZip>(file->device());
    zip->setAutoClose(false);
    zip->setFileNameCodec("UTF-8");
    zip->setDataDescriptorWritingEnabled(false); // some readers want sizes in front
    if (!zip->open(QuaZip::mdCreate))
        return false;
    file_ = std::move(file);
    zip_ = std::move(zip);
    return true;
}

bool PackageWriter::fail()
{
    failed_ = true;
    return false;
}

bool PackageWriter::addPieces(const QString& name, const std::function<bool(const TakeBytes&)>& give,
                              const QDateTime& time)
{
    if (!file_ || failed_ || names_.contains(name))
        return false;
    Entry entry(zip_.get(), name, time);
    const bool given =
        entry.isOpen() && give([&entry](const char* piece, qint64 length) { return entry.write(piece, length); });
    if (!given || !entry.close())
        return fail();
    names_.insert(name);
    return true;
}

bool PackageWriter::add(const QString& name, const QByteArray& bytes, const QDateTime& time)
{
    return addPieces(
        name, [&bytes](const TakeBytes& take) { return take(bytes.constData(), bytes.size()); }, time);
}

bool PackageWriter::copy(const PackageReader& from, const QString& name, const QString& newName)
{
    return addPieces(
        newName, [&](const TakeBytes& take) { return from.stream(name, take); }, from.entry(name).time);
}

bool PackageWriter::commit()
{
    if (!file_)
        return false;
    const auto file = std::move(file_);
    zip_->close();
    const bool sound =
        !failed_ && zip_->getZipError() == ZIP_OK && names_.size() <= mostEntries && file->device()->pos() <= mostBytes;
    zip_.reset();
    if (!sound)
        file->cancel();
    return file->commit();
}

} // namespace docx
