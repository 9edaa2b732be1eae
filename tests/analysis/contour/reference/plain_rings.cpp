#include "plain_contour_set.h"

#include "geometry/polygon.h"
#include "geometry/polyline.h"

#include <algorithm>

using geometry::distance;
using geometry::GEOM_TOL;
using geometry::polygonArea;
using geometry::Polyline;

namespace reference {

namespace {

bool isClosed(const Isoline& line) { return distance(line.front(), line.back()) < GEOM_TOL; }

int firstInside(const PointList& ring, const PointList& candidates)
{
    for (std::size_t i = 0; i < candidates.size(); ++i) {
        if (geometry::pointInPolygon(candidates[i], ring))
            return static_cast<int>(i);
    }
    return -1;
}

PointList atValue(PointList ring, double z)
{
    for (Point3& p : ring)
        p.z = z;
    return ring;
}

struct BorderNode {
    Point3 point;
    double parameter;
    std::int32_t lineIndex;
    std::int32_t mate;
};

} // namespace

void PlainContourSet::setLevels(const std::vector<double>& list)
{
    levels = list;
    levels.erase(std::remove_if(levels.begin(), levels.end(), [](double l) { return std::isnan(l); }), levels.end());
    std::sort(levels.begin(), levels.end());
    levelsSet = true;
}

int PlainContourSet::bandOf(double z) const
{
    for (std::size_t i = 0; i + 1 < levels.size(); ++i) {
        if (levels[i] <= z && z < levels[i + 1])
            return static_cast<int>(i);
    }
    return -1;
}

void PlainContourSet::takeReferencePoint(const Isoline& line)
{
    int reference = firstInside(line, surfacePoints);
    if (reference < 0) {
        double smallest = INFINITY;
        const Polyline polyline(line, false);
        for (std::size_t i = 0; i < surfacePoints.size(); ++i) {
            const double d = distance(surfacePoints[i], polyline.closest(surfacePoints[i]).point);
            if (d < smallest) {
                smallest = d;
                reference = static_cast<int>(i);
            }
        }
    }
    if (reference >= 0)
        surfacePoints.erase(surfacePoints.begin() + reference);
}

bool PlainContourSet::buildClosedRings()
{
    if (!levelsSet)
        return false;
    closedRings.clear();
    std::vector<Isoline> closed;
    for (const Isoline& line : lines) {
        if (isClosed(line))
            closed.push_back(line);
    }
    std::stable_sort(closed.begin(), closed.end(),
                     [](const Isoline& a, const Isoline& b) { return polygonArea(a) < polygonArea(b); });
    for (const Isoline& line : closed) {
        takeReferencePoint(line);
        const int i = bandOf(line.front().z);
        if (i < 0)
            continue;
        closedRings.push_back(atValue(line, levels[i]));
        if (i > 0)
            closedRings.push_back(atValue(line, levels[i - 1]));
    }
    return true;
}

double PlainContourSet::valueOfTouchedRing(const PointList& ring, double level, const PointList& onBorder) const
{
    double p;
    const int border = firstInside(ring, onBorder);
    if (border >= 0) {
        p = onBorder[border].z;
    } else {
        const int inner = firstInside(ring, surfacePoints);
        if (inner < 0)
            return level;
        p = surfacePoints[inner].z;
    }
    int band = bandOf(level);
    if (band < 0) {
        if (levels.empty() || level != levels.back())
            return level;
        if (p > level)
            return level; // at the last level: in no band
        band = static_cast<int>(std::find(levels.begin(), levels.end(), level) - levels.begin());
    } else if (p > level) {
        return levels[band + (bandOf(p) > band ? 1 : 0)];
    }
    if (band == 0)
        return std::min(p, std::nextafter(levels.front(), -INFINITY)); // below all bands
    return levels[band - 1];
}

void PlainContourSet::buildRings()
{
    rings.clear();
    const bool closedBuilt = buildClosedRings();
    ringsBuilt = true;
    if (boundary.size() >= 3) {
        const Polyline border(atValue(boundary, 0.0), true);
        std::vector<BorderNode> nodes;
        for (std::size_t i = 0; i < boundary.size(); ++i)
            nodes.push_back({border.vertices()[i], static_cast<double>(i), -1, -1});
        PointList onBorder;
        for (const Point3& p : surfacePoints) {
            if (border.closest(p).distance < GEOM_TOL)
                onBorder.push_back(p);
        }
        bool anyLine = false;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            if (isClosed(lines[i]))
                continue;
            anyLine = true;
            for (const Point3& end : {lines[i].front(), lines[i].back()})
                nodes.push_back({end, border.closest(end).parameter, static_cast<std::int32_t>(i), -1});
        }
        std::stable_sort(nodes.begin(), nodes.end(),
                         [](const BorderNode& a, const BorderNode& b) { return a.parameter < b.parameter; });
        const std::size_t count = nodes.size();
        for (std::size_t i = 0; i < count; ++i) {
            if (nodes[i].lineIndex >= 0)
                continue;
            if (anyLine) {
                std::size_t j = i;
                while (nodes[j].lineIndex < 0)
                    j = j > 0 ? j - 1 : count - 1;
                nodes[i].point.z = nodes[j].point.z;
            } else {
                double smallest = INFINITY, z = 0.0;
                for (const Point3& p : onBorder) {
                    const double d = distance(p, nodes[i].point);
                    if (d < smallest) {
                        smallest = d;
                        z = p.z;
                    }
                }
                nodes[i].point.z = z;
            }
        }
        for (std::size_t i = 0; i < count; ++i) {
            if (nodes[i].lineIndex < 0)
                nodes[i].mate = static_cast<std::int32_t>(i);
            for (std::size_t j = i + 1; j < count && nodes[i].mate < 0; ++j) {
                if (nodes[j].lineIndex == nodes[i].lineIndex) {
                    nodes[i].mate = static_cast<std::int32_t>(j);
                    nodes[j].mate = static_cast<std::int32_t>(i);
                }
            }
        }
        std::vector<char> walked(count, 0);
        for (std::size_t first = 0; first < count; ++first) {
            if (walked[first])
                continue;
            double minimum = 999999.0, maximum = -999999.0;
            bool touched = false;
            PointList ring;
            std::size_t i = first;
            do {
                const BorderNode& node = nodes[i];
                walked[i] = 1;
                minimum = std::min(minimum, node.point.z);
                maximum = std::max(maximum, node.point.z);
                if (node.lineIndex < 0) {
                    ring.push_back(node.point);
                } else {
                    touched = true;
                    Isoline line = lines[node.lineIndex];
                    if (!(distance(node.point, line.front()) < GEOM_TOL))
                        std::reverse(line.begin(), line.end());
                    ring.insert(ring.end(), line.begin(), line.end());
                }
                i = (static_cast<std::size_t>(node.mate) + 1) % count;
            } while (i != first);
            ring.push_back(nodes[first].point);
            double value = minimum;
            if (touched && minimum == maximum)
                value = valueOfTouchedRing(ring, minimum, onBorder);
            rings.push_back(atValue(ring, value));
        }
    }
    if (closedBuilt)
        rings.insert(rings.end(), closedRings.begin(), closedRings.end());
}

std::vector<std::vector<PointList>> PlainContourSet::groupByBand() const
{
    std::vector<std::vector<PointList>> groups;
    if (!ringsBuilt)
        return groups;
    for (std::size_t i = 0; i < levels.size(); ++i) {
        std::vector<PointList> group;
        for (const PointList& ring : rings) {
            if (bandOf(ring[0].z) == static_cast<int>(i))
                group.push_back(ring);
        }
        std::stable_sort(group.begin(), group.end(),
                         [](const PointList& a, const PointList& b) { return polygonArea(a) > polygonArea(b); });
        groups.push_back(group);
    }
    return groups;
}

PlainBuild plainBuild(const contour::BuildInput& input, const contour::BuildParameters& parameters)
{
    PlainBuild build{contour::BuildStatus::Done, {}, {}, {}};
    PlainSurface& surface = build.surface;
    if (!input.points)
        build.status = contour::BuildStatus::NoPoints;
    else if (!input.bounds && !parameters.calculateBoundary)
        build.status = contour::BuildStatus::NoBounds;
    if (build.status != contour::BuildStatus::Done)
        return build;
    const bool hull = !input.bounds;
    surface.setPoints(*input.points);
    if (input.bounds)
        surface.setBoundary(*input.bounds, input.exactEdges);
    if (parameters.method == contour::Method::Triangulation || hull) {
        surface.prepare();
        if (surface.vertexCount >= 3)
            surface.triangulate();
        if (hull)
            surface.boundaryFromHull();
    }
    if (parameters.method == contour::Method::InverseDistance) {
        const PointList grid = surface.idwGridPoints(parameters.power, parameters.neighbours);
        PointList all = surface.rawPoints;
        all.insert(all.end(), grid.begin(), grid.end());
        surface.setPoints(all);
        surface.densifyBoundaryValues();
        surface.prepare();
        if (surface.vertexCount >= 3)
            surface.triangulate();
    }
    const bool anyTriangle = surface.triangleCount > 0;
    surface.trianglesInsideBoundary();
    build.levels = input.levels;
    PlainContourSet& set = build.contours;
    set.lines = surface.isolines(build.levels);
    set.boundary = surface.boundary;
    set.setLevels(build.levels);
    if (parameters.filterLines)
        set.filterLines(parameters.filterDistance);
    if (parameters.refineLines)
        set.refineLines(parameters.refineDistance, parameters.refineParts);
    if (parameters.smoothLines) {
        set.smoothLines(parameters.tension, parameters.splineSamples);
        set.lines = set.smoothedLines;
    }
    set.surfacePoints = surface.points;
    if (anyTriangle)
        set.buildRings();
    else
        build.status = surface.vertexCount < 3 ? contour::BuildStatus::FewPoints : contour::BuildStatus::NoTriangle;
    return build;
}

} // namespace reference
