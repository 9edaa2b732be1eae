#include "analysis/maps/left_out_points.h"

void LeftOutPoints::note(const MapPoint& point, bool used)
{
    const Key key(point.name, point.x, point.y);
    if (used)
        points_.erase(key);
    else
        points_.insert(key);
}

bool LeftOutPoints::contains(const MapPoint& point) const
{
    return points_.count(Key(point.name, point.x, point.y)) > 0;
}
