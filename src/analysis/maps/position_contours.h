// The border lines stored for a position.
#pragma once

#include "geometry/point3.h"

#include <QString>
#include <utility>
#include <vector>

// Ids and names of the position's contours; none when the statement fails.
std::vector<std::pair<int, QString>> positionContours(int positionId);

// Vertices of a contour in the order of its parameter, z = 0.
geometry::PointList contourPoints(int contourId);
