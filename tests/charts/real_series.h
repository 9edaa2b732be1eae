// Real measurements of tests/data as the series that charts take.
#pragma once

#include "base/written_date.h"
#include "charts/measure_chart.h"
#include "charts/temperature_chart.h"

#include <QDir>
#include <QFile>

inline QString testData(const QString& path) { return QStringLiteral(TERVA_SOURCE_DIR "/tests/data/") + path; }

inline QStringList dataLines(const QString& path)
{
    QFile file(testData(path));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(QRegExp(QStringLiteral("\r?\n")), Qt::SkipEmptyParts);
}

inline double numberOf(QString text)
{
    bool ok = false;
    const double number = text.replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&ok);
    return ok ? number : std::numeric_limits<double>::infinity();
}

/// The marks of one element, in metres above its first one.
inline TimeSeries settlement(const QString& file, const QString& element)
{
    TimeSeries series;
    double first = 0.0;
    for (const QString& line : dataLines(QStringLiteral("settlement/") + file)) {
        const QStringList cells = line.split(QLatin1Char(';'));
        if (cells[0] != element)
            continue;
        const QDateTime date = writtenMoment(QDate::fromString(cells[1], QStringLiteral("dd.MM.yyyy")), QTime(12, 0));
        if (series.isEmpty())
            first = numberOf(cells[2]);
        series.insert(date, numberOf(cells[2]) - first);
    }
    return series;
}

/// One row of a file of thermal wells.
struct WellReading {
    QString well;
    QDateTime date;
    double air = 0.0;
    TemperatureCurve profile;
};

inline QVector<WellReading> wellReadings(const QString& file)
{
    QVector<WellReading> readings;
    QStringList header;
    for (const QString& line : dataLines(QStringLiteral("boreholes/") + file)) {
        const QStringList cells = line.split(QLatin1Char(';'));
        if (cells[0] == QStringLiteral("Имя")) {
            header = cells;
            continue;
        }
        WellReading reading{cells[0],
                            writtenMoment(QDate::fromString(cells[2], QStringLiteral("dd.MM.yyyy")), QTime(12, 0)),
                            numberOf(cells[4]),
                            {}};
        for (int i = 5; i < qMin(header.size(), cells.size()); ++i) {
            if (!cells[i].isEmpty())
                reading.profile[numberOf(header[i])] = numberOf(cells[i]);
        }
        readings.append(reading);
    }
    return readings;
}

/// Up to `most` profiles of one well.
inline QVector<WellReading> readingsOf(const QString& file, const QString& well, int most)
{
    QVector<WellReading> found;
    for (const WellReading& reading : wellReadings(file)) {
        if (reading.well == well && found.size() < most)
            found.append(reading);
    }
    return found;
}

/// Depths turned into elevations below a head.
inline TemperatureCurve byElevation(const TemperatureCurve& profile, double head)
{
    TemperatureCurve curve;
    for (const auto& [depth, temperature] : profile)
        curve[head - depth] = temperature;
    return curve;
}

inline QString patternFolder() { return QStringLiteral(TERVA_SOURCE_DIR "/share/pats"); }
