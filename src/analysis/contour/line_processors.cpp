#include "analysis/contour/iso_contour_set.h"

#include "geometry/cardinal_spline.h"
#include "geometry/polyline.h"

#include <algorithm>

// What can be done to lines between tracing and closing them into rings.
namespace contour {

namespace {

Isoline filtered(const Isoline& line, double minDistance)
{
    Isoline kept;
    kept.reserve(line.size());
    for (std::size_t i = 0; i < line.size(); ++i) {
        const bool inner = i > 0 && i + 1 < line.size();
        // Compared with the point before as it was: points go from the end down.
        if (!inner || !(geometry::distance(line[i], line[i - 1]) < minDistance))
            kept.push_back(line[i]);
    }
    if (isClosedLine(line) && !isClosedLine(kept))
        kept.push_back(Point3(kept.front()));
    return kept;
}

Isoline refined(const Isoline& line, double maxLength, int parts)
{
    PointList atOneLevel = line;
    for (Point3& p : atOneLevel)
        p.z = line.front().z;
    const geometry::Polyline polyline(std::move(atOneLevel), false);
    const double step = 1.0 / parts;
    Isoline result;
    result.reserve(line.size());
    for (std::size_t i = 0; i < polyline.segmentCount(); ++i) {
        const Point3& start = polyline.segmentStart(i);
        result.push_back(start);
        if (geometry::planDistance(start, polyline.segmentEnd(i)) > maxLength) {
            for (int k = 0; k < parts; ++k)
                result.push_back(polyline.pointAt(static_cast<double>(i) + k * step));
        }
    }
    result.push_back(polyline.vertices().back());
    return result;
}

SharedLine smoothedThrough(const SharedLine& traced, const geometry::CardinalSpline& spline)
{
    const Isoline& line = *traced;
    if (line.size() < 4)
        return traced;
    const double z = line.front().z;
    if (!isClosedLine(line))
        return shared(spline.throughOpen(line, z));
    return shared(spline.throughClosed(PointList(line.begin(), line.end() - 1), z));
}

} // namespace

void IsoContourSet::filterLines(double minDistance)
{
    for (std::size_t i = 0; i < lines.size(); ++i)
        lines.replace(i, filtered(lines[i], minDistance));
}

void IsoContourSet::refineLines(double maxLength, int parts)
{
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (!lines[i].empty())
            lines.replace(i, refined(lines[i], maxLength, std::max(parts, 1)));
    }
}

void IsoContourSet::smoothLines(double tension, int samples)
{
    const geometry::CardinalSpline spline(tension, samples);
    smoothedLines.clear();
    smoothedLines.reserve(lines.size());
    linePairs.resize(lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        smoothedLines.push_back(smoothedThrough(lines.share(i), spline));
        linePairs[i].smoothed = smoothedLines.share(i);
    }
    smoothed = true;
}

void IsoContourSet::useSmoothedLines() { lines = smoothedLines; }

} // namespace contour
