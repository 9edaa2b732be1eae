#include "analysis/maps/value_labels.h"

#include "analysis/maps/temperature_wells.h"
#include "hostkit/groups.h"
#include "hostkit/model_space.h"
#include "hostkit/user_system.h"

namespace {

constexpr double kLabelHeight = 1.8;

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
    const double angle = userSystemAngle();
    NcDbObjectIdArray ids;
    for (const geometry::Point3& point : points) {
        if (const NcDbObjectId id = drawLabel(point, angle); !id.isNull())
            ids.push_back(id);
    }
    groupEntities(QStringLiteral("TERVA_VALS_"), ids);
    return ids;
}
