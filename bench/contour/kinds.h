#pragma once

#include "geometry/point3.h"

// Points of each kind that a map is made of, about n of them.
namespace kinds {

using geometry::PointList;

PointList smooth(std::size_t n); // places at random in 1000 by 1000
PointList noise(std::size_t n);
PointList grid(std::size_t n);
PointList stacked(std::size_t n);
PointList slanted(std::size_t n);
PointList level(std::size_t n);
PointList edges(std::size_t n);
PointList boreholes(std::size_t n);
PointList circle(std::size_t n);

PointList longBorder(std::size_t n); // 500 sides within the places of `smooth`

} // namespace kinds
