// The border lines stored for a position.
#pragma once

#include "base/statement.h"
#include "geometry/point3.h"

#include <QString>
#include <utility>
#include <vector>

// Reads the contours of the position: id, position, name.
Statement contoursStatement(int positionId);

// Ids and names of the position's contours; none when the statement fails.
std::vector<std::pair<int, QString>> positionContours(int positionId);

// Vertices of a contour in the order of its parameter, z = 0.
geometry::PointList contourPoints(int contourId);
