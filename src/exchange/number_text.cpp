#include "exchange/number_text.h"

#include <limits>

namespace {

bool isDigit(const QString& text, int at)
{
    return at < text.size() && text[at] >= QLatin1Char('0') && text[at] <= QLatin1Char('9');
}

bool isOneOf(const QString& text, int at, char first, char second)
{
    return at < text.size() && (text[at] == QLatin1Char(first) || text[at] == QLatin1Char(second));
}

int afterDigits(const QString& text, int at)
{
    while (isDigit(text, at))
        ++at;
    return at;
}

// Where the number without a sign that starts at `at` ends; `at` when none does.
int afterNumber(const QString& text, int at)
{
    const int whole = afterDigits(text, at);
    if (isOneOf(text, whole, '.', ',') && isDigit(text, whole + 1))
        return afterDigits(text, whole + 1);
    return whole;
}

int afterBlanks(const QString& text, int at)
{
    while (at < text.size() && text[at].isSpace())
        ++at;
    return at;
}

// Dashes that people and spreadsheets write for a minus.
bool isMinus(QChar sign)
{
    static const QString minuses = QStringLiteral("-\u2010\u2011\u2012\u2013\u2014\u2212\uFE58\uFE63\uFF0D");
    return minuses.contains(sign);
}

// A minus before the digits, blanks between them allowed.
bool minusBefore(const QString& text, int start)
{
    while (start > 0 && text[start - 1].isSpace())
        --start;
    return start > 0 && isMinus(text[start - 1]);
}

// Three digits behind a blank or an apostrophe, or a second decimal sign.
bool groupBehind(const QString& text, int end)
{
    if (isOneOf(text, end, '.', ','))
        return isDigit(text, end + 1);
    static const QString marks = QStringLiteral("'\u2019_");
    if (end >= text.size() || !(text[end].isSpace() || marks.contains(text[end])))
        return false;
    return afterDigits(text, end + 1) == end + 4;
}

// "e-3" or "·10"; the decimal sign of "5.e3" is not part of what was found.
bool exponentBehind(const QString& text, int end)
{
    int at = isOneOf(text, end, '.', ',') ? end + 1 : end;
    if (isOneOf(text, at, 'e', 'E')) {
        ++at;
        return isDigit(text, at + (at < text.size() && (text[at] == QLatin1Char('+') || isMinus(text[at]))));
    }
    static const QString times = QStringLiteral("*\u00B7\u00D7\u22C5xX\u0445\u0425");
    at = afterBlanks(text, at);
    return at < text.size() && times.contains(text[at])
        && text.midRef(afterBlanks(text, at + 1)).startsWith(QLatin1String("10"));
}

int lossesAround(const QString& text, SignOf sign, int start, int end)
{
    const bool noSign = isDigit(text, start) || isOneOf(text, start, '.', ',');
    return (sign == SignOf::Number && noSign && minusBefore(text, start) ? signLost : nothingLost)
        | (groupBehind(text, end) ? groupLost : nothingLost) | (exponentBehind(text, end) ? exponentLost : nothingLost);
}

} // namespace

bool findNumber(const QString& text, SignOf sign, double& number, int* losses)
{
    for (int start = 0; start < text.size(); ++start) {
        const bool signedStart = sign == SignOf::Number && isOneOf(text, start, '+', '-');
        const int digits = signedStart ? start + 1 : start;
        const int end = afterNumber(text, digits);
        if (end == digits)
            continue;
        bool ok = false;
        number = text.mid(start, end - start).replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&ok);
        if (!ok)
            number = std::numeric_limits<double>::infinity();
        if (losses)
            *losses = lossesAround(text, sign, start, end);
        return true;
    }
    return false;
}
