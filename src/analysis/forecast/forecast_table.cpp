#include "analysis/forecast/forecast_table.h"

#include "base/dates.h"
#include "base/placeholders.h"
#include "base/text.h"

#include <cmath>

namespace {

QString textOf(double metres, double factor = 1.0)
{
    return std::isfinite(metres) ? fixed(metres * factor, 4) : QStringLiteral("--");
}

} // namespace

int columnOf(ForecastColumn column, int cycles) { return 1 + cycles + int(column); }

QStringList forecastTitles(const QStringList& cycleNumbers)
{
    QStringList titles{QStringLiteral("Имя")};
    for (const QString& number : cycleNumbers)
        titles << fill("Цикл %1", number);
    return titles << QStringLiteral("Исх.Отметка\nм") << QStringLiteral("СКО \n мм") << QStringLiteral("Прогноз\n м")
                  << QStringLiteral("Деформация\n мм") << QStringLiteral("Измерения") << QStringLiteral("Тренд")
                  << QStringLiteral("Число\nэпох") << QStringLiteral("r²") << QStringLiteral("Станд. ошибка\nмм");
}

QStringList forecastCells(const MarkMeasures& mark, const MarkForecast& forecast, const QVector<int>& cycles)
{
    QStringList cells{mark.name};
    for (int cycle : cycles)
        cells << textOf(mark.values.value(cycle, MarkForecast::none));
    cells << textOf(forecast.base) << textOf(forecast.deviation, 1000.0) << forecastText(forecast)
          << textOf(forecast.deformation, 1000.0) << QString() << QString();
    const LineQuality& quality = forecast.quality;
    return cells << QString::number(forecast.samples.size()) << textOf(quality.determination)
                 << textOf(quality.standardError, 1000.0);
}

QString forecastText(const MarkForecast& forecast) { return textOf(forecast.value); }

QString shortageText(int without, int all)
{
    if (without == 0)
        return {};
    return fill("Нет прогноза: в выбранных циклах меньше %1 дней измерений (марок: %2 из %3)", kLeastMeasures, without,
                all);
}

QString defaultForecastName(const QDate& day)
{
    return fill("Прогноз на дату %1", dateText(day, QStringLiteral("dd-MM-yyyy")));
}

QString forecastCsv(const QVector<ExportedForecast>& rows, const QDate& day, const QString& serial)
{
    const QString date = dateText(day, QStringLiteral("dd.MM.yyyy"));
    QString text = QStringLiteral("Имя;Дата;Отметка;SN прибора\n");
    for (const ExportedForecast& row : rows)
        text += QStringList{row.name, date, row.value, serial}.join(QLatin1Char(';')) + QLatin1Char('\n');
    return text;
}
