#pragma once

#include "analysis/contour/edge_pairs.h"
#include "analysis/contour/surface_model.h"

#include <array>

namespace contour {

// The hole that a new vertex makes in a triangulation, found by exact figures
// for the vertices where computed circles contradict each other.
//
// The hole grows over shared sides from the triangle that the vertex lies in to
// every triangle whose circle holds the vertex, rim included. Whatever the other
// triangles are like, such a hole is bounded by one closed loop, all of which
// the vertex sees: a triangle across a side joins it only if the vertex lies
// between that side and the circle.
//
// Knows who is whose neighbour from begin() on, and must then be told of every
// hole that is filled. Triangles are named by numbers that stay; all of them
// turn to the right.
class ExactCavity {
public:
    ExactCavity(const PointList& vertices, const std::vector<Triangle>& corners)
        : vertices_(vertices), corners_(corners)
    { }

    bool hasBegun() const { return begun_; }

    // `alive` are the triangles that there are.
    void begin(const std::vector<std::int32_t>& alive);

    // The triangles to go for the vertex, looked for from `near` on; empty when
    // it lies in none.
    std::vector<std::int32_t> around(std::int32_t vertex, std::int32_t near, const std::vector<std::int32_t>& alive);

    // `gone` are about to be replaced by triangles {from, to, vertex}.
    void open(const std::vector<std::int32_t>& gone);
    void fill(const std::vector<std::int32_t>& made);

private:
    using Neighbours = std::array<std::int32_t, 3>; // across the sides ab, bc, ca; -1: none

    Neighbours& beside(std::int32_t id) { return beside_[static_cast<std::size_t>(id)]; }
    const Point3& at(std::int32_t vertex) const { return vertices_[static_cast<std::size_t>(vertex)]; }
    std::array<std::int32_t, 4> loopOf(std::int32_t id) const;
    int sideTowards(std::int32_t id, const Point3& p) const;
    bool circleHolds(std::int32_t id, const Point3& p) const;
    std::int32_t holderOf(const Point3& p, std::int32_t near, const std::vector<std::int32_t>& alive);
    void replaceNeighbour(std::int32_t id, std::int32_t from, std::int32_t to, std::int32_t neighbour);
    void makeRoom();
    void mark(const std::vector<std::int32_t>& ids);
    bool isMarked(std::int32_t id) const { return marks_[static_cast<std::size_t>(id)] == mark_; }

    const PointList& vertices_;
    const std::vector<Triangle>& corners_;
    bool begun_ = false;
    std::vector<Neighbours> beside_;
    std::vector<std::uint32_t> marks_;
    std::uint32_t mark_ = 0;
    std::vector<std::int32_t> outside_; // by vertex: the triangle across the hole's side that starts there
    std::vector<std::int32_t> fan_;     // by vertex: the new triangle whose outer side starts there
};

// Whether there are edges and p lies strictly to the right of every one, so that
// they are one closed loop star-shaped round it. Dropped edges do not count.
bool seesLoop(const PointList& vertices, const std::vector<Edge>& edges, const Point3& p);

} // namespace contour
