#include "analysis/maps/map_drawing.h"

#include "base/placeholders.h"
#include "hostkit/console.h"
#include "hostkit/groups.h"
#include "hostkit/layers.h"
#include "hostkit/model_space.h"

#include <nrx/application.h>

#include <algorithm>

namespace {

const QString hatchGroups = QStringLiteral("TERVA_HATCH_");

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

struct Box {
    double left, bottom, right, top;
    bool meets(const Box& o) const { return left < o.right && o.left < right && bottom < o.top && o.bottom < top; }
};

std::vector<Box> boxesOf(const NcDbObjectIdArray& ids)
{
    std::vector<Box> boxes;
    for (const NcDbObjectId& id : ids) {
        const Opened<NcDbEntity> entity(id, kForRead);
        if (const auto extents = entity ? entity->extents() : std::nullopt)
            boxes.push_back({extents->min.x, extents->min.y, extents->max.x, extents->max.y});
    }
    return boxes;
}

bool meet(const std::vector<Box>& some, const std::vector<Box>& others)
{
    return std::any_of(some.begin(), some.end(), [&](const Box& box) {
        return std::any_of(others.begin(), others.end(), [&](const Box& other) { return box.meets(other); });
    });
}

// A new map goes under all else, so earlier ones at its place hide it.
void tellMapsAbove(const NcDbObjectIdArray& fresh)
{
    const std::vector<Box> boxes = boxesOf(fresh);
    QStringList above;
    for (const QString& name : groupNames(hatchGroups)) {
        if (meet(boxes, boxesOf(membersOfGroup(name))))
            above.append(name);
    }
    if (!above.isEmpty())
        say(fill("\nНовая карта лежит под более ранними: %1. Удалите их, чтобы увидеть ее.\n",
                 above.join(QStringLiteral(", "))));
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
    const LayerUnlock unlock(layer);
    if (!unlock)
        return ids;
    for (const contour::PointList& points : lists) {
        if (!points.empty())
            ids.push_back(drawPolyline(layer, points));
    }
    return ids;
}

const LevelRange* bandRange(const LevelMap& levelMap, double level)
{
    if (levelMap.minimum <= level && level <= levelMap.maximum) {
        for (const LevelRange& range : levelMap.ranges) {
            const double middle = level + (range.max - range.min) * 0.5;
            if (range.min <= middle && middle < range.max)
                return &range;
        }
    }
    return nullptr;
}

NcCmColor bandColor(const LevelMap& levelMap, double level)
{
    const LevelRange* range = bandRange(levelMap, level);
    return range ? range->color : NcCmColor::fromRGB(255, 255, 255);
}

NcDbObjectIdArray drawHatches(const std::vector<contour::HatchBand>& bands, const LevelMap& levelMap,
                              const QString& layer, const MapSubject& subject)
{
    NcDbObjectIdArray ids;
    const LayerUnlock unlock(layer);
    if (!unlock)
        return ids;
    for (const contour::HatchBand& band : bands) {
        if (const NcDbObjectId id = drawHatch(band, bandColor(levelMap, band.level), layer); !id.isNull())
            ids.push_back(id);
    }
    if (!ids.empty()) {
        tellMapsAbove(ids);
        groupEntities(hatchGroups, ids, mapDescription(subject, bands, levelMap));
        moveUnderAllElse(ids);
    }
    regenerate();
    return ids;
}
