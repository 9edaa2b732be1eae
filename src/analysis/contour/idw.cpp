#include "analysis/contour/surface_model.h"

#include "geometry/point_tree.h"
#include "geometry/segment_index.h"

#include <algorithm>

namespace contour {

using geometry::GEOM_TOL;

namespace {

// A very long and narrow box would ask for a grid that no memory holds.
constexpr double kMostGridPoints = 16777216.0;

// Value at a place from the points around it, by inverse distance.
class InverseDistance {
public:
    InverseDistance(const PointList& points, double power, int neighbours)
        : points_(points),
          tree_(points),
          power_(power),
          count_(neighbours >= 1 ? std::min(static_cast<std::size_t>(neighbours), points.size()) : points.size())
    { }

    double valueAt(double x, double y)
    {
        tree_.nearestByManhattan(x, y, count_, &neighbours_);
        const Point3& nearest = point(neighbours_.front());
        if (std::fabs(nearest.x - x) + std::fabs(nearest.y - y) < GEOM_TOL)
            return nearest.z;
        double weighted = 0.0;
        double weights = 0.0;
        for (int i : neighbours_) {
            const double d = geometry::planDistance(point(i), {x, y, 0.0});
            if (d < GEOM_TOL)
                return point(i).z;
            const double weight = power_ == 2.0 ? 1.0 / (d * d) : 1.0 / std::pow(d, power_);
            weighted += weight * point(i).z;
            weights += weight;
        }
        return weights < GEOM_TOL ? nearest.z : weighted / weights;
    }

private:
    const Point3& point(int i) const { return points_[static_cast<std::size_t>(i)]; }

    const PointList& points_;
    geometry::PointTree tree_;
    double power_;
    std::size_t count_;
    std::vector<int> neighbours_;
};

} // namespace

bool SurfaceModel::gridBox(geometry::Box3* box)
{
    if (points.empty())
        return false;
    if (boundary.size() < 3 && triangulated)
        boundaryFromHull();
    *box = geometry::boxOf(boundary.size() >= 3 ? boundary : points);
    return box->width() > 0.0 && box->height() > 0.0;
}

PointList SurfaceModel::idwGridPoints(double power, int neighbours, const Tick& tick)
{
    geometry::Box3 box;
    if (!gridBox(&box))
        return {};
    const double smaller = std::min(box.width(), box.height());
    const double step = std::min(smaller / 50.0, 0.2 * smaller / std::sqrt(static_cast<double>(points.size())));
    if (!((box.width() / step + 1.0) * (box.height() / step + 1.0) <= kMostGridPoints))
        return {};

    const bool limited = boundary.size() >= 3;
    const geometry::SegmentIndex border(boundary, true);
    InverseDistance surface(points, power, neighbours);
    PointList grid;
    for (int i = 0; box.minimum.x + i * step <= box.maximum.x; ++i) {
        const double x = box.minimum.x + i * step;
        if (!goesOn(tick, (x - box.minimum.x) / box.width()))
            return {};
        for (int j = 0; box.minimum.y + j * step <= box.maximum.y; ++j) {
            const double y = box.minimum.y + j * step;
            if (limited && !border.pointInPolygon({x, y, 0.0}))
                continue;
            grid.push_back({x, y, surface.valueAt(x, y)});
        }
    }
    return grid;
}

} // namespace contour
