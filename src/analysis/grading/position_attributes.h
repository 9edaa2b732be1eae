// The norms of a position: its row of positions_attributes.
#pragma once

#include "base/statement.h"

#include <QString>
#include <limits>
#include <vector>

/// Infinite: not set. Without a row the limits of the thermal grade are those
/// that stand here.
struct PositionAttributes {
    static constexpr double none = std::numeric_limits<double>::infinity();

    bool exist = false;
    bool unread = false; ///< the server did not say whether there is a row
    int id = -1;         ///< of the row
    int positionId = -1;
    int normId = -1;
    double deepMin = 0.0;        ///< upper end of the depths of the mean, m
    double deepMax = none;       ///< lower end, m
    double temperatureH = -0.5;  ///< of the solid state, °C
    double temperatureBf = -0.1; ///< where freezing begins, °C
    double baseDepth = 0.0;      ///< of the foundation's base, m
    double relativeDiff = none;  ///< relative settlement
    double averageDiff = none;   ///< settlement, centimetres
    double roll = none;
    double height = none; ///< of the building, m
};

/// One row of many: a position that has several counts with the last one written.
/// A refused statement gives attributes that do not exist and are not stored either.
PositionAttributes loadAttributes(int positionId);

/// Inserts or updates the row, its id being told then. False when the server refuses.
bool storeAttributes(PositionAttributes& attributes, QString* problem = nullptr);
bool deleteAttributes(int positionId, QString* problem = nullptr);

/// A limit of the code of practice; infinite where it has none.
struct Norm {
    int id = -1;
    QString code, description;
    double relativeDiff = PositionAttributes::none;
    double averageDiff = PositionAttributes::none;
    double roll = PositionAttributes::none;
};
std::vector<Norm> loadNorms();
