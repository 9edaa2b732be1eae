#include "reports/docx/picture_bytes.h"

#include <QBuffer>
#include <QImageReader>

namespace docx {

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

QByteArray pngBytes(const QPixmap& pixmap)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !pixmap.save(&buffer, "PNG"))
        return QByteArray();
    return bytes;
}

} // namespace docx
