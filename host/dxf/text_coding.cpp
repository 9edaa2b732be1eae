#include "text_coding.h"

#include <QTextCodec>

namespace {

// Code pages of two-byte scripts behind \M+1 to \M+5.
const char* const kDoubleByteCodecs[] = {"Shift_JIS", "Big5", "EUC-KR", "johab", "GB18030"};

bool isHex(const QString& text, int from, int count)
{
    if (from + count > text.size())
        return false;
    for (int i = from; i < from + count; ++i) {
        const ushort c = text[i].unicode();
        if (!((c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f')))
            return false;
    }
    return true;
}

// Whether a circumflex before the character would be read as a code.
bool isCaretPartner(ushort next) { return next <= ' ' || (next >= '@' && next <= '_'); }

QString doubleByteCharacter(int page, int bytes)
{
    QTextCodec* codec = QTextCodec::codecForName(kDoubleByteCodecs[page - 1]);
    if (!codec)
        return {};
    const char raw[2] = {char(bytes >> 8), char(bytes & 0xff)};
    return codec->toUnicode(raw, 2);
}

} // namespace

QTextCodec* codecOfCodePage(const QByteArray& name)
{
    QByteArray page = name.trimmed().toUpper();
    page.replace('_', "");
    struct Special {
        const char* page;
        const char* codec;
    };
    static const Special kSpecial[] = {
        {"ANSI932", "Shift_JIS"}, {"ANSI936", "GBK"},        {"ANSI949", "EUC-KR"}, {"ANSI950", "Big5"},
        {"ANSI874", "TIS-620"},   {"ASCII", "windows-1252"}, {"UTF-8", "UTF-8"},
    };
    for (const Special& special : kSpecial) {
        if (page == special.page)
            return QTextCodec::codecForName(special.codec);
    }
    if (page.startsWith("ANSI"))
        return QTextCodec::codecForName("windows-" + page.mid(4));
    if (page.startsWith("DOS"))
        return QTextCodec::codecForName("IBM" + page.mid(3));
    if (page.startsWith("ISO8859"))
        return QTextCodec::codecForName("ISO-8859-" + page.mid(page.startsWith("ISO8859-") ? 8 : 7));
    return nullptr;
}

bool isUtf8(const QByteArray& bytes)
{
    QTextCodec::ConverterState state;
    QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

QString withoutUnicodeEscapes(const QString& text)
{
    if (!text.contains(QLatin1String("\\U+")) && !text.contains(QLatin1String("\\M+")))
        return text;
    QString result;
    for (int i = 0; i < text.size(); ++i) {
        const QStringRef head = text.midRef(i, 3);
        if (head == QLatin1String("\\U+") && isHex(text, i + 3, 4)) {
            result += QChar(ushort(text.midRef(i + 3, 4).toUShort(nullptr, 16)));
            i += 6;
            continue;
        }
        const int page = head == QLatin1String("\\M+") && i + 3 < text.size() ? text[i + 3].unicode() - '0' : 0;
        if (page >= 1 && page <= 5 && isHex(text, i + 4, 4)) {
            result += doubleByteCharacter(page, text.midRef(i + 4, 4).toInt(nullptr, 16));
            i += 7;
            continue;
        }
        result += text[i];
    }
    return result;
}

QString fromCaretCoding(const QString& text)
{
    if (!text.contains(QLatin1Char('^')))
        return text;
    QString result;
    for (int i = 0; i < text.size(); ++i) {
        if (text[i] != QLatin1Char('^') || i + 1 == text.size()) {
            result += text[i];
            continue;
        }
        const ushort next = text[++i].unicode();
        if (next == ' ')
            result += QLatin1Char('^');
        else if (next >= '@' && next <= '_')
            result += QChar(ushort(next - '@'));
        else
            result += QLatin1Char('^') + QString(QChar(next));
    }
    return result;
}

QString toCaretCoding(const QString& text)
{
    QString result;
    result.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == QLatin1Char('^') && i + 1 < text.size() && isCaretPartner(text[i + 1].unicode()))
            result += QLatin1String("^ ");
        else if (c.unicode() < 0x20)
            result += QLatin1Char('^') + QString(QChar(ushort(c.unicode() + '@')));
        else
            result += c;
    }
    return result;
}
