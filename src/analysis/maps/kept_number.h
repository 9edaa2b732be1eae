// A number of a map's form that starts at a key of the logs and that the user
// may set.
#pragma once

#include <optional>
#include <vector>

class KeptNumber {
public:
    // The logs are others. What the user set stays as long as their keys, in
    // whichever order, reach it; else the number is `start` until they do again.
    // Without keys nothing speaks against what was set.
    void startAt(double start, const std::vector<double>& keys);
    // By the user, with the decimals of a box; beyond all keys too.
    void set(double shown);

    // With the two decimals of a box.
    double shown() const;
    // The start is exact: its rounding may lie beyond all readings.
    double value() const { return value_; }

private:
    double exact(double shown) const;

    double start_ = 0.0;
    double value_ = 0.0;
    std::optional<double> wanted_;
};
