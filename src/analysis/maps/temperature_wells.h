// The thermal wells of a map: their logs of one cycle, and how a log becomes
// one number.
#pragma once

#include "base/statement.h"
#include "elements/measures/temperature_log.h"
#include "geometry/point3.h"

#include <QString>
#include <QStringList>
#include <set>
#include <vector>

// One well on the map. The value is degrees Celsius.
struct WellRow {
    QString name;
    double x = 0.0;
    double y = 0.0;
    double value = 0.0;
    bool valid = false;
};

// Which wells are taken.
struct WellSelection {
    bool byPosition = true; // all wells of the position, else those inside the border
    int positionId = -1;
    int cycleId = -1;
    geometry::PointList border; // corners in plan, for the whole database
    QStringList states;         // state_id; none takes every state
};

// How a log becomes one number.
struct Sampling {
    enum Mode { Depth, Elevation, Average };
    Mode mode = Depth;
    double key = 0.0;            // depth or elevation, metres
    double from = 0.0, to = 0.0; // depths of the mean, metres
    bool toEnd = false;          // the mean goes down to the bottom
    bool bottom = false;         // overrides all: the last reading of the well
};

class TemperatureWells {
public:
    // Reads the wells with a log in the cycle. A refused statement leaves no
    // well and returns false.
    bool load(const WellSelection& selection);

    // Sets value and validity of every row.
    void sample(const Sampling& sampling);

    // The log of a well by depth, or by elevation: z - h - depth, the ground
    // mark being z less the height of the pipe.
    const TemperatureLog& log(size_t well, Sampling::Mode mode) const;
    // All keys that occur in the logs, in the order of the table of values:
    // depths ascending, elevations descending. Near-equal keys stay apart.
    std::vector<double> keys(Sampling::Mode mode) const;

    std::vector<WellRow> rows;

private:
    void add(const QString& name, double x, double y, double ground, const QString& stored);

    std::vector<TemperatureLog> depthLogs_;
    std::vector<TemperatureLog> elevationLogs_;
    std::set<double> depths_, elevations_;
};

// " and (...) " with the chosen states, or nothing for none.
Statement stateCondition(const QStringList& states);

// The label of a value: two decimals, a plus sign before values above 0.
QString valueLabel(double value);
