#include "analysis/contour/border_rows.h"

#include "geometry/polygon.h"

#include <algorithm>
#include <numeric>

namespace contour {

using geometry::Point3;

namespace {

// Rows and entries a side: a border that goes up and down often has fewer rows.
constexpr double kRowsASide = 4.0;
constexpr double kEntriesASide = 16.0;

} // namespace

BorderRows::BorderRows(const geometry::PointList& border) : border_(border)
{
    if (border.empty())
        return;
    const auto before = [&](std::size_t i) -> const Point3& { return border[i == 0 ? border.size() - 1 : i - 1]; };
    lowest_ = INFINITY;
    highest_ = -INFINITY;
    double climbed = 0.0;
    for (std::size_t i = 0; i < border.size(); ++i) {
        lowest_ = std::min(lowest_, border[i].y);
        highest_ = std::max(highest_, border[i].y);
        climbed += std::fabs(border[i].y - before(i).y);
    }
    const auto sides = static_cast<double>(border.size());
    const double height = highest_ - lowest_;
    const double wanted = std::min(kRowsASide * sides, kEntriesASide * sides * (height / climbed));
    const std::size_t rows = wanted >= 1.0 ? static_cast<std::size_t>(wanted) : 1;
    rowsPerUnit_ = height > 0.0 ? static_cast<double>(rows) / height : 0.0;
    ends_.assign(rows + 1, 0);
    const auto eachRow = [&](std::size_t side, auto visit) {
        const std::size_t last = rowOf(std::max(border[side].y, before(side).y));
        for (std::size_t row = rowOf(std::min(border[side].y, before(side).y)); row <= last; ++row)
            visit(row);
    };
    for (std::size_t i = 0; i < border.size(); ++i)
        eachRow(i, [this](std::size_t row) { ++ends_[row + 1]; });
    std::partial_sum(ends_.begin(), ends_.end(), ends_.begin());
    sides_.resize(ends_.back());
    for (std::size_t i = 0; i < border.size(); ++i)
        eachRow(i, [this, i](std::size_t row) { sides_[ends_[row]++] = static_cast<std::uint32_t>(i); });
}

// Never falls as y rises.
std::size_t BorderRows::rowOf(double y) const
{
    const double row = (y - lowest_) * rowsPerUnit_;
    const std::size_t last = ends_.size() - 2;
    if (!(row > 0.0))
        return 0;
    return row >= static_cast<double>(last) ? last : static_cast<std::size_t>(row);
}

bool BorderRows::insideEvenOdd(double x, double y) const
{
    if (border_.empty() || !(y >= lowest_ && y <= highest_))
        return false;
    const std::size_t row = rowOf(y);
    bool inside = false;
    for (std::uint32_t i = row == 0 ? 0 : ends_[row - 1]; i < ends_[row]; ++i) {
        const std::size_t side = sides_[i];
        if (geometry::polygon_edge::crossesEvenOdd(x, y, border_[side == 0 ? border_.size() - 1 : side - 1],
                                                   border_[side]))
            inside = !inside;
    }
    return inside;
}

} // namespace contour
