#include "elements/element_id.h"

#include <QRegularExpression>

std::optional<int> leadingInteger(const QString& text)
{
    static const QRegularExpression number(QStringLiteral("^[ \\t\\n\\v\\f\\r]*([+-]?[0-9]+)"));
    const QRegularExpressionMatch match = number.match(text);
    bool fits = false;
    const int value = match.captured(1).toInt(&fits);
    return match.hasMatch() && fits ? std::optional<int>(value) : std::nullopt;
}
