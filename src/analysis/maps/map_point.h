// A row of a map's table of points.
#pragma once

#include <QString>
#include <vector>

struct MapPoint {
    QString name;
    double x = 0.0;
    double y = 0.0;
    std::vector<double> shown; // the columns between Y and "Использовать"; not finite: missing
    double value = 0.0;        // of the map
    bool valid = false;        // checked at start
    bool suspect = false;      // its row is red
};
