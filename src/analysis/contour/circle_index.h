#pragma once

#include "analysis/contour/circumcircle.h"

#include <cstdint>
#include <vector>

namespace contour {

// Circles that a vertical line sweeping to the right can still meet, found by y.
//
// The y axis is cut into bands that hold equally many vertices, and these into
// halves of halves upward; a circle waits in the one or two bands of the level
// that fits the stretch of y it can cover. The stretch is taken for sweep
// positions up to a horizon only: circles of flat triangles are huge, but near
// the sweep they are as narrow as the triangle. When the sweep passes the
// horizon the owner clears the index and adds anew what is left.
class CircleIndex {
public:
    // For so many points, with the y of all of them or of some taken at random.
    CircleIndex(std::vector<double> ys, std::size_t points);

    static std::size_t bandCountFor(std::size_t points);
    std::size_t bandCount() const { return limits_.size() + 1; }
    std::size_t bandOf(double y) const;

    // Empties the index; answers will be right up to x = horizon.
    void begin(double horizon);

    enum class Added {
        Passed, // no point at x >= from can lie in the circle any more
        Waits,
        Crowded, // not added: its band holds so many circles that each costs too much
    };

    Added add(const Circumcircle& circle, std::int32_t id, double from);

    // Calls inside(id) for every circle that the point lies in by the computed
    // figures, rim included; a false answer takes the circle out of that band.
    template <class Inside>
    void at(double x, double y, Inside inside)
    {
        if (used_.empty())
            return;
        const std::size_t band = bandOf(y);
        for (std::size_t level = 0; level < offsets_.size(); ++level) {
            std::vector<Entry>& cell = cells_[offsets_[level] + (band >> level)];
            for (std::size_t i = 0; i < cell.size();) {
                const Circumcircle& c = cell[i].circle;
                const double dx = x - c.x;
                const double dy = y - c.y;
                if (dx * dx + dy * dy <= c.squaredRadius && !inside(cell[i].id)) {
                    cell[i] = cell.back();
                    cell.pop_back();
                } else {
                    ++i;
                }
            }
        }
    }

private:
    struct Entry {
        Circumcircle circle;
        std::int32_t id;
    };

    void put(std::size_t cell, const Entry& entry);
    std::size_t rowOf(double y) const;

    std::size_t crowd_;                // circles in a band from which on no more are taken
    std::vector<double> limits_;       // upper ends of all bands but the last
    std::vector<std::size_t> firstOf_; // first band that can hold a y of each row
    double lowest_ = 0.0;
    double rowsPerUnit_ = 0.0;
    std::vector<std::size_t> offsets_; // of each level in cells_
    std::vector<std::vector<Entry>> cells_;
    std::vector<std::size_t> used_; // cells that have had an entry since begin
    double horizon_ = 0.0;
};

} // namespace contour
