#include "shown_number.h"

#include <QLocale>
#include <cmath>

namespace {

QLocale plainLocale()
{
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
    return locale;
}

} // namespace

QString shownNumber(double value, int decimals) { return plainLocale().toString(value, 'f', decimals); }

QString shownExact(double value)
{
    const QLocale locale = plainLocale();
    QString text = locale.toString(value, 'f', 6);
    while (text.endsWith(QLatin1Char('0')))
        text.chop(1);
    if (text.endsWith(locale.decimalPoint()))
        text.chop(1);
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

bool readNumber(const QString& text, double& value)
{
    QString plain = text.trimmed();
    plain.replace(QLatin1Char(','), QLatin1Char('.'));
    bool good = false;
    const double read = plain.toDouble(&good);
    if (good && std::isfinite(read))
        value = read;
    return good && std::isfinite(read);
}
