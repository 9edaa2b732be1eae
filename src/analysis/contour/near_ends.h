#pragma once

#include "analysis/contour/chaining.h"

namespace contour {

// Tells of each end of a list of segments which end of another segment is near
// it: as a rule one, that in the triangle beside it, or on the border none. Ends
// 2i and 2i + 1 are those of segment i.
class NearEnds {
public:
    enum : std::int32_t { kNone = -1, kSeveral = -2 };

    explicit NearEnds(const std::vector<ContourSegment>& segments);

    // False where so many ends lie so close that telling them costs too much, or
    // places are beyond all measure: every end then counts as near to several.
    bool areTold() const { return areTold_; }

    // The only one nearer than GEOM_TOL, kNone or kSeveral.
    std::int32_t of(std::int32_t end) const { return areTold_ ? near_[static_cast<std::size_t>(end)] : kSeveral; }

private:
    bool compareRow(const std::vector<std::int32_t>& row);
    void note(std::int32_t end, std::int32_t other);
    const Point3& place(std::int32_t end) const;

    const std::vector<ContourSegment>& segments_;
    std::vector<std::int32_t> near_;
    std::size_t looks_ = 0;
    bool areTold_ = true;
};

} // namespace contour
