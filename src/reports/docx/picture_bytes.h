#pragma once
// Pictures from and to the bytes of a package.

#include <QByteArray>
#include <QPixmap>

namespace docx {

/// How many pixels the pictures of one template may have together: a picture
/// of a few kilobytes can unpack to gigabytes.
struct PixelBudget {
    qint64 left = 64ll * 1000 * 1000;
};

/// The picture of PNG bytes. Null for any other format and beyond the budget.
QPixmap pngPixmap(const QByteArray& bytes, PixelBudget* budget);

/// Whether the bytes begin as those of a PNG file.
bool isPng(const QByteArray& bytes);

/// Whether they are a whole PNG file: every piece is there and has its
/// checksum. Nothing is unpacked.
bool isWholePng(const QByteArray& bytes);

/// The picture as PNG, empty on failure.
QByteArray pngBytes(const QPixmap& pixmap);

} // namespace docx
