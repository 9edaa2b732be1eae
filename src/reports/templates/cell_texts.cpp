#include "reports/templates/cell_texts.h"

#include "base/placeholders.h"
#include "base/text.h"
#include "session/project_session.h"

#include <QRegularExpression>
#include <array>
#include <cmath>

namespace {

constexpr int secondsDecimals = 2;
// The session knows the year of a cycle by its last two digits.
constexpr int firstYear = 1970;

QString month(int number)
{
    static const std::array<const char*, 12> words = {"Янв.", "Фев.", "Мар.", "Апр.", "Май.", "Июн.",
                                                      "Июл.", "Авг.", "Сен.", "Окт.", "Ноя.", "Дек."};
    return QString::fromUtf8(words[size_t(number - 1)]);
}

} // namespace

QString cells::withSign(double value, int decimals)
{
    return (value > 0.0 ? QStringLiteral("+") : QString()) + fixed(value, decimals);
}

QString cells::difference(double value, int decimals)
{
    const QString text = withSign(value, decimals);
    const QString nothing = fixed(0.0, decimals);
    return text.mid(1) == nothing ? nothing : text;
}

QString cells::degrees(double angle, QChar positive, QChar negative)
{
    const double hundredthsPerDegree = 3600.0 * std::pow(10.0, secondsDecimals);
    // Rounded as a whole, so that 60 seconds are a minute more.
    const qint64 hundredths = std::llround(std::fabs(angle) * hundredthsPerDegree);
    const qint64 perMinute = qint64(hundredthsPerDegree) / 60;
    const qint64 minutes = hundredths / perMinute;
    return fill(QStringLiteral("%1%2°%3'%4\""), angle < 0.0 ? negative : positive, minutes / 60,
                padded(int(minutes % 60), 2),
                fixed(double(hundredths % perMinute) / std::pow(10.0, secondsDecimals), secondsDecimals));
}

QString cells::monthOfYear(const QDate& date)
{
    return date.isValid() ? fill(QStringLiteral("%1 %2"), month(date.month()), date.year()) : QString();
}

QString cells::fileName(const QString& name)
{
    static const QRegularExpression forbidden(QStringLiteral("[<>\\\\/\"':?*|,=]"));
    return QString(name).remove(forbidden);
}

QString cells::documentPath(const QString& folder, const QString& name)
{
    return folder + QLatin1Char('/') + fileName(name) + QStringLiteral(".docx");
}

QString cells::cycleName(int cycleId)
{
    const QStringList cycle = session().cycles.value(cycleId);
    return cycle.isEmpty() ? QString()
                           : fill(QStringLiteral("Цикл %1 (%2 - %3)"), cycle.value(0), cycle.value(1), cycle.value(2));
}

QString cells::cycleNumber(int cycleId) { return session().cycles.value(cycleId).value(0); }

QDate cells::cycleStart(int cycleId)
{
    const QStringList parts = session().cycles.value(cycleId).value(1).split(QLatin1Char('.'));
    if (parts.size() != 3)
        return {};
    int year = firstYear / 100 * 100 + parts[2].toInt();
    if (year < firstYear)
        year += 100;
    return {year, parts[1].toInt(), parts[0].toInt()};
}
