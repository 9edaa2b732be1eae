#include "analysis/contour/chaining.h"

#include "analysis/contour/near_ends.h"
#include "geometry/tolerance_grid.h"

#include <algorithm>
#include <optional>

namespace contour {

using geometry::GEOM_TOL;

namespace {

bool isNear(const Point3& a, const Point3& b) { return geometry::distance(a, b) < GEOM_TOL; }

std::int32_t startOf(std::int32_t segment) { return 2 * segment; }
std::int32_t endOf(std::int32_t segment) { return 2 * segment + 1; }
std::int32_t segmentOf(std::int32_t end) { return end / 2; }

// A line growing at both ends, which are ends of segments that it has taken.
struct GrowingLine {
    PointList before; // backwards, from the second point of the line's start on
    PointList after;
    std::int32_t frontEnd = -1;
    std::int32_t backEnd = -1;

    const Point3& front() const { return before.empty() ? after.front() : before.back(); }
    const Point3& back() const { return after.back(); }
    bool isClosed() const { return isNear(front(), back()); }

    void begin(const ContourSegment& segment, std::int32_t number)
    {
        before.clear();
        after.clear();
        after.push_back(segment.start);
        after.push_back(segment.end);
        frontEnd = startOf(number);
        backEnd = endOf(number);
    }

    // The order of these questions decides where a segment goes that fits twice.
    bool attach(const ContourSegment& segment, std::int32_t number)
    {
        if (isNear(segment.start, front()))
            addBefore(segment.end, endOf(number));
        else if (isNear(segment.end, front()))
            addBefore(segment.start, startOf(number));
        else if (isNear(segment.end, back()))
            addAfter(segment.start, startOf(number));
        else if (isNear(segment.start, back()))
            addAfter(segment.end, endOf(number));
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

private:
    void addBefore(const Point3& point, std::int32_t end)
    {
        before.push_back(point);
        frontEnd = end;
    }

    void addAfter(const Point3& point, std::int32_t end)
    {
        after.push_back(point);
        backEnd = end;
    }
};

// Places in the list, or -1, decide between segments; numbers name them.
class Chainer {
public:
    Chainer(const SegmentList& list, bool goesOn)
        : segments_(list.segments),
          listed_(list.listed),
          goesOn_(goesOn),
          taken_(list.listed.size(), 0),
          placeOf_(list.listed.size()),
          last_(static_cast<std::int32_t>(list.listed.size()) - 1),
          near_(list.segments)
    {
        for (std::size_t place = 0; place < listed_.size(); ++place)
            placeOf_[static_cast<std::size_t>(listed_[place])] = static_cast<std::int32_t>(place);
    }

    std::vector<Isoline> run()
    {
        std::vector<Isoline> lines;
        for (std::int32_t first : listed_) {
            if (isTaken(first))
                continue;
            taken_[static_cast<std::size_t>(first)] = 1;
            lines.push_back(grownFrom(first));
        }
        return lines;
    }

private:
    const ContourSegment& segment(std::int32_t number) const { return segments_[static_cast<std::size_t>(number)]; }
    std::int32_t listedAt(std::int32_t place) const { return listed_[static_cast<std::size_t>(place)]; }
    bool isTaken(std::int32_t number) const { return taken_[static_cast<std::size_t>(number)] != 0; }

    Isoline grownFrom(std::int32_t first)
    {
        line_.begin(segment(first), first);
        std::int32_t atFront = lastNear(line_.frontEnd);
        std::int32_t atBack = lastNear(line_.backEnd);
        for (;;) {
            const std::int32_t place = line_.isClosed() ? lastLeft() : std::max(atFront, atBack);
            if (place < 0)
                break;
            const std::int32_t next = listedAt(place);
            const std::int32_t frontEnd = line_.frontEnd;
            if (!line_.attach(segment(next), next))
                break;
            taken_[static_cast<std::size_t>(next)] = 1;
            const bool grewAtFront = line_.frontEnd != frontEnd;
            if (grewAtFront || atFront == place)
                atFront = lastNear(line_.frontEnd);
            if (!grewAtFront || atBack == place)
                atBack = lastNear(line_.backEnd);
        }
        return line_.finished();
    }

    std::int32_t lastLeft()
    {
        if (goesOn_)
            return -1;
        while (last_ >= 0 && isTaken(listedAt(last_)))
            --last_;
        return last_;
    }

    // The place of the last segment left with an end near the one given. The
    // segment that this one belongs to is taken already.
    std::int32_t lastNear(std::int32_t end)
    {
        const std::int32_t other = near_.of(end);
        if (other == NearEnds::kSeveral)
            return lastOfSeveral(end % 2 == 0 ? segment(segmentOf(end)).start : segment(segmentOf(end)).end);
        return other < 0 || isTaken(segmentOf(other)) ? -1 : placeOf_[static_cast<std::size_t>(segmentOf(other))];
    }

    std::int32_t lastOfSeveral(const Point3& point)
    {
        if (!grid_)
            fillGrid();
        std::int32_t best = -1;
        grid_->chainsNear(point, [&](std::int32_t& head) {
            for (std::int32_t* link = &head; *link >= 0;) {
                const std::int32_t place = *link / 2;
                const std::int32_t number = listedAt(place);
                if (isTaken(number)) {
                    *link = grid_->next(*link);
                    continue;
                }
                if (place <= best)
                    break;
                if (isNear(*link % 2 == 0 ? segment(number).start : segment(number).end, point)) {
                    best = place;
                    break;
                }
                link = &grid_->next(*link);
            }
        });
        return best;
    }

    // A later segment stands before an earlier one in its chain.
    void fillGrid()
    {
        grid_.emplace(2 * listed_.size());
        for (std::size_t place = 0; place < listed_.size(); ++place) {
            const ContourSegment& s = segment(listed_[place]);
            grid_->add(s.start, static_cast<std::int32_t>(2 * place));
            grid_->add(s.end, static_cast<std::int32_t>(2 * place + 1));
        }
    }

    const std::vector<ContourSegment>& segments_;
    const std::vector<std::int32_t>& listed_;
    const bool goesOn_;
    std::vector<char> taken_;
    std::vector<std::int32_t> placeOf_; // in the list
    std::int32_t last_;
    NearEnds near_;
    std::optional<geometry::ToleranceGrid> grid_; // made where several ends meet
    GrowingLine line_;
};

} // namespace

std::vector<Isoline> chainSegments(const SegmentList& list, bool goesOn) { return Chainer(list, goesOn).run(); }

} // namespace contour
