// How the marks along a line have moved against each other.
#pragma once

#include <limits>
#include <vector>

/// A mark of a deformation profile, in the order of the line; metres.
struct ProfilePoint {
    double x = 0.0, y = 0.0;
    bool valid = false; ///< measured in both cycles
    double delta = 0.0; ///< current less base
};

/// Minima start at plus, maxima at minus infinity: they stay so where no two
/// neighbours are measured.
struct ProfileFigures {
    static constexpr double infinity = std::numeric_limits<double>::infinity();

    double deltaDiffMin = infinity, deltaDiffMax = -infinity; ///< difference of neighbours' movements, m
    double relativeMin = infinity, relativeMax = -infinity;   ///< its size over their distance in plan
    double deltaMaxAbs = 0.0, deltaMeanAbs = 0.0;             ///< of the movements, m
};

/// Neighbours are neighbours of the list: a mark that was not measured parts
/// both pairs. A distance of nothing makes a relative difference of 0.
ProfileFigures computeFigures(const std::vector<ProfilePoint>& points);
