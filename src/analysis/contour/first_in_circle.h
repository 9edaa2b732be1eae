#pragma once

#include "analysis/contour/circumcircle.h"

#include <cstdint>
#include <vector>

namespace contour {

// Which of the vertices still to come is the first to lie in a circle: asked
// once of a tree that never changes, where a cell of the circle index holds so
// many circles that asking each of them for every vertex would cost more.
class FirstInCircle {
public:
    FirstInCircle(const geometry::PointList& vertices, std::int32_t count, const std::vector<char>& repeats);

    // The first vertex from `from` on and before `end` that lies in the circle by
    // the computed figures, rim included; -1 for none. Repeats are no vertices.
    std::int32_t from(std::int32_t from, std::int32_t end, const Circumcircle& circle) const;

private:
    // Boxes lie along their points: those of a row that slants are as narrow as
    // the row, however large a circle is that touches it.
    struct Node {
        double x = 0.0, y = 0.0;           // of one of the points, from which the others are measured
        double alongX = 1.0, alongY = 0.0; // of length one
        double uMin = 0.0, uMax = 0.0;     // along
        double wMin = 0.0, wMax = 0.0;     // across
        std::int32_t first = 0, last = 0;  // smallest and largest vertex below it
        std::int32_t begin = 0, end = 0;

        bool mayMeet(const Circumcircle& circle) const;
    };

    Node boxOf(std::int32_t begin, std::int32_t end) const;
    void build(std::size_t node, std::int32_t begin, std::int32_t end);
    void search(std::size_t node, std::int32_t from, const Circumcircle& circle, std::int32_t* best) const;
    const geometry::Point3& at(std::int32_t vertex) const { return vertices_[static_cast<std::size_t>(vertex)]; }

    const geometry::PointList& vertices_;
    std::vector<std::int32_t> order_;
    std::vector<Node> nodes_; // children of i at 2i + 1 and 2i + 2
};

} // namespace contour
