#include "analysis/maps/value_labels.h"

#include "analysis/maps/map_drawing.h"
#include "analysis/maps/temperature_wells.h"
#include "hostkit/model_space.h"

#include <nrx/editor.h>

#include <cmath>

namespace {

constexpr double kLabelHeight = 1.8;

double ucsAngle()
{
    NcGeMatrix3d ucs;
    if (!isOk(ncedGetCurrentUCS(ucs)))
        return 0.0;
    const NcGeVector3d x = ucs * NcGeVector3d::kXAxis;
    return std::atan2(x.y, x.x);
}

NcDbObjectId drawLabel(const geometry::Point3& point, double angle)
{
    const NcGePoint3d place(point.x, point.y, point.z);
    auto text = std::make_unique<NcDbText>(place, valueLabel(point.z), kLabelHeight);
    text->setDatabaseDefaults(workingDatabase());
    text->setHorizontalMode(NcDbText::kTextCenter);
    text->setVerticalMode(NcDbText::kTextVertMid);
    text->setAlignmentPoint(place);
    text->transformBy(NcGeMatrix3d::rotation(angle, NcGeVector3d::kZAxis, place));
    return appendToModelSpace(std::move(text));
}

} // namespace

NcDbObjectIdArray drawValueLabels(const geometry::PointList& points)
{
    const double angle = ucsAngle();
    NcDbObjectIdArray ids;
    for (const geometry::Point3& point : points) {
        if (const NcDbObjectId id = drawLabel(point, angle); !id.isNull())
            ids.push_back(id);
    }
    groupEntities(QStringLiteral("TERVA_VALS_"), ids);
    return ids;
}
