#include "elements/passports/block_values.h"

namespace {

// A text that is no number moves nothing.
void take(double& number, const QString& text)
{
    bool isNumber = false;
    const double typed = text.toDouble(&isNumber);
    if (isNumber)
        number = typed;
}

} // namespace

void setBlockValues(ElementBlock& block, const QStringList& values, const PassportFamily& family)
{
    block.setAttribute(QStringLiteral("name"), values.value(ElementName));
    take(block.x, values.value(PlaceX));
    take(block.y, values.value(PlaceY));
    take(block.z, values.value(PlaceZ));
    block.setAttribute(QStringLiteral("rp_z"), values.value(PlaceZ));
    block.setAttribute(QStringLiteral("z"), values.value(PlaceZ));
    take(block.h, values.value(Height));
    block.setAttribute(QStringLiteral("h"), values.value(Height));
    if (block.stateColors.isEmpty())
        block.stateColors = readStateColors();
    block.setState(values.value(StateId));
    bool isPosition = false;
    const int position = values.value(PositionId).toInt(&isPosition);
    block.positionId = isPosition ? position : -1;
    if (!family.tables().hasDepth)
        return;
    take(block.e, values.value(FirstExtra));
    block.setAttribute(QStringLiteral("de"), values.value(FirstExtra));
    bool isConstruction = false;
    const int construction = values.value(FirstExtra + 1).toInt(&isConstruction);
    block.catalogId = isConstruction ? construction : -1;
}
