// What is odd about the points that a map would be made of, before it is made.
#pragma once

#include "analysis/maps/map_point.h"

#include <set>

struct PointRemarks {
    QString text;            // Russian; empty when there is nothing to tell
    std::set<size_t> marked; // numbers of the points that are meant
};

// Points at one place whose values differ, and fewer than three points.
// `used` are the numbers of the points in use, ascending.
PointRemarks remarksOn(const std::vector<MapPoint>& points, const std::vector<size_t>& used);
