#include "geometry/polyline.h"

#include "geometry/segment.h"

#include <algorithm>

namespace geometry {

namespace {

// Segment and the part of it that a parameter stands for.
struct Step {
    std::size_t segment = 0;
    double t = 0.0;
};

Step stepAt(double parameter, std::size_t segments)
{
    if (!(parameter > 0.0))
        return {};
    if (parameter >= static_cast<double>(segments))
        return {segments - 1, 1.0};
    const double whole = std::floor(parameter);
    return {static_cast<std::size_t>(whole), parameter - whole};
}

} // namespace

Polyline::Polyline(PointList vertices, bool closed) : vertices_(std::move(vertices)), closed_(closed) { }

std::size_t Polyline::segmentCount() const
{
    if (vertices_.size() < 2)
        return 0;
    return closed_ ? vertices_.size() : vertices_.size() - 1;
}

const Point3& Polyline::segmentEnd(std::size_t segment) const
{
    return vertices_[segment + 1 < vertices_.size() ? segment + 1 : 0];
}

Point3 Polyline::pointAt(double parameter) const
{
    const std::size_t segments = segmentCount();
    if (segments == 0)
        return vertices_.empty() ? Point3() : vertices_.front();
    const Step step = stepAt(parameter, segments);
    if (step.t == 1.0)
        return segmentEnd(step.segment);
    return between(segmentStart(step.segment), segmentEnd(step.segment), step.t);
}

Polyline::Place Polyline::closest(const Point3& p) const
{
    Place best;
    if (!vertices_.empty())
        best.point = vertices_.front();
    for (std::size_t i = 0, count = segmentCount(); i < count; ++i) {
        const ClosestPlace place = closestOnSegment(segmentStart(i), segmentEnd(i), p);
        if (place.distance < best.distance)
            best = {place.point, static_cast<double>(i) + place.t, place.distance};
    }
    return best;
}

double Polyline::lengthAt(double parameter) const
{
    const std::size_t segments = segmentCount();
    if (segments == 0)
        return 0.0;
    const Step step = stepAt(parameter, segments);
    double length = 0.0;
    for (std::size_t i = 0; i < step.segment; ++i)
        length += planDistance(segmentStart(i), segmentEnd(i));
    return length + planDistance(segmentStart(step.segment), segmentEnd(step.segment)) * step.t;
}

} // namespace geometry
