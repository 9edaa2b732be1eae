#include "hostkit/error_markers.h"

#include "hostkit/console.h"
#include "hostkit/layers.h"
#include "hostkit/model_space.h"

#include <nrx/editor.h>

#include <array>
#include <cmath>

namespace {

struct MarkerShapes {
    ErrorMarker marker;
    double crossSize;            // 0: no cross
    std::array<double, 3> radii; // 0: no circle
};

constexpr std::array<MarkerShapes, 4> markers = {{
    {ErrorMarker::NameDuplicate, 0.0, {5.0, 5.5, 0.0}},
    {ErrorMarker::IdDuplicate, 0.0, {5.0, 5.5, 6.0}},
    {ErrorMarker::NotInDatabase, 5.0, {0.0, 0.0, 0.0}},
    {ErrorMarker::NotInPosition, 5.0, {5.0, 0.0, 0.0}},
}};

void addToErrorLayer(std::unique_ptr<NcDbEntity> entity)
{
    {
        const LayerUnlock unlock(errorLayerName());
        if (!isOk(entity->setLayer(errorLayerName())))
            say(QStringLiteral("Error set layer \n"));
        appendToModelSpace(std::move(entity));
    }
    // Also when someone had unlocked it.
    setLayerLocked(errorLayerName(), true);
}

void addErrorLine(const NcGePoint3d& from, const NcGePoint3d& to)
{
    addToErrorLayer(std::make_unique<NcDbLine>(from, to));
}

} // namespace

QString errorLayerName() { return QStringLiteral("TERVA_ERROR_SYNC"); }

void ensureErrorLayer()
{
    ensureLayer(errorLayerName(), 1);
    setLayerLocked(errorLayerName(), true);
}

void clearErrorLayer()
{
    ensureErrorLayer();
    NcSelectionSet set;
    if (ncedSSGet(QStringLiteral("X"), {{8, errorLayerName()}}, set) != kPromptNormal)
        return;
    const LayerUnlock unlock(errorLayerName());
    for (const NcDbObjectId& id : set.ids)
        eraseEntity(id);
    ncedSSFree(set);
}

void addErrorCircle(const NcGePoint3d& center, double radius)
{
    addToErrorLayer(std::make_unique<NcDbCircle>(center, NcGeVector3d(0, 0, 1), radius));
}

void addErrorCross(const NcGePoint3d& center, double size)
{
    const double arm = std::sqrt(size);
    addErrorLine({center.x - arm, center.y - arm, 0}, {center.x + arm, center.y + arm, 0});
    addErrorLine({center.x - arm, center.y + arm, 0}, {center.x + arm, center.y - arm, 0});
}

void addErrorMarker(ErrorMarker marker, const NcGePoint3d& at)
{
    for (const MarkerShapes& shapes : markers) {
        if (shapes.marker != marker)
            continue;
        if (shapes.crossSize > 0.0)
            addErrorCross(at, shapes.crossSize);
        for (const double radius : shapes.radii) {
            if (radius > 0.0)
                addErrorCircle(at, radius);
        }
    }
}
