// The thermal wells of a difference map: how the temperature of each has
// changed between two cycles.
#pragma once

#include "analysis/maps/epochs.h"
#include "analysis/maps/map_place.h"
#include "analysis/maps/well_logs.h"

// One well on the map, degrees Celsius.
struct DifferenceRow {
    QString name;
    double x = 0.0;
    double y = 0.0;
    double base = 0.0;
    double difference = 0.0; // current less base
    bool valid = false;      // a number in both cycles
};

class TemperatureDifferences {
public:
    // Reads the wells, then both logs of all of them. What was refused or stopped
    // leaves no well.
    Loaded load(const MapPlace& place, const Epochs& cycles, const MapProgress& progress = {});

    // Sets the numbers and the validity of every row.
    void sample(const Sampling& sampling);

    // What the table of values says of a well at a depth or elevation: base,
    // "/", current; "~" stands before what lies between two readings, "--" for
    // none.
    QString cell(size_t well, Sampling::Mode mode, double key) const;
    std::vector<double> keys(Sampling::Mode mode) const { return keys_.by(mode); }
    // Wells with several logs in one of the cycles; the first one counts.
    const QStringList& repeated() const { return repeated_; }

    std::vector<DifferenceRow> rows;

private:
    struct Pair {
        WellLogs base, current;
    };
    std::vector<Pair> logs_; // a row
    LogKeys keys_;
    QStringList repeated_;
};

// The labels of a well: the temperature with a plus sign from 0 on, and the
// difference the same behind a "d".
QString baseLabel(double temperature);
QString differenceLabel(double difference);
