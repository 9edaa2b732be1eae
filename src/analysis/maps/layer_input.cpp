#include "analysis/maps/layer_input.h"

#include "hostkit/model_space.h"

#include <nrx/editor.h>

namespace {

constexpr int kLayerCode = 8;
constexpr size_t kFewestPoints = 3;

NcDbObjectIdArray entitiesOf(const QString& layer)
{
    NcSelectionSet set;
    if (ncedSSGet(QStringLiteral("X"), {{kLayerCode, layer}}, set) != kPromptNormal)
        return {};
    NcDbObjectIdArray ids = set.ids;
    ncedSSFree(set);
    return ids;
}

template <class Polyline>
geometry::PointList verticesOf(const Polyline& polyline)
{
    geometry::PointList points;
    for (int i = 0; i < polyline.numVerts(); ++i) {
        NcGePoint3d p;
        if (isOk(polyline.getPointAt(i, p)))
            points.push_back({p.x, p.y, p.z});
    }
    return points;
}

} // namespace

geometry::PointList loadPointsFromLayer(const QString& layer)
{
    geometry::PointList points;
    for (const NcDbObjectId id : entitiesOf(layer)) {
        if (const Opened<NcDbPoint> point(id, kForRead); point) {
            const NcGePoint3d p = point->position();
            points.push_back({p.x, p.y, p.z});
        }
    }
    return points.size() < kFewestPoints ? geometry::PointList{} : points;
}

std::optional<geometry::PointList> loadBoundaryFromLayer(const QString& layer)
{
    for (const NcDbObjectId id : entitiesOf(layer)) {
        const Opened<NcDbPolyline> polyline(id, kForRead);
        if (polyline && polyline->numVerts() > 0)
            return verticesOf(*polyline);
    }
    return std::nullopt;
}

std::optional<PickedBorder> askForBorder(const QString& prompt)
{
    NcSelectionName name;
    NcGePoint3d picked;
    NcDbObjectId id;
    if (ncedEntSel(prompt, name, picked) != kPromptNormal || !isOk(ncdbGetObjectId(id, name)))
        return std::nullopt;
    if (const Opened<NcDbPolyline> polyline(id, kForRead); polyline)
        return PickedBorder{verticesOf(*polyline), polyline->layer()};
    if (const Opened<NcDb2dPolyline> polyline(id, kForRead); polyline)
        return PickedBorder{verticesOf(*polyline), polyline->layer()};
    return std::nullopt;
}
