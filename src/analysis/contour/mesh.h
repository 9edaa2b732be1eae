#pragma once

#include "analysis/contour/circumcircle.h"
#include "analysis/contour/edge_pairs.h"
#include "analysis/contour/surface_model.h"

#include <array>

namespace contour {

// One line of the processor's cache: a sweep looks at triangles here and there.
struct alignas(64) MeshTriangle {
    Triangle corners;                                 // turning to the right; c is the vertex that made it
    std::array<std::int32_t, 3> beside{{-1, -1, -1}}; // across the sides ab, bc, ca; -1: none
    Circumcircle circle;
    float doubt = -1.0F;     // see Mesh::judge; negative: not judged yet
    std::int32_t place = -1; // in the sweep's array; -1: removed
    std::int32_t due = -1;   // for the sweep
    std::int32_t mark = -1;  // for the sweep
};

// The triangles of a sweep and who is whose neighbour. Triangles are named by
// numbers, which are used again once they are released.
class Mesh {
public:
    // Beyond every doubt that a triangle can be trusted with.
    static constexpr float kNoTrust = 1e30F;
    // Below it nothing is gained by a closer look.
    static constexpr float kNoDoubt = 1e-12F;

    // `vertices` holds `count` points by x and the corners of the triangle that
    // all of them lie in.
    Mesh(const PointList& vertices, std::int32_t count);

    MeshTriangle& operator[](std::int32_t id) { return triangles_[static_cast<std::size_t>(id)]; }
    const MeshTriangle& operator[](std::int32_t id) const { return triangles_[static_cast<std::size_t>(id)]; }

    // With its circle, without neighbours. A triangle that has no circle gets
    // figures that are no numbers.
    std::int32_t add(const Triangle& corners);
    void release(std::int32_t id) { free_.push_back(id); }

    // `made` are the triangles {from, to, vertex} over the edges of a hole that
    // are not dropped, in their order.
    void link(const std::vector<Edge>& edges, const std::int32_t* made);

    // A triangle that has the vertex as a corner, as a place to start from.
    std::int32_t at(std::int32_t vertex) const { return fan_[static_cast<std::size_t>(vertex)]; }

    // How far the computed power of a point of the map in respect of the circle
    // (its squared distance from the centre less the squared radius) may be from
    // the power in respect of the true circle, as a share of scale().
    float judge(MeshTriangle& t) const;

    // From `near` from neighbour to neighbour towards p: the first triangle that
    // is `enough`, or else the one that p lies in, rim included; -1 when there is
    // none among those `alive`.
    template <class Enough>
    std::int32_t walk(const Point3& p, std::int32_t near, const std::vector<std::int32_t>& alive, Enough enough);

    // The hole that a vertex makes by exact figures. It grows over shared sides
    // from the triangle that the vertex lies in to every triangle whose circle
    // holds the vertex, rim included. Whatever the other triangles are like, such
    // a hole is bounded by one closed loop, all of which the vertex sees: a
    // triangle across a side joins it only if the vertex lies between that side
    // and the circle. The triangles of the hole get the mark.
    std::vector<std::int32_t> exactHole(const Point3& p, std::int32_t holder, std::int32_t mark);

    // The square of the map's greater extent; doubts are shares of it.
    double scale() const { return scale_; }

private:
    const Point3& vertex(std::int32_t v) const { return vertices_[static_cast<std::size_t>(v)]; }
    double roughDoubt(const MeshTriangle& t) const;
    double closeDoubt(const MeshTriangle& t) const;
    static double growth(const Circumcircle& circle, const Point3& from, const Point3& to);
    int sideTowards(const MeshTriangle& t, const Point3& p, std::int32_t from) const;
    std::int32_t holderAmong(const std::vector<std::int32_t>& alive, const Point3& p) const;

    const PointList& vertices_;
    std::vector<MeshTriangle> triangles_;
    std::vector<std::int32_t> free_;
    std::vector<std::int32_t> fan_; // by vertex: the triangle made last that has it as its first corner
    double width_ = 0.0;            // of the map
    double height_ = 0.0;
    double scale_ = 0.0;
};

template <class Enough>
std::int32_t Mesh::walk(const Point3& p, std::int32_t near, const std::vector<std::int32_t>& alive, Enough enough)
{
    constexpr int kMostSteps = 4096; // then all are looked at instead
    std::int32_t from = -1;
    std::int32_t id = near;
    for (int steps = 0; steps < kMostSteps && id >= 0; ++steps) {
        MeshTriangle& t = (*this)[id];
        const int side = enough(t) ? -1 : sideTowards(t, p, from);
        if (side < 0)
            return id;
        from = id;
        id = t.beside[static_cast<std::size_t>(side)];
    }
    return holderAmong(alive, p);
}

// Whether there are edges and p lies strictly to the right of every one, so that
// they are one closed loop star-shaped round it. Dropped edges do not count.
bool seesLoop(const PointList& vertices, const std::vector<Edge>& edges, const Point3& p);

} // namespace contour
