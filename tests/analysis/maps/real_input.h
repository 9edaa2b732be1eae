// Real measurements: those that the repository holds, and sets that may be read but not copied.
// The repository is TERVA_SOURCE_DIR, which only sources that name it are told.
#pragma once

#include "geometry/point3.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStringList>

#include <vector>

inline QStringList linesOfFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).remove(QChar(0xFEFF)).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

// A bolt in a wall of Amsterdam; elevations in metres as they are written.
struct RealBolt {
    QString name;
    double x, y;
    QString base, current;
    double movement() const { return (current.toDouble() - base.toDouble()) * 1000.0; }
};

inline std::vector<RealBolt> realBolts(const QString& repository)
{
    static const QRegularExpression row(
        QStringLiteral("\\('(\\d+)', ([\\d.]+), ([\\d.]+), [-\\d.]+, '[\\d-]+', ([-\\d.]+), '[\\d-]+', ([-\\d.]+)\\)"));
    std::vector<RealBolt> bolts;
    for (const QString& line : linesOfFile(repository + QStringLiteral("/demo/bolts.sql"))) {
        const QRegularExpressionMatch found = row.match(line);
        if (found.hasMatch())
            bolts.push_back({found.captured(1), found.captured(2).toDouble(), found.captured(3).toDouble(),
                             found.captured(4), found.captured(5)});
    }
    return bolts;
}

// Points of a set of "x;y;z" lines that lies beside the repository, with terms of its own; none where it does not.
inline std::vector<geometry::Point3> sharedSet(const QString& repository, const QString& name)
{
    for (const char* place : {"/../shared/data/scattered/", "/../../shared/data/scattered/"}) {
        std::vector<geometry::Point3> points;
        for (const QString& line : linesOfFile(repository + QString::fromUtf8(place) + name)) {
            const QStringList cells = line.trimmed().split(QLatin1Char(';'));
            points.push_back({cells.value(0).toDouble(), cells.value(1).toDouble(), cells.value(2).toDouble()});
        }
        if (!points.empty())
            return points;
    }
    return {};
}
