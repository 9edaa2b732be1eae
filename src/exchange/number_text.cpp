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

} // namespace

bool findNumber(const QString& text, SignOf sign, double& number)
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
        return true;
    }
    return false;
}
