#include "base/placeholders.h"

namespace {

bool isDigit(QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); }

} // namespace

placeholders::Marker placeholders::markerAt(const QString& text, int at, int count)
{
    if (at + 1 >= text.size() || !isDigit(text.at(at + 1)))
        return {};
    const int one = text.at(at + 1).digitValue();
    if (one != 0 && at + 2 < text.size() && isDigit(text.at(at + 2))) {
        const int two = one * 10 + text.at(at + 2).digitValue();
        if (two <= count)
            return {two, 3};
    }
    if (one >= 1 && one <= count)
        return {one, 2};
    return {};
}

QString fill(const QString& text, const QStringList& values)
{
    QString filled;
    filled.reserve(text.size());
    int copied = 0;
    for (int at = text.indexOf(QLatin1Char('%')); at >= 0; at = text.indexOf(QLatin1Char('%'), at)) {
        const placeholders::Marker marker = placeholders::markerAt(text, at, values.size());
        if (marker.number == 0) {
            ++at;
            continue;
        }
        filled += text.midRef(copied, at - copied);
        filled += values.at(marker.number - 1);
        at += marker.length;
        copied = at;
    }
    filled += text.midRef(copied);
    return filled;
}
