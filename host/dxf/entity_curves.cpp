// Points, lines, circles and arcs.
#include "entity_codec.h"

#include <cmath>

namespace {

std::unique_ptr<NcDbEntity> readPoint(DxfEntityFields& fields, DxfReadContext&, const DxfEntity&)
{
    fields.enter("AcDbPoint");
    takeDownwardNormal(fields);
    return std::make_unique<NcDbPoint>(fields.point(10));
}

void writePoint(const NcDbEntity& entity, DxfRecordWriter& record, DxfWriteContext&)
{
    record.subclass("AcDbPoint");
    record.point(10, as<NcDbPoint>(entity).position());
}

std::unique_ptr<NcDbEntity> readLine(DxfEntityFields& fields, DxfReadContext&, const DxfEntity&)
{
    fields.enter("AcDbLine");
    takeDownwardNormal(fields);
    const NcGePoint3d start = fields.point(10);
    return std::make_unique<NcDbLine>(start, fields.point(11));
}

void writeLine(const NcDbEntity& entity, DxfRecordWriter& record, DxfWriteContext&)
{
    const auto& line = as<NcDbLine>(entity);
    record.subclass("AcDbLine");
    record.point(10, line.startPoint());
    record.point(11, line.endPoint());
}

std::unique_ptr<NcDbEntity> readCircle(DxfEntityFields& fields, DxfReadContext&, const DxfEntity&)
{
    fields.enter("AcDbCircle");
    const NcGePoint3d center = fields.point(10);
    const double radius = fields.real(40);
    const NcGeVector3d normal = fields.vector(210, {0, 0, 1});
    return std::make_unique<NcDbCircle>(planeToWorld(center, normal), normal, radius);
}

void writeCircle(const NcDbEntity& entity, DxfRecordWriter& record, DxfWriteContext&)
{
    const auto& circle = as<NcDbCircle>(entity);
    record.subclass("AcDbCircle");
    record.point(10, worldToPlane(circle.center(), circle.normal()));
    record.real(40, circle.radius());
    if (circle.normal() != NcGeVector3d(0, 0, 1))
        record.vector(210, circle.normal());
}

std::unique_ptr<NcDbEntity> readArc(DxfEntityFields& fields, DxfReadContext&, const DxfEntity&)
{
    fields.enter("AcDbCircle");
    const bool down = takeDownwardNormal(fields);
    NcGePoint3d center = fields.point(10);
    const double radius = fields.real(40);
    fields.enter("AcDbArc");
    double start = fields.angle(50), end = fields.angle(51);
    if (down) {
        center = planeToWorld(center, {0, 0, -1});
        const double mirrored = M_PI - start;
        start = M_PI - end;
        end = mirrored;
    }
    return std::make_unique<NcDbArc>(center, radius, start, end);
}

void writeArc(const NcDbEntity& entity, DxfRecordWriter& record, DxfWriteContext&)
{
    const auto& arc = as<NcDbArc>(entity);
    record.subclass("AcDbCircle");
    record.point(10, arc.center());
    record.real(40, arc.radius());
    record.subclass("AcDbArc");
    record.angle(50, arc.startAngle());
    record.angle(51, arc.endAngle());
}

} // namespace

std::vector<EntityCodec> curveCodecs()
{
    return {
        {"POINT", NcDbPoint::desc, readPoint, writePoint},
        {"LINE", NcDbLine::desc, readLine, writeLine},
        {"CIRCLE", NcDbCircle::desc, readCircle, writeCircle},
        {"ARC", NcDbArc::desc, readArc, writeArc},
    };
}
