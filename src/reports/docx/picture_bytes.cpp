#include "reports/docx/picture_bytes.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QtEndian>
#include <zlib.h>

namespace docx {
namespace {

QByteArray signature() { return QByteArrayLiteral("\x89PNG\r\n\x1a\n"); }

// Numbers of the format have their highest byte first.
QByteArray number(quint32 value)
{
    QByteArray bytes(sizeof(value), '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

void addChunk(QByteArray& bytes, const char* name, const QByteArray& content)
{
    const QByteArray named = QByteArray(name) + content;
    const auto* from = reinterpret_cast<const Bytef*>(named.constData());
    bytes += number(quint32(content.size())) + named + number(quint32(crc32(0, from, uInt(named.size()))));
}

// Each line as its difference to the line above, packed quickly. The toolkit's own
// encoder tries five filters a line, which takes five times as long as all the rest.
QByteArray packedLines(const QImage& image, int channels)
{
    constexpr char differenceToAbove = 2;
    const int width = image.width() * channels;
    QByteArray lines((width + 1) * image.height(), '\0');
    const QByteArray nothing(width, '\0');
    const auto* above = reinterpret_cast<const uchar*>(nothing.constData());
    auto* to = reinterpret_cast<uchar*>(lines.data());
    for (int row = 0; row < image.height(); ++row) {
        const uchar* line = image.constScanLine(row);
        *to++ = differenceToAbove;
        for (int i = 0; i < width; ++i)
            *to++ = uchar(line[i] - above[i]);
        above = line;
    }
    uLongf size = compressBound(uLong(lines.size()));
    QByteArray packed(int(size), '\0');
    if (compress2(reinterpret_cast<Bytef*>(packed.data()), &size, reinterpret_cast<const Bytef*>(lines.constData()),
                  uLong(lines.size()), Z_BEST_SPEED)
        != Z_OK)
        return QByteArray();
    packed.resize(int(size));
    return packed;
}

} // namespace

QPixmap pngPixmap(const QByteArray& bytes, PixelBudget* budget)
{
    QBuffer buffer;
    buffer.setData(bytes);
    if (!buffer.open(QIODevice::ReadOnly))
        return QPixmap();
    QImageReader reader(&buffer, "PNG");
    if (!reader.canRead()) // else the decoder complains on the console
        return QPixmap();
    const QSize size = reader.size();
    const qint64 pixels = qint64(size.width()) * size.height();
    if (!size.isValid() || pixels > budget->left)
        return QPixmap();
    budget->left -= pixels;
    return QPixmap::fromImageReader(&reader);
}

bool isPng(const QByteArray& bytes) { return bytes.startsWith(signature()); }

bool isWholePng(const QByteArray& bytes)
{
    constexpr qint64 around = 12; // length and name in front of a piece's content, checksum behind
    const auto* at = reinterpret_cast<const uchar*>(bytes.constData());
    bool hasPixels = false;
    qint64 from = isPng(bytes) ? signature().size() : bytes.size();
    while (bytes.size() - from >= around) {
        const qint64 length = qFromBigEndian<quint32>(at + from);
        if (length > bytes.size() - from - around)
            return false;
        const uchar* named = at + from + 4;
        if (quint32(crc32(0, named, uInt(length + 4))) != qFromBigEndian<quint32>(named + 4 + length))
            return false;
        const QByteArray name(reinterpret_cast<const char*>(named), 4);
        if (name == "IEND")
            return hasPixels;
        hasPixels = hasPixels || name == "IDAT";
        from += around + length;
    }
    return false;
}

QByteArray pngBytes(const QPixmap& pixmap)
{
    if (pixmap.isNull())
        return QByteArray();
    const bool alpha = pixmap.hasAlphaChannel();
    const QImage image = pixmap.toImage().convertToFormat(alpha ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
    const QByteArray packed = packedLines(image, alpha ? 4 : 3);
    if (image.isNull() || packed.isEmpty())
        return QByteArray();
    constexpr char bitsPerChannel = 8, colors = 2, colorsAndAlpha = 6, metre = 1;
    QByteArray bytes = signature();
    addChunk(bytes, "IHDR",
             number(quint32(image.width())) + number(quint32(image.height())) + bitsPerChannel
                 + (alpha ? colorsAndAlpha : colors) + QByteArray(3, '\0'));
    addChunk(bytes, "pHYs", number(quint32(image.dotsPerMeterX())) + number(quint32(image.dotsPerMeterY())) + metre);
    addChunk(bytes, "IDAT", packed);
    addChunk(bytes, "IEND", QByteArray());
    return bytes;
}

} // namespace docx
