#include "analysis/maps/map_drawing.h"

#include "base/text.h"
#include "hostkit/layers.h"
#include "hostkit/model_space.h"

#include <nrx/application.h>

namespace {

NcDbObjectId drawPolyline(const QString& layer, const contour::PointList& points)
{
    auto polyline = std::make_unique<NcDbPolyline>();
    for (const contour::Point3& p : points)
        polyline->addVertexAt(polyline->numVerts(), NcGePoint2d(p.x, p.y));
    polyline->setElevation(points.front().z);
    polyline->setDatabaseDefaults(workingDatabase());
    polyline->setLayer(layer);
    return appendToModelSpace(std::move(polyline));
}

void appendLoop(NcDbHatch& hatch, int type, const contour::PointList& ring)
{
    std::vector<NcGePoint2d> points;
    points.reserve(ring.size());
    for (const contour::Point3& p : ring)
        points.emplace_back(p.x, p.y);
    hatch.appendLoop(type, points, std::vector<double>(points.size(), 0.0));
}

NcDbObjectId drawHatch(const contour::HatchBand& band, const NcCmColor& color, const QString& layer)
{
    auto hatch = std::make_unique<NcDbHatch>();
    hatch->setDatabaseDefaults(workingDatabase());
    hatch->setNormal(NcGeVector3d::kZAxis);
    hatch->setElevation(0.0);
    hatch->setAssociative(false);
    hatch->setPattern(NcDbHatch::kPreDefined, QStringLiteral("SOLID"));
    hatch->setHatchStyle(NcDbHatch::kNormal);
    for (size_t i = 0; i < band.rings.size(); ++i)
        appendLoop(*hatch, i == 0 ? NcDbHatch::kExternal : NcDbHatch::kDefault, band.rings[i]);
    if (!isOk(hatch->evaluateHatch()))
        return {};
    hatch->setLayer(layer);
    hatch->setColor(color);
    return appendToModelSpace(std::move(hatch));
}

void moveUnderAllElse(const NcDbObjectIdArray& ids)
{
    const Opened<NcDbBlockTableRecord> space = openModelSpace(kForWrite);
    NcDbSortentsTable* order = nullptr;
    if (!space || !isOk(space->getSortentsTable(order)))
        return;
    const Opened<NcDbSortentsTable> table(order);
    table->moveToBottom(ids);
}

void regenerate()
{
    NcApDocManager* documents = ncDocManagerPtr();
    documents->sendStringToExecute(documents->curDocument(), QStringLiteral("_regen\n"));
}

} // namespace

NcDbObjectIdArray drawPolylines(const QString& layer, const std::vector<contour::PointList>& lists)
{
    NcDbObjectIdArray ids;
    if (!setLayerLocked(layer, false))
        return ids;
    for (const contour::PointList& points : lists) {
        if (!points.empty())
            ids.push_back(drawPolyline(layer, points));
    }
    return ids;
}

NcCmColor bandColor(const LevelMap& levelMap, double level)
{
    if (levelMap.minimum <= level && level <= levelMap.maximum) {
        for (const LevelRange& range : levelMap.ranges) {
            const double middle = level + (range.max - range.min) * 0.5;
            if (range.min <= middle && middle < range.max)
                return range.color;
        }
    }
    return NcCmColor::fromRGB(255, 255, 255);
}

NcDbObjectIdArray drawHatches(const std::vector<contour::HatchBand>& bands, const LevelMap& levelMap,
                              const QString& layer)
{
    NcDbObjectIdArray ids;
    if (!setLayerLocked(layer, false))
        return ids;
    for (const contour::HatchBand& band : bands) {
        if (const NcDbObjectId id = drawHatch(band, bandColor(levelMap, band.level), layer); !id.isNull())
            ids.push_back(id);
    }
    if (!ids.empty()) {
        groupEntities(QStringLiteral("TERVA_HATCH_"), ids);
        moveUnderAllElse(ids);
    }
    regenerate();
    return ids;
}

NcDbObjectId groupEntities(const QString& prefix, const NcDbObjectIdArray& ids)
{
    NcDbDictionary* opened = nullptr;
    if (ids.empty() || !isOk(workingDatabase()->getGroupDictionary(opened, kForWrite)))
        return {};
    const Opened<NcDbDictionary> groups(opened);
    NcDbObjectId id;
    Made<NcDbGroup> group(new NcDbGroup);
    groups->setAt(prefix + base36(secondsNow()), group.get(), id);
    group->append(ids);
    return id;
}
