#include "drawing/alignment/plan_lines.h"

#include "geometry/arc.h"
#include "hostkit/model_space.h"

namespace {

geometry::Point3 planPoint(const NcGePoint3d& p) { return {p.x, p.y, p.z}; }

// Both kinds of polyline answer the same questions.
template <class Polyline>
geometry::PointList chain(const Polyline& line)
{
    geometry::PointList points;
    double bulge = 0.0;
    const auto add = [&](int vertex) {
        NcGePoint3d p;
        line.getPointAt(vertex, p);
        if (points.empty()) {
            points.push_back(planPoint(p));
        } else {
            const geometry::PointList arc = geometry::arcPoints(points.back(), planPoint(p), bulge);
            points.insert(points.end(), arc.begin(), arc.end());
        }
        line.getBulgeAt(vertex, bulge);
    };
    for (int i = 0; i < line.numVerts(); ++i)
        add(i);
    if (line.isClosed() && line.numVerts() > 1)
        add(0);
    return points;
}

geometry::PointList pointsOf(const NcDbEntity& entity)
{
    if (entity.isKindOf(NcDbLine::desc())) {
        const auto& line = static_cast<const NcDbLine&>(entity);
        return {planPoint(line.startPoint()), planPoint(line.endPoint())};
    }
    if (entity.isKindOf(NcDbPolyline::desc()))
        return chain(static_cast<const NcDbPolyline&>(entity));
    if (entity.isKindOf(NcDb2dPolyline::desc()))
        return chain(static_cast<const NcDb2dPolyline&>(entity));
    return {};
}

} // namespace

std::optional<PlanLines> collectPlanLines(const std::optional<QString>& layer)
{
    const std::optional<NcDbObjectIdArray> ids = entitiesOfModelSpace();
    if (!ids)
        return {};
    PlanLines plan;
    for (const NcDbObjectId& id : *ids) {
        const Opened<NcDbEntity> entity(id, kForRead);
        if (!entity || (layer && entity->layer().compare(*layer, Qt::CaseInsensitive) != 0))
            continue;
        ++plan.entities;
        geometry::PointList points = pointsOf(*entity);
        if (!points.empty())
            plan.lines.push_back(std::move(points));
    }
    return plan;
}
