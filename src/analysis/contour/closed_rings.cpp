#include "analysis/contour/iso_contour_set.h"

#include "analysis/contour/inner_points.h"
#include "geometry/polygon.h"

#include <algorithm>

namespace contour {

namespace {

struct ClosedLine {
    SharedLine line;
    double area;
};

// Smallest first, so that an inner loop has its point before the outer one.
std::vector<ClosedLine> closedByArea(const LineList& lines)
{
    std::vector<ClosedLine> closed;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (isClosedLine(lines[i]))
            closed.push_back({lines.share(i), geometry::polygonArea(lines[i])});
    }
    std::stable_sort(closed.begin(), closed.end(),
                     [](const ClosedLine& a, const ClosedLine& b) { return a.area < b.area; });
    return closed;
}

// Every line takes the first point inside it, or else the nearest, out of the list.
void takeReferencePoints(const std::vector<ClosedLine>& closed, PointList* points)
{
    if (closed.empty() || points->empty())
        return;
    InnerPoints left(*points, geometry::PointTree::Halved::InSpace);
    std::vector<char> taken(points->size(), 0);
    for (const ClosedLine& loop : closed) {
        int reference = left.firstInside(*loop.line);
        if (reference < 0)
            reference = left.nearestToLine(*loop.line);
        if (reference < 0)
            break;
        left.remove(reference);
        taken[static_cast<std::size_t>(reference)] = 1;
    }
    PointList remaining;
    for (std::size_t i = 0; i < points->size(); ++i) {
        if (!taken[i])
            remaining.push_back((*points)[i]);
    }
    *points = std::move(remaining);
}

Ring atValue(const SharedLine& line, double value)
{
    Ring ring;
    ring.add(line);
    ring.setValue(value);
    return ring;
}

} // namespace

bool IsoContourSet::buildClosedRings()
{
    if (!levelsSet)
        return false;
    closedRings.clear();
    const std::vector<ClosedLine> closed = closedByArea(lines);
    takeReferencePoints(closed, &surfacePoints);
    for (const ClosedLine& loop : closed) {
        const int band = bandOf(loop.line->front().z);
        if (band < 0)
            continue;
        closedRings.push_back(atValue(loop.line, levels[static_cast<std::size_t>(band)]));
        if (band > 0)
            closedRings.push_back(atValue(loop.line, levels[static_cast<std::size_t>(band) - 1]));
    }
    return true;
}

} // namespace contour
