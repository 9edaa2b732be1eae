#include "analysis/contour/chaining.h"

#include "geometry/tolerance_grid.h"

#include <algorithm>

namespace contour {

using geometry::GEOM_TOL;

namespace {

bool isNear(const Point3& a, const Point3& b) { return geometry::distance(a, b) < GEOM_TOL; }

// A line growing at both ends.
struct GrowingLine {
    PointList before; // backwards, from the second point of the line's start on
    PointList after;

    const Point3& front() const { return before.empty() ? after.front() : before.back(); }
    const Point3& back() const { return after.back(); }
    bool isClosed() const { return isNear(front(), back()); }

    // The order of these questions decides where a segment goes that fits twice.
    bool attach(const ContourSegment& segment)
    {
        if (isNear(segment.start, front()))
            before.push_back(segment.end);
        else if (isNear(segment.end, front()))
            before.push_back(segment.start);
        else if (isNear(segment.end, back()))
            after.push_back(segment.start);
        else if (isNear(segment.start, back()))
            after.push_back(segment.end);
        else
            return false;
        return true;
    }

    Isoline finished() const
    {
        Isoline line;
        line.reserve(before.size() + after.size());
        line.insert(line.end(), before.rbegin(), before.rend());
        line.insert(line.end(), after.begin(), after.end());
        return line;
    }
};

class Chainer {
public:
    Chainer(const std::vector<ContourSegment>& segments, bool goesOn)
        : segments_(segments),
          goesOn_(goesOn),
          taken_(segments.size(), 0),
          last_(static_cast<std::int32_t>(segments.size()) - 1),
          grid_(2 * segments.size())
    {
        // Two ends a segment, numbered so that a later segment stands before an
        // earlier one in its chain.
        for (std::size_t i = 0; i < segments.size(); ++i) {
            grid_.add(segments[i].start, static_cast<std::int32_t>(2 * i));
            grid_.add(segments[i].end, static_cast<std::int32_t>(2 * i + 1));
        }
    }

    std::vector<Isoline> run()
    {
        std::vector<Isoline> lines;
        for (std::size_t first = 0; first < segments_.size(); ++first) {
            if (taken_[first])
                continue;
            taken_[first] = 1;
            lines.push_back(grownFrom(segments_[first]));
        }
        return lines;
    }

private:
    Isoline grownFrom(const ContourSegment& first)
    {
        GrowingLine line;
        line.after = {first.start, first.end};
        std::int32_t atFront = lastNear(line.front());
        std::int32_t atBack = lastNear(line.back());
        for (;;) {
            const std::int32_t next = line.isClosed() ? lastLeft() : std::max(atFront, atBack);
            if (next < 0)
                break;
            const std::size_t fromBefore = line.before.size();
            if (!line.attach(segments_[static_cast<std::size_t>(next)]))
                break;
            taken_[static_cast<std::size_t>(next)] = 1;
            const bool grewAtFront = line.before.size() != fromBefore;
            if (grewAtFront || atFront == next)
                atFront = lastNear(line.front());
            if (!grewAtFront || atBack == next)
                atBack = lastNear(line.back());
        }
        return line.finished();
    }

    std::int32_t lastLeft()
    {
        if (goesOn_)
            return -1;
        while (last_ >= 0 && taken_[static_cast<std::size_t>(last_)])
            --last_;
        return last_;
    }

    // The last segment left with an end at the point, or -1.
    std::int32_t lastNear(const Point3& point)
    {
        std::int32_t best = -1;
        grid_.chainsNear(point, [&](std::int32_t& head) {
            for (std::int32_t* link = &head; *link >= 0;) {
                const std::int32_t segment = *link / 2;
                if (taken_[static_cast<std::size_t>(segment)]) {
                    *link = grid_.next(*link);
                    continue;
                }
                if (segment <= best)
                    break;
                const ContourSegment& s = segments_[static_cast<std::size_t>(segment)];
                if (isNear(*link % 2 == 0 ? s.start : s.end, point)) {
                    best = segment;
                    break;
                }
                link = &grid_.next(*link);
            }
        });
        return best;
    }

    const std::vector<ContourSegment>& segments_;
    const bool goesOn_;
    std::vector<char> taken_;
    std::int32_t last_;
    geometry::ToleranceGrid grid_;
};

} // namespace

std::vector<Isoline> chainSegments(const std::vector<ContourSegment>& segments, bool goesOn)
{
    return Chainer(segments, goesOn).run();
}

} // namespace contour
