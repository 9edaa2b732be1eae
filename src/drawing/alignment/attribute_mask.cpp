#include "drawing/alignment/attribute_mask.h"

#include "drawing/alignment/element_blocks.h"
#include "hostkit/block_reference.h"
#include "hostkit/console.h"
#include "hostkit/layers.h"
#include "hostkit/model_space.h"
#include "hostkit/user_system.h"

#include <cmath>

namespace {

constexpr double groundScale = 1.1;
constexpr double textStep = 0.5;
constexpr double worldStep = 0.4;

void mask(NcDbAttribute& attribute, double angle, double scale)
{
    attribute.convertIntoMTextAttribute();
    const std::unique_ptr<NcDbMText> text(attribute.getMTextAttribute());
    if (!text)
        return;
    const int direction = maskDirection(text->attachment());
    const NcGePoint3d place = text->location();
    if (direction != 0)
        text->setLocation({place.x, place.y + textStep * direction, place.z});
    text->setBackgroundFill(true);
    text->setBackgroundScaleFactor(groundScale);
    text->setUseBackgroundColor(true);
    attribute.setMTextAttribute(text.get());
    attribute.transformBy(NcGeMatrix3d::translation(maskShift(direction, angle, scale)));
}

void maskAttributesOf(NcDbObjectId id, double angle)
{
    const Opened<NcDbBlockReference> reference(id, kForRead);
    if (!reference)
        return;
    const double scale = reference->scaleFactors().sx;
    const LayerUnlock unlock(reference->layer());
    forEachAttribute(*reference, kForWrite, [&](NcDbAttribute& attribute) {
        if (!attribute.isInvisible())
            mask(attribute, angle, scale);
    });
}

} // namespace

int maskDirection(int attachment)
{
    switch (attachment) {
    case 7:
    case 8:
    case 9:
    case 14:
    case 18:
    case 22: return 1;
    case 1:
    case 2:
    case 3:
    case 16:
    case 20:
    case 24: return -1;
    default: return 0;
    }
}

NcGeVector3d maskShift(int direction, double angle, double scale)
{
    const double way = worldStep * scale * direction;
    return {-std::sin(angle) * way, std::cos(angle) * way, 0.0};
}

void maskAttributes()
{
    const std::optional<NcDbObjectIdArray> entities = entitiesOfModelSpace();
    if (!entities)
        return say(modelSpaceError());
    const double angle = userSystemAngle();
    for (const NcDbObjectId& id : *entities) {
        if (elementOf(id).kind != noKind)
            maskAttributesOf(id, angle);
    }
}
