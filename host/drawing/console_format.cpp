#include "console_format.h"

#include "typed_answers.h"

#include <nrx/editor.h>

namespace {

struct Conversion {
    bool left = false, zeros = false, plus = false, blank = false;
    int width = 0;
    int precision = -1;
    int longs = 0; // l, ll; z and j count as ll
    bool half = false;
    wchar_t letter = 0;
};

class Composer {
public:
    Composer(const wchar_t* format, va_list arguments) : at_(format) { va_copy(arguments_, arguments); }
    ~Composer() { va_end(arguments_); }
    Composer(const Composer&) = delete;
    Composer& operator=(const Composer&) = delete;

    QString text()
    {
        while (*at_) {
            if (*at_ == L'%')
                convert();
            else
                appendWide(at_++, 1);
        }
        return out_;
    }

private:
    void appendWide(const wchar_t* from, int count) { out_ += QString::fromWCharArray(from, count); }
    void convert();
    void readFlags(Conversion& conversion);
    int readNumber();
    void readLength(Conversion& conversion);
    bool write(const Conversion& conversion);
    void pad(const Conversion& conversion, const QString& text, bool number);
    void padNumber(const Conversion& conversion, QString digits);
    qint64 signedArgument(const Conversion& conversion);
    quint64 unsignedArgument(const Conversion& conversion);
    QString stringArgument(const Conversion& conversion);

    const wchar_t* at_;
    va_list arguments_;
    QString out_;
};

void Composer::convert()
{
    const wchar_t* begin = at_++;
    Conversion conversion;
    readFlags(conversion);
    conversion.width = readNumber();
    if (conversion.width < 0) {
        conversion.left = true;
        conversion.width = -conversion.width;
    }
    if (*at_ == L'.') {
        ++at_;
        conversion.precision = readNumber();
    }
    readLength(conversion);
    conversion.letter = *at_;
    if (*at_)
        ++at_;
    if (!write(conversion))
        appendWide(begin, int(at_ - begin));
}

void Composer::readFlags(Conversion& conversion)
{
    for (;; ++at_) {
        if (*at_ == L'-')
            conversion.left = true;
        else if (*at_ == L'0')
            conversion.zeros = true;
        else if (*at_ == L'+')
            conversion.plus = true;
        else if (*at_ == L' ')
            conversion.blank = true;
        else
            return;
    }
}

int Composer::readNumber()
{
    if (*at_ == L'*') {
        ++at_;
        return va_arg(arguments_, int);
    }
    int number = 0;
    for (; *at_ >= L'0' && *at_ <= L'9'; ++at_)
        if (number < 100000)
            number = number * 10 + int(*at_ - L'0');
    return number;
}

void Composer::readLength(Conversion& conversion)
{
    for (;; ++at_) {
        if (*at_ == L'l')
            ++conversion.longs;
        else if (*at_ == L'z' || *at_ == L'j')
            conversion.longs = 2;
        else if (*at_ == L'h')
            conversion.half = true;
        else
            return;
    }
}

qint64 Composer::signedArgument(const Conversion& conversion)
{
    if (conversion.longs >= 2)
        return va_arg(arguments_, long long);
    return conversion.longs == 1 ? va_arg(arguments_, long) : va_arg(arguments_, int);
}

quint64 Composer::unsignedArgument(const Conversion& conversion)
{
    if (conversion.longs >= 2)
        return va_arg(arguments_, unsigned long long);
    return conversion.longs == 1 ? va_arg(arguments_, unsigned long) : va_arg(arguments_, unsigned);
}

QString Composer::stringArgument(const Conversion& conversion)
{
    QString text;
    if (conversion.half) {
        const char* narrow = va_arg(arguments_, const char*);
        text = narrow ? QString::fromUtf8(narrow) : QStringLiteral("(null)");
    } else {
        const wchar_t* wide = va_arg(arguments_, const wchar_t*);
        text = wide ? QString::fromWCharArray(wide) : QStringLiteral("(null)");
    }
    return conversion.precision >= 0 ? text.left(conversion.precision) : text;
}

bool Composer::write(const Conversion& conversion)
{
    const int decimals = conversion.precision < 0 ? 6 : conversion.precision;
    switch (conversion.letter) {
    case L'%': out_ += QLatin1Char('%'); return true;
    case L's':
    case L'S': pad(conversion, stringArgument(conversion), false); return true;
    case L'c': {
        const uint letter = uint(va_arg(arguments_, int));
        pad(conversion, QString::fromUcs4(&letter, 1), false);
        return true;
    }
    case L'd':
    case L'i': padNumber(conversion, QString::number(signedArgument(conversion))); return true;
    case L'u': padNumber(conversion, QString::number(unsignedArgument(conversion))); return true;
    case L'x': padNumber(conversion, QString::number(unsignedArgument(conversion), 16)); return true;
    case L'X': padNumber(conversion, QString::number(unsignedArgument(conversion), 16).toUpper()); return true;
    case L'f':
    case L'F': padNumber(conversion, QString::number(va_arg(arguments_, double), 'f', decimals)); return true;
    case L'e': padNumber(conversion, QString::number(va_arg(arguments_, double), 'e', decimals)); return true;
    case L'g': padNumber(conversion, QString::number(va_arg(arguments_, double), 'g', decimals)); return true;
    default: return false;
    }
}

void Composer::padNumber(const Conversion& conversion, QString digits)
{
    if (!digits.startsWith(QLatin1Char('-')) && (conversion.plus || conversion.blank))
        digits.prepend(QLatin1Char(conversion.plus ? '+' : ' '));
    pad(conversion, digits, true);
}

void Composer::pad(const Conversion& conversion, const QString& text, bool number)
{
    const bool zeros = number && conversion.zeros && !conversion.left;
    if (conversion.left || !zeros) {
        out_ += conversion.left ? text.leftJustified(conversion.width) : text.rightJustified(conversion.width);
        return;
    }
    const int sign = !text.isEmpty() && !text.at(0).isDigit() ? 1 : 0;
    out_ += text.left(sign) + text.mid(sign).rightJustified(conversion.width - sign, QLatin1Char('0'));
}

} // namespace

QString composeConsoleText(const wchar_t* format, va_list arguments)
{
    return format ? Composer(format, arguments).text() : QString();
}

int ncutPrintf(const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const QString text = composeConsoleText(format, arguments);
    va_end(arguments);
    printToConsole(text);
    return text.size();
}
