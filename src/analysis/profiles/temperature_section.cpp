#include "analysis/profiles/temperature_section.h"

#include <algorithm>
#include <cmath>

using geometry::PointList;

TemperatureSection::TemperatureSection(std::vector<SectionWell> wells, double length, const SectionView& view)
    : wells_(std::move(wells)), view_(view), length_(length)
{
    std::stable_sort(wells_.begin(), wells_.end(),
                     [](const SectionWell& one, const SectionWell& other) { return one.dist < other.dist; });
    double deepest = -INFINITY, lowest = INFINITY;
    for (const SectionWell& well : wells_) {
        length_ = std::max(length_, well.dist);
        if (well.log.empty())
            continue;
        deepest = std::max(deepest, well.log.rbegin()->first);
        lowest = std::min(lowest, well.ground() - well.log.rbegin()->first);
    }
    if (std::isfinite(deepest)) {
        deepest_ = deepest;
        lowest_ = lowest;
        return;
    }
    // Without a reading the ground alone is drawn.
    for (const SectionWell& well : wells_)
        lowest = std::min(lowest, well.ground());
    lowest_ = std::isfinite(lowest) ? lowest : 0.0;
}

double TemperatureSection::y(const SectionWell& well, double depth) const
{
    const double above = view_.byElevation ? well.ground() - depth - lowest_ : deepest_ - depth;
    return above * view_.vertical + view_.origY;
}

double TemperatureSection::top() const
{
    double top = view_.origY;
    for (const SectionWell& well : wells_) {
        top = std::max(top, groundY(well));
        if (!well.log.empty())
            top = std::max(top, y(well, well.log.begin()->first));
    }
    return top;
}

PointList TemperatureSection::points() const
{
    PointList points;
    for (const SectionWell& well : wells_) {
        for (const auto& [depth, value] : well.log)
            points.push_back({x(well.dist), y(well, depth), value});
    }
    return points;
}

PointList TemperatureSection::outline() const
{
    PointList tops, bottoms;
    for (const SectionWell& well : wells_) {
        if (well.log.empty())
            continue;
        const auto [first, firstValue] = *well.log.begin();
        const auto [last, lastValue] = *well.log.rbegin();
        const geometry::Point3 top{x(well.dist), y(well, first), firstValue};
        const geometry::Point3 bottom{x(well.dist), y(well, last), lastValue};
        // Wells at one place are one side of the outline, from the highest reading to the lowest.
        if (!tops.empty() && std::fabs(top.x - tops.back().x) < geometry::GEOM_TOL) {
            if (top.y > tops.back().y)
                tops.back() = top;
            if (bottom.y < bottoms.back().y)
                bottoms.back() = bottom;
            continue;
        }
        tops.push_back(top);
        bottoms.push_back(bottom);
    }
    tops.insert(tops.end(), bottoms.rbegin(), bottoms.rend());
    return tops;
}

bool TemperatureSection::spansSurface() const
{
    const PointList all = points();
    if (all.size() < 3)
        return false;
    const geometry::Point3& first = all.front();
    const auto far = std::max_element(all.begin(), all.end(), [&](const auto& a, const auto& b) {
        return geometry::planDistance(first, a) < geometry::planDistance(first, b);
    });
    const double length = geometry::planDistance(first, *far);
    return std::any_of(all.begin(), all.end(), [&](const geometry::Point3& p) {
        const double area = (far->x - first.x) * (p.y - first.y) - (far->y - first.y) * (p.x - first.x);
        return length > geometry::GEOM_TOL && std::fabs(area) / length > geometry::GEOM_TOL;
    });
}
