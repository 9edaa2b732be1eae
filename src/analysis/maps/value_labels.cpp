#include "analysis/maps/value_labels.h"

#include "analysis/maps/temperature_wells.h"
#include "hostkit/groups.h"
#include "hostkit/model_space.h"
#include "hostkit/user_system.h"

namespace {

constexpr double kLabelHeight = 1.8;

NcDbObjectId drawLabel(const MapLabel& label, double angle)
{
    const NcGePoint3d place(label.place.x, label.place.y, label.place.z);
    auto text = std::make_unique<NcDbText>(place, label.text, kLabelHeight);
    text->setDatabaseDefaults(workingDatabase());
    text->setHorizontalMode(NcDbText::kTextCenter);
    text->setVerticalMode(label.held);
    text->setAlignmentPoint(place);
    text->transformBy(NcGeMatrix3d::rotation(angle, NcGeVector3d::kZAxis, place));
    return appendToModelSpace(std::move(text));
}

} // namespace

NcDbObjectIdArray drawLabels(const std::vector<MapLabel>& labels)
{
    const double angle = userSystemAngle();
    NcDbObjectIdArray ids;
    for (const MapLabel& label : labels) {
        if (const NcDbObjectId id = drawLabel(label, angle); !id.isNull())
            ids.push_back(id);
    }
    groupEntities(QStringLiteral("TERVA_VALS_"), ids);
    return ids;
}

NcDbObjectIdArray drawValueLabels(const geometry::PointList& points)
{
    std::vector<MapLabel> labels;
    for (const geometry::Point3& point : points)
        labels.push_back({point, valueLabel(point.z)});
    return drawLabels(labels);
}

NcDbObjectIdArray drawLabelPairs(const std::vector<LabelPair>& pairs)
{
    std::vector<MapLabel> labels;
    for (const LabelPair& pair : pairs) {
        const geometry::Point3 place{pair.place.x, pair.place.y, 0.0};
        labels.push_back({place, pair.above, NcDbText::kTextTop});
        labels.push_back({place, pair.below, NcDbText::kTextBottom});
    }
    return drawLabels(labels);
}
