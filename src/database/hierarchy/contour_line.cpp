#include "database/hierarchy/contour_line.h"

#include "hostkit/model_space.h"

#include <cmath>

namespace {

// The length of a segment whose bulge is the tangent of a quarter of its angle.
double segmentLength(const NcGePoint3d& from, const NcGePoint3d& to, double bulge)
{
    const double chord = std::hypot(to.x - from.x, to.y - from.y);
    const double angle = 4.0 * std::atan(std::fabs(bulge));
    const double sine = std::sin(angle / 2.0);
    return sine > 1e-12 ? chord * (angle / 2.0) / sine : chord;
}

template <class Polyline>
std::vector<ContourPoint> pointsOf(const Polyline& line)
{
    std::vector<ContourPoint> points;
    NcGePoint3d before;
    double bulge = 0.0;
    double distance = 0.0;
    for (int i = 0; i < line.numVerts(); ++i) {
        NcGePoint3d here;
        line.getPointAt(i, here);
        if (i > 0)
            distance += segmentLength(before, here, bulge);
        points.push_back({here.x, here.y, double(i), distance});
        line.getBulgeAt(i, bulge);
        before = here;
    }
    return points;
}

} // namespace

std::optional<std::vector<ContourPoint>> contourPointsOf(NcDbObjectId polyline)
{
    if (const Opened<NcDbPolyline> line(polyline, kForRead); line)
        return pointsOf(*line);
    if (const Opened<NcDb2dPolyline> line(polyline, kForRead); line)
        return pointsOf(*line);
    return {};
}

void drawOpenLine(const geometry::PointList& points)
{
    if (points.size() < 2)
        return;
    auto line = std::make_unique<NcDbPolyline>();
    line->setDatabaseDefaults();
    for (size_t i = 0; i < points.size(); ++i)
        line->addVertexAt(int(i), {points[i].x, points[i].y});
    appendToModelSpace(std::move(line));
}
