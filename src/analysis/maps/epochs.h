// The two states between which something has changed, and how tables name them.
#pragma once

#include <QString>
#include <optional>

struct Epochs {
    int base = -1;               // cycle
    int current = -1;            // cycle
    std::optional<int> forecast; // stands in the current cycle's place
};

// The title of a column of elevations, from what the box of cycles shows of the
// cycle: its number with the blank behind it.
QString cycleColumn(const QString& shown);
// The title of a forecast's column; `name` is nothing when the list of
// forecasts lacks it.
QString forecastColumn(const std::optional<QString>& name);
// The name of a forecast in the session's list.
std::optional<QString> forecastName(int forecast);
