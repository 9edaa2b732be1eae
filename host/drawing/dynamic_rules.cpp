#include "dynamic_rules.h"

#include "entity_shape.h"
#include "host_access.h"

#include <cmath>

namespace {

NcGePoint3d vertexAt(const NcDbEntity& entity, int index)
{
    NcGePoint3d point;
    if (entity.isKindOf(NcDbLine::desc())) {
        const auto& line = static_cast<const NcDbLine&>(entity);
        point = index == 0 ? line.startPoint() : line.endPoint();
    } else if (entity.isKindOf(NcDbPolyline::desc())) {
        static_cast<const NcDbPolyline&>(entity).getPointAt(index, point);
    }
    return point;
}

void setVertex(NcDbEntity& entity, int index, const NcGePoint3d& point)
{
    if (entity.isKindOf(NcDbLine::desc())) {
        auto& line = static_cast<NcDbLine&>(entity);
        index == 0 ? line.setStartPoint(point) : line.setEndPoint(point);
    } else if (entity.isKindOf(NcDbPolyline::desc())) {
        auto& vertices = HostAccess::vertices(static_cast<NcDbPolyline&>(entity));
        if (index >= 0 && size_t(index) < vertices.size())
            vertices[size_t(index)].point = {point.x, point.y};
    }
}

NcGeVector3d grip(const DynamicBinding& binding, const DynamicValues& values)
{
    return {values.change(binding.parameter), values.change(binding.second), 0.0};
}

void setLength(const DynamicBinding& binding, const DynamicValues& values, NcDbEntity& entity)
{
    const NcGePoint3d from = vertexAt(entity, binding.vertex == 0 ? 1 : binding.vertex - 1);
    NcGeVector3d direction = (vertexAt(entity, binding.vertex) - from).normal();
    if (direction.length() == 0.0)
        direction = NcGeVector3d(binding.direction.x, binding.direction.y, 0.0).normal();
    setVertex(entity, binding.vertex, from + direction * values.number(binding.parameter));
}

NcGeMatrix3d mirroring(const NcGePoint2d& base, double axisAngle)
{
    const double c = std::cos(2.0 * axisAngle), s = std::sin(2.0 * axisAngle);
    NcGeMatrix3d matrix;
    matrix.setCoordSystem({base.x - c * base.x - s * base.y, base.y - s * base.x + c * base.y, 0.0}, {c, s, 0.0},
                          {s, -c, 0.0}, {0, 0, 1});
    return matrix;
}

// A mirrored text reads as before: it grows to the other side of its place.
void mirrorText(NcDbText& text, const NcGeMatrix3d& matrix, double axisAngle)
{
    const bool wasLeft = text.horizontalMode() == NcDbText::kTextLeft;
    const bool plain = wasLeft && text.verticalMode() == NcDbText::kTextBase;
    const NcGePoint3d held = matrix * (plain ? text.position() : text.alignmentPoint());
    text.setPosition(matrix * text.position());
    text.setAlignmentPoint(held);
    if (wasLeft)
        text.setHorizontalMode(NcDbText::kTextRight);
    else if (text.horizontalMode() == NcDbText::kTextRight)
        text.setHorizontalMode(NcDbText::kTextLeft);
    if (text.horizontalMode() == NcDbText::kTextLeft && text.verticalMode() == NcDbText::kTextBase)
        text.setPosition(held);
    const double turned = normalAngle(2.0 * axisAngle - text.rotation() + M_PI);
    text.setRotation(turned > 2.0 * M_PI - 1e-12 ? 0.0 : turned);
}

// Left and right attachments change places.
void mirrorMText(NcDbMText& text, const NcGeMatrix3d& matrix, double axisAngle)
{
    const int column = (text.attachment() - 1) % 3;
    text.setLocation(matrix * text.location());
    text.setAttachment(text.attachment() + 2 * (1 - column));
    const double turned = normalAngle(2.0 * axisAngle - text.rotation() + M_PI);
    text.setRotation(turned > 2.0 * M_PI - 1e-12 ? 0.0 : turned);
}

void mirror(const DynamicBinding& binding, NcDbEntity& entity)
{
    const double axisAngle = std::atan2(binding.direction.y, binding.direction.x);
    const NcGeMatrix3d matrix = mirroring(binding.base, axisAngle);
    if (entity.isKindOf(NcDbText::desc()))
        mirrorText(static_cast<NcDbText&>(entity), matrix, axisAngle);
    else if (entity.isKindOf(NcDbMText::desc()))
        mirrorMText(static_cast<NcDbMText&>(entity), matrix, axisAngle);
    else
        entity.transformBy(matrix);
}

} // namespace

double DynamicValues::change(const QString& name) const
{
    const DynamicParameter* parameter = definition_.parameter(name);
    return parameter ? number(name) - parameter->defaultValue.toDouble() : 0.0;
}

void applyBinding(const DynamicBinding& binding, const DynamicValues& values, NcDbEntity& entity)
{
    switch (binding.kind) {
    case DynamicBinding::Move: entity.transformBy(NcGeMatrix3d::translation(grip(binding, values))); break;
    case DynamicBinding::Slide: {
        const NcGeVector3d along(binding.direction.x, binding.direction.y, 0.0);
        entity.transformBy(NcGeMatrix3d::translation(along * values.change(binding.parameter)));
        break;
    }
    case DynamicBinding::Stretch:
        setVertex(entity, binding.vertex, vertexAt(entity, binding.vertex) + grip(binding, values));
        break;
    case DynamicBinding::Length: setLength(binding, values, entity); break;
    case DynamicBinding::Rotate:
        entity.transformBy(NcGeMatrix3d::rotation(values.change(binding.parameter), NcGeVector3d::kZAxis,
                                                  {binding.base.x, binding.base.y, 0.0}));
        break;
    case DynamicBinding::Mirror:
        if (values.number(binding.parameter) != 0.0)
            mirror(binding, entity);
        break;
    case DynamicBinding::Visible:
        if (!binding.values.contains(values.printed(binding.parameter)))
            entity.setVisible(false);
        break;
    }
}
