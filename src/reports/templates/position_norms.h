#pragma once
// The limits that hold for a position, as a report spells them out.

#include <QString>
#include <QStringList>
#include <QVector>
#include <limits>

/// A limit that is not set is infinite.
struct ReportedNorms {
    static constexpr double none = std::numeric_limits<double>::infinity();

    bool exist = false;
    double depthFrom = none, depthTo = none; ///< of the mean temperature, m
    double temperatureH = none;              ///< °C
    double temperatureBf = none;             ///< °C
    double baseDepth = none;                 ///< m
    double settlement = none;                ///< the greatest mean settlement, cm
    double relative = none;                  ///< difference of settlements by distance
    QString construction;                    ///< description of the norm

    /// Without a row nothing exists.
    static ReportedNorms load(int positionId);
};

/// One row a limit: its name, then what it means to be working, limited,
/// limited II and failed.
QVector<QStringList> normRows(const ReportedNorms& norms);

/// "Глубина %1 м." for one depth, "Интервал от %1м. до %2м." for two.
QString depthText(double from, double to);
