#include "drawing/alignment/element_turn.h"

#include "base/text.h"

#include <cmath>

namespace {

struct LabelVector {
    const char* x;
    const char* y;
};

const LabelVector labelVectors[] = {
    {"Положение1 X", "Положение1 Y"},
    {"Положение2 X", "Положение2 Y"},
    {"Заглубление X", "Заглубление Y"},
};

const QString markerAngle = QStringLiteral("Угол1");

void turnMarker(ElementBlock& element, const ElementTurn& turn)
{
    if (!element.hasDynProp(markerAngle))
        return;
    // Rotations of blocks come as 0..2π, angles of axes as -π..π: a full turn
    // between them must not add up over several runs.
    const double by = std::remainder(element.blockRotation - turn.angle, 2.0 * M_PI);
    const double kept = element.dynProps.value(markerAngle).toDouble() + by;
    element.setDynProp(markerAngle, turn.marker == ElementTurn::Marker::Keep ? fixed(kept, 6) : QStringLiteral("0.0"));
}

void turnVector(ElementBlock& element, const LabelVector& vector, double by, double scale)
{
    if (!element.hasDynProp(vector.x) || !element.hasDynProp(vector.y))
        return;
    const double x = element.dynProps.value(vector.x).toDouble();
    const double y = element.dynProps.value(vector.y).toDouble();
    element.setDynProp(vector.x, fixed((x * std::cos(by) - y * std::sin(by)) * scale, 4));
    element.setDynProp(vector.y, fixed((x * std::sin(by) + y * std::cos(by)) * scale, 4));
}

} // namespace

void turnElement(ElementBlock& element, const ElementTurn& turn)
{
    turnMarker(element, turn);
    for (const LabelVector& vector : labelVectors)
        turnVector(element, vector, element.blockRotation - turn.angle, turn.labelScale);
    element.blockRotation = turn.angle;
}
