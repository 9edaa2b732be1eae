// The deformation marks of a map: how far each has moved between two states.
#pragma once

#include "analysis/maps/epochs.h"
#include "analysis/maps/map_place.h"

#include <limits>
#include <set>

// Marks nearer to each other in plan spoil a map, metres.
constexpr double DEGENERATE_DISTANCE = 0.1;

// One mark on the map. What is missing is +infinity.
struct DeformationRow {
    static constexpr double none = std::numeric_limits<double>::infinity();

    QString name;
    int element_id = -1;
    double x = 0.0;
    double y = 0.0;
    double base = none;     // elevation, m
    double current = none;  // elevation in the current cycle or in the forecast, m
    double movement = none; // mm, negative downwards
    bool valid = false;     // both elevations are known
};

class DeformationMarks {
public:
    // Reads the marks, then both elevations of all of them. What was refused or
    // stopped leaves no mark.
    Loaded load(const MapPlace& place, const Epochs& epochs, const MapProgress& progress = {});

    // Marks with several elevations in one of the states: they have no movement.
    const QStringList& repeated() const { return repeated_; }

    std::vector<DeformationRow> rows;

private:
    QStringList repeated_;
};

// The numbers of the marks that have another one at less than
// DEGENERATE_DISTANCE, measured or not.
std::set<size_t> degenerateMarks(const std::vector<DeformationRow>& rows);
