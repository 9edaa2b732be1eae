#pragma once

#include "geometry/point3.h"

namespace geometry {

// A chain of straight segments with the parameter that the CAD host uses: whole
// numbers are vertices, one unit is one segment whatever its length. A closed
// polyline has one segment more, from its last vertex back to the first.
class Polyline {
public:
    struct Place {
        Point3 point;
        double parameter = 0.0;
        double distance = INFINITY; // in plan
    };

    Polyline() = default;
    Polyline(PointList vertices, bool closed);

    const PointList& vertices() const { return vertices_; }
    bool isClosed() const { return closed_; }

    // 0 for fewer than two vertices.
    std::size_t segmentCount() const;
    const Point3& segmentStart(std::size_t segment) const { return vertices_[segment]; }
    const Point3& segmentEnd(std::size_t segment) const;
    double endParameter() const { return static_cast<double>(segmentCount()); }

    // Parameters outside the line are taken to its ends. A polyline without
    // segments answers with its only vertex, or the origin.
    Point3 pointAt(double parameter) const;

    // Nearest in plan; of equally near places the first along the line. On a
    // polyline without segments the distance is infinite.
    Place closest(const Point3& p) const;

    // Length in plan from the start up to the parameter, and of the whole line.
    double lengthAt(double parameter) const;
    double length() const { return lengthAt(endParameter()); }

private:
    PointList vertices_;
    bool closed_ = false;
};

} // namespace geometry
