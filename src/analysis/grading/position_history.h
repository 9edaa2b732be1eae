// The measures and grades of a position cycle by cycle.
#pragma once

#include "analysis/grading/position_measures.h"

#include <QMap>

/// How many measures the position has in each cycle; cycles without any are not there.
struct MeasureCounts {
    QMap<int, int> marks, wells;
};
MeasureCounts loadMeasureCounts(int positionId);

/// Elevations of marks by element and cycle, in metres; the first row of a cycle counts.
QMap<int, QMap<int, double>> loadMarkMeasures(const QVector<int>& marks);

/// A well's measure of one cycle.
struct WellMeasure {
    int element = -1;
    QString date; ///< dd.mm.yyyy
    TemperatureLog log;
};
QVector<WellMeasure> loadWellMeasures(const QVector<int>& wells, int cycle);

struct ThermalCycle {
    int cycle = -1;
    GradeCounts wells{};
    double temperature = PositionAttributes::none; ///< mean of the wells' means, °C
    Grade grade = Grade::NoAttributes;
};
struct DeformationCycle {
    int cycle = -1;
    GradeCounts marks{};
    double settlement = PositionAttributes::none; ///< greatest of the marks, m
    Grade settlementGrade = Grade::NoAttributes;
    double relative = PositionAttributes::none; ///< greatest of the profiles
    Grade relativeGrade = Grade::NoAttributes;
};

/// What one cycle says, from its graded sides.
ThermalCycle thermalCycle(int cycle, const GradedSide& wells);
DeformationCycle deformationCycle(int cycle, const GradedSide& marks, const GradedSide& profiles);

/// A row a cycle, in the order of the session's cycles.
QVector<ThermalCycle> thermalHistory(const PositionAttributes& attributes);
QVector<DeformationCycle> deformationHistory(const PositionAttributes& attributes, int baseCycle);
