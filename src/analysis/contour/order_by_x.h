#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <vector>

namespace contour {

struct Ranked {
    double x;
    std::uint32_t point;
};

inline bool comesBefore(const Ranked& a, const Ranked& b) { return a.x != b.x ? a.x < b.x : a.point < b.point; }

// Numbers of `count` points by x, which are finite, of equal ones in their order.
// They are dealt into as many columns as there are points, which leaves little
// to sort.
template <class XOf>
std::vector<Ranked> sortedByX(std::size_t count, XOf xOf)
{
    std::vector<Ranked> order(count);
    double least = INFINITY;
    double most = -INFINITY;
    for (std::size_t i = 0; i < count; ++i) {
        least = std::min(least, xOf(i));
        most = std::max(most, xOf(i));
    }
    const double columnsPerUnit = static_cast<double>(count) / (most - least);
    if (!(columnsPerUnit > 0.0 && columnsPerUnit < INFINITY)) {
        for (std::size_t i = 0; i < count; ++i)
            order[i] = {xOf(i), static_cast<std::uint32_t>(i)};
        std::sort(order.begin(), order.end(), comesBefore);
        return order;
    }
    // Never falls as x rises.
    const auto columnOf = [&](std::size_t i) {
        return std::min(static_cast<std::size_t>((xOf(i) - least) * columnsPerUnit), count - 1);
    };
    std::vector<std::uint32_t> ends(count + 1, 0);
    for (std::size_t i = 0; i < count; ++i)
        ++ends[columnOf(i) + 1];
    std::partial_sum(ends.begin(), ends.end(), ends.begin());
    for (std::size_t i = 0; i < count; ++i)
        order[ends[columnOf(i)]++] = {xOf(i), static_cast<std::uint32_t>(i)};
    auto begin = order.begin();
    for (std::size_t column = 0; column < count; ++column) {
        const auto end = order.begin() + ends[column];
        if (end - begin > 1)
            std::sort(begin, end, comesBefore);
        begin = end;
    }
    return order;
}

} // namespace contour
