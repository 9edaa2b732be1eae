#pragma once

#include "geometry/point3.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <vector>

namespace geometry {

// Finds points nearer than GEOM_TOL to each other: a hash of small cells, each
// holding a chain of numbered points. The owner compares the points itself; a
// chain may hold points of other cells too.
class ToleranceGrid {
public:
    explicit ToleranceGrid(std::size_t capacity) : next_(capacity, -1)
    {
        std::size_t size = 16;
        while (size < 2 * capacity)
            size *= 2;
        heads_.assign(size, -1);
    }

    // Ids run below the capacity; each is added once. The last one added stands
    // first in its chain.
    void add(const Point3& p, std::int32_t id)
    {
        std::int32_t& head = heads_[slot(cell(p.x), cell(p.y), cell(p.z))];
        next_[static_cast<std::size_t>(id)] = head;
        head = id;
    }

    // Calls walk(head) for every chain that can hold a point near p. The head
    // may be changed, as may next(), to take ids out.
    template <class Walk>
    void chainsNear(const Point3& p, Walk walk)
    {
        const Cells xs = cellsNear(p.x);
        const Cells ys = cellsNear(p.y);
        const Cells zs = cellsNear(p.z);
        for (int i = 0; i < xs.count; ++i)
            for (int j = 0; j < ys.count; ++j)
                for (int k = 0; k < zs.count; ++k)
                    walk(heads_[slot(xs.at[i], ys.at[j], zs.at[k])]);
    }

    std::int32_t& next(std::int32_t id) { return next_[static_cast<std::size_t>(id)]; }

private:
    struct Cells {
        std::array<double, 3> at{};
        int count = 0;
    };

    // Cells of 32 tolerances: a point is rarely near a side. The odd shift keeps
    // round coordinates off the sides.
    static double cell(double v) { return std::floor(v / (32.0 * GEOM_TOL) + 0.4142) + 0.0; }

    // Where doubles are coarser than the cells only equal coordinates are near,
    // and the point's own cell, always among these, holds them.
    static Cells cellsNear(double v)
    {
        const double reach = 2.0 * GEOM_TOL + 4e-16 * std::fabs(v);
        Cells cells;
        cells.at[0] = cell(v);
        cells.count = 1;
        for (double side : {cell(v - reach), cell(v + reach)}) {
            if (side != cells.at[0])
                cells.at[static_cast<std::size_t>(cells.count++)] = side;
        }
        return cells;
    }

    static std::uint64_t bits(double v)
    {
        std::uint64_t b = 0;
        std::memcpy(&b, &v, sizeof b);
        return b;
    }

    std::size_t slot(double x, double y, double z) const
    {
        std::uint64_t h = bits(x) * 0x9E3779B97F4A7C15ULL;
        h = (h ^ (h >> 29) ^ bits(y)) * 0xBF58476D1CE4E5B9ULL;
        h = (h ^ (h >> 32) ^ bits(z)) * 0x94D049BB133111EBULL;
        return static_cast<std::size_t>(h ^ (h >> 31)) & (heads_.size() - 1);
    }

    std::vector<std::int32_t> heads_;
    std::vector<std::int32_t> next_;
};

} // namespace geometry
