// Which points the user took out of a map. Another depth or cycle makes a new
// list of the same points, in which they stay out.
#pragma once

#include "analysis/maps/map_point.h"

#include <set>
#include <tuple>

class LeftOutPoints {
public:
    void note(const MapPoint& point, bool used);
    bool contains(const MapPoint& point) const;

private:
    // Names alone repeat themselves from position to position.
    using Key = std::tuple<QString, double, double>;
    std::set<Key> points_;
};
