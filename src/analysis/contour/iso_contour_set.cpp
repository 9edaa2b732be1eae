#include "analysis/contour/iso_contour_set.h"

#include "geometry/polygon.h"

#include <algorithm>

namespace contour {

using geometry::GEOM_TOL;

IsoContourSet::IsoContourSet(std::vector<Isoline> isolines, const PointList& border)
    : lines(std::move(isolines)), boundary(border)
{
    linePairs.reserve(lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i)
        linePairs.push_back({lines.share(i), nullptr});
}

void IsoContourSet::setLevels(const std::vector<double>& list)
{
    levels.clear();
    std::copy_if(list.begin(), list.end(), std::back_inserter(levels), [](double level) { return !std::isnan(level); });
    std::sort(levels.begin(), levels.end());
    levelsSet = true;
}

int IsoContourSet::bandOf(double z) const
{
    const auto above = std::upper_bound(levels.begin(), levels.end(), z);
    if (above == levels.begin() || above == levels.end() || std::isnan(z))
        return -1;
    return static_cast<int>(above - levels.begin()) - 1;
}

namespace {

// Numbers of the rings in each band, by area, largest first.
std::vector<std::vector<std::size_t>> bandGroups(const IsoContourSet& set)
{
    struct Sized {
        std::size_t ring;
        double area;
    };
    std::vector<std::vector<Sized>> bands(set.levels.size());
    for (std::size_t i = 0; i < set.rings.size(); ++i) {
        const Ring& ring = set.rings.ring(i);
        const int band = ring.empty() ? -1 : set.bandOf(ring.value());
        if (band >= 0)
            bands[static_cast<std::size_t>(band)].push_back({i, geometry::polygonArea(ring.points())});
    }
    std::vector<std::vector<std::size_t>> groups(bands.size());
    for (std::size_t band = 0; band < bands.size(); ++band) {
        std::stable_sort(bands[band].begin(), bands[band].end(),
                         [](const Sized& a, const Sized& b) { return a.area > b.area; });
        for (const Sized& sized : bands[band])
            groups[band].push_back(sized.ring);
    }
    return groups;
}

// Smooth lines pass each inner knot twice; a hatch wants it once.
PointList withoutRepeats(const PointList& ring)
{
    PointList loop;
    loop.reserve(ring.size());
    for (const Point3& p : ring) {
        if (loop.empty() || !(geometry::planDistance(loop.back(), p) < GEOM_TOL))
            loop.push_back(p);
    }
    return loop;
}

} // namespace

std::vector<std::vector<PointList>> IsoContourSet::groupByBand() const
{
    std::vector<std::vector<PointList>> groups;
    if (!ringsBuilt)
        return groups;
    for (const std::vector<std::size_t>& group : bandGroups(*this)) {
        groups.emplace_back();
        for (std::size_t ring : group)
            groups.back().push_back(rings[ring]);
    }
    return groups;
}

std::vector<HatchBand> IsoContourSet::hatchBands() const
{
    std::vector<HatchBand> bands;
    if (!ringsBuilt)
        return bands;
    const std::vector<std::vector<std::size_t>> groups = bandGroups(*this);
    for (std::size_t band = 0; band < groups.size(); ++band) {
        if (groups[band].empty())
            continue;
        bands.push_back({static_cast<int>(band), levels[band], {}});
        for (std::size_t ring : groups[band])
            bands.back().rings.push_back(withoutRepeats(rings[ring]));
    }
    return bands;
}

} // namespace contour
