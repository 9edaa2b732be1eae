#include "zip_maker.h"

#include <QFile>
#include <QtEndian>
#include <zlib.h>

namespace {

/// Nothing can be tested without these.
void check(bool done, const char* what)
{
    if (!done)
        qFatal("cannot %s", what);
}

QByteArray deflated(const QByteArray& bytes)
{
    QByteArray packed(int(compressBound(uLong(bytes.size()))) + 64, '\0');
    z_stream stream{};
    check(deflateInit2(&stream, 9, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY) == Z_OK, "deflate");
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.constData()));
    stream.avail_in = uInt(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = uInt(packed.size());
    check(deflate(&stream, Z_FINISH) == Z_STREAM_END, "deflate");
    packed.resize(int(stream.total_out));
    deflateEnd(&stream);
    return packed;
}

template <typename Number>
void append(QByteArray* bytes, Number number)
{
    const Number little = qToLittleEndian(number);
    bytes->append(reinterpret_cast<const char*>(&little), sizeof little);
}

struct Packed {
    QByteArray name;
    QByteArray bytes;
    quint32 checksum;
    quint32 size;
    quint16 method;
    quint16 flags;
    quint32 offset;
};

/// What the local and the central header have in common.
void appendCommon(QByteArray* bytes, const Packed& entry)
{
    append(bytes, quint16(20));
    append(bytes, entry.flags);
    append(bytes, entry.method);
    append(bytes, quint16(0));
    append(bytes, quint16(0x21));
    append(bytes, entry.checksum);
    append(bytes, quint32(entry.bytes.size()));
    append(bytes, entry.size);
    append(bytes, quint16(entry.name.size()));
    append(bytes, quint16(0));
}

Packed packed(const ZipEntry& entry, int offset)
{
    Packed result;
    result.name = entry.name.toUtf8();
    result.bytes = entry.deflate ? deflated(entry.bytes) : entry.bytes;
    const auto sum = crc32(0, reinterpret_cast<const Bytef*>(entry.bytes.constData()), uInt(entry.bytes.size()));
    result.checksum = quint32(sum) ^ (entry.wrongChecksum ? 1u : 0u);
    result.size = quint32(entry.declaredSize < 0 ? entry.bytes.size() : entry.declaredSize);
    result.method = quint16(entry.method >= 0 ? entry.method : entry.deflate ? 8 : 0);
    result.flags = quint16(0x800 | entry.flags);
    result.offset = quint32(offset);
    return result;
}

/// The 64-bit end records, for more entries than the plain one can count.
void appendLongEnd(QByteArray* bytes, qint64 count, qint64 size, qint64 start)
{
    const qint64 place = bytes->size();
    append(bytes, quint32(0x06064b50));
    append(bytes, quint64(44));
    append(bytes, quint16(45));
    append(bytes, quint16(45));
    append(bytes, quint64(0));
    append(bytes, count);
    append(bytes, count);
    append(bytes, size);
    append(bytes, start);
    append(bytes, quint32(0x07064b50));
    append(bytes, quint32(0));
    append(bytes, place);
    append(bytes, quint32(1));
}

} // namespace

QByteArray zipBytes(const QVector<ZipEntry>& entries, int declaredCount)
{
    QByteArray bytes;
    QByteArray directory;
    for (const ZipEntry& entry : entries) {
        const Packed item = packed(entry, bytes.size());
        append(&bytes, quint32(0x04034b50));
        appendCommon(&bytes, item);
        bytes += item.name + item.bytes;
        append(&directory, quint32(0x02014b50));
        append(&directory, quint16(20));
        appendCommon(&directory, item);
        directory += QByteArray(6, '\0'); // comment, disk, internal attributes
        append(&directory, quint32(0));
        append(&directory, item.offset);
        directory += item.name;
    }
    const int trueCount = declaredCount < 0 ? entries.size() : declaredCount;
    const quint16 count = quint16(qMin(trueCount, 0xffff));
    const int start = bytes.size();
    bytes += directory;
    if (trueCount >= 0xffff)
        appendLongEnd(&bytes, trueCount, directory.size(), start);
    append(&bytes, quint32(0x06054b50));
    append(&bytes, quint32(0));
    append(&bytes, count);
    append(&bytes, count);
    append(&bytes, quint32(directory.size()));
    append(&bytes, quint32(start));
    append(&bytes, quint16(0));
    return bytes;
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    check(file.open(QIODevice::WriteOnly), "open a file for writing");
    check(file.write(bytes) == bytes.size(), "write a file");
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    check(file.open(QIODevice::ReadOnly), qPrintable("read " + path));
    return file.readAll();
}
