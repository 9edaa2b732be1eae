// The log of a thermal well, by depth and by elevation, and how it becomes one
// number.
#pragma once

#include "elements/measures/temperature_log.h"

#include <set>

// How a log becomes one number.
struct Sampling {
    enum Mode { Depth, Elevation, Average };
    Mode mode = Depth;
    double key = 0.0;            // depth or elevation, metres
    double from = 0.0, to = 0.0; // depths of the mean, metres
    bool toEnd = false;          // the mean goes down to the bottom
    bool bottom = false;         // overrides all: the last reading of the well
};

class WellLogs {
public:
    WellLogs() = default;
    // The text of a measure; `ground` is the well's z less the height of its pipe.
    WellLogs(const QString& stored, double ground);

    // By depth, or by elevation: the ground less the depth.
    const TemperatureLog& by(Sampling::Mode mode) const { return mode == Sampling::Elevation ? elevations_ : depths_; }
    // False where the log gives no number; `value` may then be anything.
    bool sample(const Sampling& sampling, double& value) const;

private:
    TemperatureLog depths_, elevations_;
};

// All keys that occur in some logs.
class LogKeys {
public:
    void add(const WellLogs& logs);
    // In the order of a table of values: depths ascending, elevations
    // descending. Near-equal keys stay apart.
    std::vector<double> by(Sampling::Mode mode) const;

private:
    std::set<double> depths_, elevations_;
};
