// Both polylines: the light one in one record, the older one in a record a vertex.
#include "entity_codec.h"

#include <algorithm>

namespace {

constexpr int kClosed = 1;
// A vertex that only shapes a spline.
constexpr int kFrame = 16;
// Curves, meshes and three-dimensional polylines that share the record's type.
constexpr int kOtherKinds = 8 | 16 | 64;

bool isVertexCode(int code) { return code == 10 || code == 20 || code == 40 || code == 41 || code == 42 || code == 91; }

std::vector<NcDbPolyline::Vertex> verticesOf(const DxfGroups& groups, double width)
{
    std::vector<NcDbPolyline::Vertex> vertices;
    for (const DxfGroup& group : groups) {
        const double value = realOf(group.value);
        if (group.code == 10) {
            vertices.emplace_back();
            vertices.back().point.x = value;
            vertices.back().startWidth = vertices.back().endWidth = width;
            continue;
        }
        if (vertices.empty())
            continue;
        NcDbPolyline::Vertex& vertex = vertices.back();
        switch (group.code) {
        case 20: vertex.point.y = value; break;
        case 40: vertex.startWidth = value; break;
        case 41: vertex.endWidth = value; break;
        case 42: vertex.bulge = value; break;
        default: break;
        }
    }
    return vertices;
}

std::unique_ptr<NcDbEntity> readLight(DxfEntityFields& fields, DxfReadContext&, const DxfEntity&)
{
    auto polyline = std::make_unique<NcDbPolyline>();
    fields.enter("AcDbPolyline");
    const bool down = takeDownwardNormal(fields);
    const double side = down ? -1.0 : 1.0;
    fields.integer(90);
    HostAccess::closed(*polyline) = fields.flags(70, kClosed) & kClosed;
    HostAccess::elevation(*polyline) = fields.real(38) * side;
    const double width = fields.real(43);
    HostAccess::vertices(*polyline) = verticesOf(fields.sequence(10, isVertexCode), width);
    for (NcDbPolyline::Vertex& vertex : HostAccess::vertices(*polyline)) {
        vertex.point.x *= side;
        vertex.bulge *= side;
    }
    return polyline;
}

bool sameWidths(const std::vector<NcDbPolyline::Vertex>& vertices)
{
    return std::all_of(vertices.begin(), vertices.end(), [&](const NcDbPolyline::Vertex& vertex) {
        return vertex.startWidth == vertices.front().startWidth && vertex.endWidth == vertices.front().startWidth;
    });
}

void writeLight(const NcDbEntity& entity, DxfRecordWriter& record, DxfWriteContext&)
{
    const auto& polyline = as<NcDbPolyline>(entity);
    const std::vector<NcDbPolyline::Vertex>& vertices = HostAccess::vertices(polyline);
    const bool constant = sameWidths(vertices);
    record.subclass("AcDbPolyline");
    record.integer(90, qint64(vertices.size()));
    record.flags(70, polyline.isClosed() ? kClosed : 0, kClosed);
    if (constant)
        record.real(43, vertices.empty() ? 0.0 : vertices.front().startWidth);
    if (polyline.elevation() != 0.0)
        record.real(38, polyline.elevation());
    for (const NcDbPolyline::Vertex& vertex : vertices) {
        record.point2d(10, vertex.point.x, vertex.point.y);
        if (!constant) {
            record.real(40, vertex.startWidth);
            record.real(41, vertex.endWidth);
        }
        if (vertex.bulge != 0.0)
            record.real(42, vertex.bulge);
    }
}

struct OldVertices {
    std::vector<NcGePoint3d> points;
    std::vector<double> bulges;
    bool plain = true; // the records tell nothing else
};

OldVertices oldVerticesOf(const DxfRecords& parts)
{
    OldVertices vertices;
    for (const DxfRecord& part : parts) {
        if (part.type != QLatin1String("VERTEX"))
            continue;
        DxfFields fields(part.groups);
        fields.enter("AcDb2dVertex");
        const int flags = fields.flags(70, 0);
        vertices.plain = vertices.plain && flags == 0;
        if (flags & kFrame)
            continue;
        vertices.points.push_back(fields.point(10));
        vertices.bulges.push_back(fields.real(42));
        fields.enterHead();
        fields.handle(5);
        fields.handle(330);
        fields.enter("AcDbEntity");
        fields.word(8);
        fields.integer(67);
        vertices.plain = vertices.plain && fields.rest().isEmpty();
    }
    return vertices;
}

// Records beside an object; subclass marks inside them are told apart from
// those of the object.
DxfGroups packed(const DxfRecords& parts)
{
    DxfGroups groups{{100, QLatin1String(kKeptVerbatim)}};
    for (const DxfRecord& part : parts) {
        groups.push_back({0, part.type});
        for (const DxfGroup& group : part.groups)
            groups.push_back({group.code == 100 ? -100 : group.code, group.value});
    }
    return groups;
}

DxfRecords unpacked(const DxfGroups& groups)
{
    DxfRecords parts;
    for (const DxfGroup& group : groups) {
        if (group.code == 0)
            parts.push_back({group.value, {}});
        else if (!parts.empty())
            parts.back().groups.push_back({group.code == -100 ? 100 : group.code, group.value});
    }
    return parts;
}

std::unique_ptr<NcDbEntity> readOld(DxfEntityFields& fields, DxfReadContext& context, const DxfEntity& record)
{
    fields.enter("AcDb2dPolyline");
    DxfFields look = fields;
    if (look.integer(70) & kOtherKinds)
        return nullptr;
    auto polyline = std::make_unique<NcDb2dPolyline>();
    fields.integer(66);
    HostAccess::closed(*polyline) = fields.flags(70, kClosed) & kClosed;
    const double elevation = fields.point(10).z;
    OldVertices vertices = oldVerticesOf(record.parts);
    for (NcGePoint3d& point : vertices.points)
        point.z = point.z == 0.0 ? elevation : point.z;
    HostAccess::points(*polyline) = std::move(vertices.points);
    HostAccess::bulges(*polyline) = std::move(vertices.bulges);
    if (vertices.plain)
        return polyline;
    HostAccess::data(*polyline).foreignGroups = packed(record.parts);
    for (const DxfRecord& part : record.parts)
        HostAccess::reserveHandle(context.database, recordHandle(part));
    return polyline;
}

void writeVertices(const NcDb2dPolyline& polyline, quint64 owner, DxfWriteContext& context)
{
    for (size_t i = 0; i < HostAccess::points(polyline).size(); ++i) {
        DxfRecordWriter vertex(context.out, QStringLiteral("VERTEX"), context.newHandle(), owner, nullptr,
                               context.isDead);
        vertex.subclass("AcDbEntity");
        vertex.text(8, polyline.layer());
        vertex.subclass("AcDbVertex");
        vertex.subclass("AcDb2dVertex");
        vertex.point(10, HostAccess::points(polyline)[i]);
        if (HostAccess::bulges(polyline)[i] != 0.0)
            vertex.real(42, HostAccess::bulges(polyline)[i]);
        vertex.integer(70, 0);
        vertex.finish();
    }
}

void writeEnd(const NcDb2dPolyline& polyline, quint64 owner, DxfWriteContext& context)
{
    DxfRecordWriter end(context.out, QStringLiteral("SEQEND"), context.newHandle(), owner, nullptr, context.isDead);
    end.subclass("AcDbEntity");
    end.text(8, polyline.layer());
    end.finish();
}

// Whether the kept records still say what the polyline is.
bool saysTheSame(const DxfRecords& parts, const NcDb2dPolyline& polyline)
{
    const OldVertices vertices = oldVerticesOf(parts);
    if (vertices.points.size() != HostAccess::points(polyline).size()
        || vertices.bulges != HostAccess::bulges(polyline))
        return false;
    for (size_t i = 0; i < vertices.points.size(); ++i) {
        const NcGePoint3d& now = HostAccess::points(polyline)[i];
        if (vertices.points[i].x != now.x || vertices.points[i].y != now.y)
            return false;
    }
    return true;
}

// 0 when the vertices differ; each then tells its own.
double commonElevation(const std::vector<NcGePoint3d>& points)
{
    const bool same = std::all_of(points.begin(), points.end(),
                                  [&](const NcGePoint3d& point) { return point.z == points.front().z; });
    return points.empty() || !same ? 0.0 : points.front().z;
}

void writeOld(const NcDbEntity& entity, DxfRecordWriter& record, DxfWriteContext& context)
{
    const auto& polyline = as<NcDb2dPolyline>(entity);
    const std::vector<NcGePoint3d>& points = HostAccess::points(polyline);
    record.subclass("AcDb2dPolyline");
    record.integer(66, 1);
    record.point(10, {0, 0, commonElevation(points)});
    record.flags(70, polyline.isClosed() ? kClosed : 0, kClosed);
    const DxfGroups* kept = record.rest().body(QLatin1String(kKeptVerbatim));
    const DxfRecords parts = kept ? unpacked(*kept) : DxfRecords();
    const bool same = kept && saysTheSame(parts, polyline);
    record.finish();
    if (!same) {
        writeVertices(polyline, record.objectHandle(), context);
        writeEnd(polyline, record.objectHandle(), context);
        return;
    }
    for (const DxfRecord& part : parts)
        context.out.record(part);
}

} // namespace

std::vector<EntityCodec> polylineCodecs()
{
    return {
        {"LWPOLYLINE", NcDbPolyline::desc, readLight, writeLight},
        {"POLYLINE", NcDb2dPolyline::desc, readOld, writeOld},
    };
}
