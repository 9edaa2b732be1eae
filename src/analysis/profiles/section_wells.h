// The thermal wells of a section: their logs in one cycle, or the difference of
// two.
#pragma once

#include "analysis/profiles/line_elements.h"
#include "elements/measures/temperature_log.h"

/// A well by the line. Its log is by depth, m below the ground mark; a reading
/// of its own that is not finite is no reading.
struct SectionWell : LineElement {
    TemperatureLog log;
    double ground() const { return z - h; }
};

/// Where the wells are looked for.
struct WellPlace {
    std::optional<int> positionId;   ///< without one in the whole base
    std::vector<LineElement> stored; ///< those of a stored profile, with their places; then nothing is looked for
};

/// The wells with their logs of the cycle; without a log they have an empty one.
/// Of several measures the first row counts. False when the server refuses.
bool loadSectionWells(int cycle, const WellPlace& place, std::vector<SectionWell>& wells);

/// The same wells, each log being current less base wherever both have a
/// reading or lie between two: at every depth of either.
TemperatureLog differenceOf(const TemperatureLog& base, const TemperatureLog& current);
void subtract(const std::vector<SectionWell>& base, std::vector<SectionWell>& current);
