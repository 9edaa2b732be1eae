#pragma once

#include "geometry/point3.h"

#include <cstdint>
#include <vector>

namespace contour {

// A border cut into rows of equal height, each with the sides that reach into
// it, for the many thousand places that are asked of one border.
class BorderRows {
public:
    // Not closed by a repeated point; a repeated closing point changes nothing.
    explicit BorderRows(const geometry::PointList& border);

    // As geometry::insideEvenOdd.
    bool insideEvenOdd(double x, double y) const;

private:
    std::size_t rowOf(double y) const;

    const geometry::PointList& border_;
    double lowest_ = 0.0;
    double highest_ = 0.0;
    double rowsPerUnit_ = 0.0;
    std::vector<std::uint32_t> ends_;  // of each row in sides_; the first one starts at 0
    std::vector<std::uint32_t> sides_; // by their second corner
};

} // namespace contour
