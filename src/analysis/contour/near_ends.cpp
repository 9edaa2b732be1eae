#include "analysis/contour/near_ends.h"

#include "analysis/contour/order_by_x.h"

namespace contour {

using geometry::GEOM_TOL;

namespace {

// Pairs that are looked at for each end before that is given up.
constexpr std::size_t kLooksAnEnd = 8;

bool isMeasured(const Point3& p) { return std::fabs(p.x) < 1e300 && std::fabs(p.y) < 1e300; }

} // namespace

// Ends that could be near follow each other by x without a gap; of these they
// follow each other by y.
NearEnds::NearEnds(const std::vector<ContourSegment>& segments) : segments_(segments), near_(2 * segments.size(), kNone)
{
    areTold_ = std::all_of(segments.begin(), segments.end(),
                           [](const ContourSegment& s) { return isMeasured(s.start) && isMeasured(s.end); });
    if (!areTold_)
        return;
    const std::vector<Ranked> order =
        sortedByX(near_.size(), [this](std::size_t end) { return place(static_cast<std::int32_t>(end)).x; });
    std::vector<std::int32_t> row;
    for (std::size_t i = 0; i < order.size() && areTold_; ++i) {
        row.push_back(static_cast<std::int32_t>(order[i].point));
        if (i + 1 < order.size() && order[i + 1].x - order[i].x < 2.0 * GEOM_TOL)
            continue;
        areTold_ = compareRow(row);
        row.clear();
    }
}

bool NearEnds::compareRow(const std::vector<std::int32_t>& row)
{
    if (row.size() == 1)
        return true;
    std::vector<std::int32_t> sorted;
    const std::vector<std::int32_t>* byY = &row;
    if (row.size() > 2) {
        sorted = row;
        std::sort(sorted.begin(), sorted.end(),
                  [this](std::int32_t a, std::int32_t b) { return place(a).y < place(b).y; });
        byY = &sorted;
    }
    for (std::size_t i = 0; i < byY->size(); ++i) {
        const std::int32_t end = (*byY)[i];
        for (std::size_t j = i + 1; j < byY->size(); ++j) {
            const std::int32_t other = (*byY)[j];
            if (row.size() > 2 && !(place(other).y - place(end).y < 2.0 * GEOM_TOL))
                break;
            if (++looks_ > kLooksAnEnd * near_.size() + 64)
                return false;
            if (end / 2 == other / 2 || !(geometry::distance(place(end), place(other)) < GEOM_TOL))
                continue;
            note(end, other);
            note(other, end);
        }
    }
    return true;
}

void NearEnds::note(std::int32_t end, std::int32_t other)
{
    std::int32_t& near = near_[static_cast<std::size_t>(end)];
    near = near == kNone ? other : kSeveral;
}

const Point3& NearEnds::place(std::int32_t end) const
{
    const ContourSegment& segment = segments_[static_cast<std::size_t>(end / 2)];
    return end % 2 == 0 ? segment.start : segment.end;
}

} // namespace contour
