// The thermal wells of a map: their logs of one cycle, each as one number.
#pragma once

#include "analysis/maps/map_place.h"
#include "analysis/maps/well_logs.h"

// One well on the map. The value is degrees Celsius.
struct WellRow {
    QString name;
    double x = 0.0;
    double y = 0.0;
    double value = 0.0;
    bool valid = false;
};

class TemperatureWells {
public:
    // Reads the wells with a log in the cycle. A refused statement leaves no
    // well and returns false.
    bool load(const MapPlace& place, int cycleId);

    // Sets value and validity of every row.
    void sample(const Sampling& sampling);

    // The log of a well by depth or by elevation.
    const TemperatureLog& log(size_t well, Sampling::Mode mode) const { return logs_.at(well).by(mode); }
    std::vector<double> keys(Sampling::Mode mode) const { return keys_.by(mode); }

    std::vector<WellRow> rows;

private:
    std::vector<WellLogs> logs_; // a row
    LogKeys keys_;
};

// The label of a value: two decimals, a plus sign before values above 0.
QString valueLabel(double value);
