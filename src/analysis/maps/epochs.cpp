#include "analysis/maps/epochs.h"

#include "session/project_session.h"

QString cycleColumn(const QString& shown)
{
    return QStringLiteral("Цикл %1 (м)").arg(shown.left(shown.indexOf(QLatin1Char('-'))));
}

QString forecastColumn(const std::optional<QString>& name)
{
    return name ? QStringLiteral("Прогноз \n ") + *name : QStringLiteral("Прогноз");
}

std::optional<QString> forecastName(int forecast)
{
    enum Place { Date, Name };
    const auto known = session().predictions.constFind(forecast);
    if (known == session().predictions.constEnd())
        return std::nullopt;
    return known->value(Name);
}
