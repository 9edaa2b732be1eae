#pragma once
// All that the passport of a thermal well tells, read from the database.

#include "charts/temperature_chart.h"
#include "elements/measures/temperature_log.h"

#include <QDate>
#include <QPixmap>

struct WellRecord {
    static constexpr double none = std::numeric_limits<double>::infinity();

    struct Measure {
        QDate date;
        QString serial;
        QString cycle; ///< its number
        int cycleId = -1;
        TemperatureLog log;
    };
    int id = -1;
    int positionId = -1;
    QString name, position;
    /// Metres; infinite where nothing is stored.
    double x = none, y = none, z = none, h = none, depth = none, projectedDepth = none;
    QVector<Measure> measures; ///< by date
    TemperatureLimits limits;  ///< of the position
    QVector<GeologyLayer> layers;
    QByteArray layout, photo, column; ///< pictures as they are stored: PNG files

    /// The elevation of the ground; what is not stored counts as 0.
    double ground() const;
    /// Of the deepest sensor of all measures; infinite without any.
    double sensorDepth() const;
    /// All depths of the measures.
    QVector<double> depths() const;

    /// False when there is no such well.
    bool load(int elementId);
    /// Leaves the measures of these cycles.
    void keepCycles(const QVector<int>& cycles);
};

/// The temperatures of all measures by elevation, with or without the ground.
QPixmap temperaturePicture(const WellRecord& well, bool withGeology);
