#include "geometry/point3.h"

#include <algorithm>

namespace geometry {

Box3 boxOf(const PointList& points)
{
    Box3 box;
    for (const Point3& p : points) {
        box.minimum.x = std::min(box.minimum.x, p.x);
        box.minimum.y = std::min(box.minimum.y, p.y);
        box.minimum.z = std::min(box.minimum.z, p.z);
        box.maximum.x = std::max(box.maximum.x, p.x);
        box.maximum.y = std::max(box.maximum.y, p.y);
        box.maximum.z = std::max(box.maximum.z, p.z);
    }
    return box;
}

} // namespace geometry
