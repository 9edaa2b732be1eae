#include "analysis/contour/circle_index.h"

#include <algorithm>
#include <numeric>

namespace contour {

namespace {

// Far more than what rounding does to a squared distance.
constexpr double kRounding = 1e-14;
// Circles in a band, at least; large sets have about their square root without
// being crowded.
constexpr std::size_t kLeastCrowd = 48;

} // namespace

std::size_t CircleIndex::bandCountFor(std::size_t points)
{
    std::size_t bands = 1;
    while (bands * bands < 4 * points && bands < 8192)
        bands *= 2;
    return bands;
}

CircleIndex::CircleIndex(std::vector<double> ys, std::size_t points)
    : crowd_(std::max(kLeastCrowd, static_cast<std::size_t>(std::sqrt(static_cast<double>(points)))))
{
    const std::size_t bands = bandCountFor(points);
    std::sort(ys.begin(), ys.end());
    for (std::size_t i = 1; i < bands; ++i)
        limits_.push_back(ys[i * ys.size() / bands]);
    std::size_t cells = 0;
    for (std::size_t width = bands; width > 0; width /= 2) {
        offsets_.push_back(cells);
        cells += width;
    }
    cells_.resize(cells);

    // Equal rows lead to the bands without a search as long as the vertices are
    // spread evenly; a row that holds many bands is searched.
    const double extent = ys.empty() ? 0.0 : ys.back() - ys.front();
    const std::size_t rows = 4 * bands;
    lowest_ = ys.empty() ? 0.0 : ys.front();
    rowsPerUnit_ = extent > 0.0 ? static_cast<double>(rows) / extent : 0.0;
    firstOf_.assign(rows + 1, 0);
    for (double limit : limits_)
        ++firstOf_[std::min(rowOf(limit) + 1, rows)];
    std::partial_sum(firstOf_.begin(), firstOf_.end(), firstOf_.begin());
}

// Never falls as y rises.
std::size_t CircleIndex::rowOf(double y) const
{
    const double row = (y - lowest_) * rowsPerUnit_;
    const std::size_t last = firstOf_.size() - 2;
    if (!(row > 0.0))
        return 0;
    return row >= static_cast<double>(last) ? last : static_cast<std::size_t>(row);
}

// The number of limits not above y.
std::size_t CircleIndex::bandOf(double y) const
{
    const std::size_t row = rowOf(y);
    const std::size_t first = firstOf_[row];
    const std::size_t last = row + 2 < firstOf_.size() ? firstOf_[row + 1] : limits_.size();
    if (last - first > 8)
        return static_cast<std::size_t>(std::upper_bound(limits_.begin() + static_cast<std::ptrdiff_t>(first),
                                                         limits_.begin() + static_cast<std::ptrdiff_t>(last), y)
                                        - limits_.begin());
    std::size_t band = first;
    for (std::size_t i = first; i < last; ++i)
        band += limits_[i] <= y ? 1 : 0;
    return band;
}

void CircleIndex::begin(double horizon)
{
    horizon_ = horizon;
    for (std::size_t cell : used_)
        cells_[cell].clear();
    used_.clear();
}

CircleIndex::Added CircleIndex::add(const Circumcircle& circle, std::int32_t id, double from)
{
    if (std::isnan(circle.squaredRadius) || std::isnan(circle.x) || std::isnan(circle.y))
        return Added::Passed;
    std::size_t low = 0;
    std::size_t high = limits_.size();
    if (std::isfinite(circle.squaredRadius)) {
        const double margin = kRounding * circle.squaredRadius;
        const double passed = from - circle.x;
        if (passed > 0.0 && passed * passed > circle.squaredRadius + margin)
            return Added::Passed;
        const double ahead = circle.x - horizon_;
        const double off = std::max({passed, ahead, 0.0});
        const double squaredHeight = circle.squaredRadius + margin - off * off;
        if (!(squaredHeight >= 0.0))
            return Added::Waits; // not before the horizon
        const double height = std::sqrt(squaredHeight);
        low = bandOf(circle.y - height);
        high = bandOf(circle.y + height);
    }
    std::size_t level = 0;
    while ((high >> level) - (low >> level) > 1)
        ++level;
    const std::size_t lower = offsets_[level] + (low >> level);
    const std::size_t upper = offsets_[level] + (high >> level);
    if (std::max(cells_[lower].size(), cells_[upper].size()) >= crowd_ && std::isfinite(circle.squaredRadius))
        return Added::Crowded;
    put(lower, {circle, id});
    if (upper != lower)
        put(upper, {circle, id});
    return Added::Waits;
}

void CircleIndex::put(std::size_t cell, const Entry& entry)
{
    if (cells_[cell].empty())
        used_.push_back(cell);
    cells_[cell].push_back(entry);
}

} // namespace contour
