#include "reports/docx/packed_text.h"

#include <zlib.h>

namespace docx {

void PackedText::append(const QByteArray& text)
{
    if (!text.isEmpty())
        pieces_.append(qCompress(text, Z_BEST_SPEED));
}

bool PackedText::give(const std::function<bool(const char*, qint64)>& take) const
{
    for (const QByteArray& piece : pieces_) {
        const QByteArray text = qUncompress(piece);
        if (!take(text.constData(), text.size()))
            return false;
    }
    return true;
}

} // namespace docx
