#include "analysis/grading/profile_figures.h"

#include <algorithm>
#include <cmath>

namespace {

void addPair(const ProfilePoint& one, const ProfilePoint& next, ProfileFigures& figures)
{
    const double difference = next.delta - one.delta;
    const double distance = std::hypot(next.x - one.x, next.y - one.y);
    const double relative = distance == 0.0 ? 0.0 : std::fabs(difference) / distance;
    figures.deltaDiffMin = std::min(figures.deltaDiffMin, difference);
    figures.deltaDiffMax = std::max(figures.deltaDiffMax, difference);
    figures.relativeMin = std::min(figures.relativeMin, relative);
    figures.relativeMax = std::max(figures.relativeMax, relative);
}

} // namespace

ProfileFigures computeFigures(const std::vector<ProfilePoint>& points)
{
    ProfileFigures figures;
    int valid = 0;
    double sum = 0.0;
    for (const ProfilePoint& point : points) {
        if (!point.valid)
            continue;
        ++valid;
        sum += std::fabs(point.delta);
        figures.deltaMaxAbs = std::max(figures.deltaMaxAbs, std::fabs(point.delta));
    }
    if (valid > 0)
        figures.deltaMeanAbs = sum / valid;
    if (std::isinf(figures.deltaMaxAbs))
        figures.deltaMaxAbs = 0.0;
    for (size_t i = 1; i < points.size(); ++i) {
        if (points[i - 1].valid && points[i].valid)
            addPair(points[i - 1], points[i], figures);
    }
    return figures;
}
