// Both kinds of polyline.
#include "class_table.h"
#include "entity_clone.h"
#include "entity_shape.h"

NCRX_DEFINE(NcDbPolyline, NcDbEntity)
NCRX_DEFINE(NcDb2dPolyline, NcDbEntity)

NcStatus NcDbPolyline::addVertexAt(int index, const NcGePoint2d& p, double bulge, double startWidth, double endWidth)
{
    if (index < 0 || index > numVerts())
        return NcStatus::InvalidInput;
    if (!writable())
        return NcStatus::NotOpenForWrite;
    vertices_.insert(vertices_.begin() + index, Vertex{p, bulge, startWidth, endWidth});
    changed();
    return NcStatus::Ok;
}

NcStatus NcDbPolyline::getPointAt(int index, NcGePoint3d& p) const
{
    if (index < 0 || index >= numVerts())
        return NcStatus::InvalidInput;
    const NcGePoint2d& vertex = vertices_[size_t(index)].point;
    p = {vertex.x, vertex.y, elevation_};
    return NcStatus::Ok;
}

NcStatus NcDbPolyline::getBulgeAt(int index, double& bulge) const
{
    if (index < 0 || index >= numVerts())
        return NcStatus::InvalidInput;
    bulge = vertices_[size_t(index)].bulge;
    return NcStatus::Ok;
}

NcStatus NcDbPolyline::getWidthsAt(int index, double& start, double& end) const
{
    if (index < 0 || index >= numVerts())
        return NcStatus::InvalidInput;
    start = vertices_[size_t(index)].startWidth;
    end = vertices_[size_t(index)].endWidth;
    return NcStatus::Ok;
}

NcStatus NcDbPolyline::setConstantWidth(double width)
{
    if (!(width >= 0.0))
        return NcStatus::InvalidInput;
    if (!writable())
        return NcStatus::NotOpenForWrite;
    for (Vertex& vertex : vertices_)
        vertex.startWidth = vertex.endWidth = width;
    changed();
    return NcStatus::Ok;
}

void NcDbPolyline::setClosed(bool closed) { assign(closed_, closed); }

void NcDbPolyline::setElevation(double z) { assign(elevation_, z); }

NcStatus NcDbPolyline::transformBy(const NcGeMatrix3d& matrix)
{
    if (!writable())
        return NcStatus::NotOpenForWrite;
    const PlaneChange plane(matrix);
    double elevation = (matrix * NcGePoint3d(0, 0, elevation_)).z;
    for (size_t i = 0; i < vertices_.size(); ++i) {
        Vertex& vertex = vertices_[i];
        const NcGePoint3d moved = matrix * NcGePoint3d(vertex.point.x, vertex.point.y, elevation_);
        vertex.point = {moved.x, moved.y};
        vertex.bulge = plane.mirrored ? -vertex.bulge : vertex.bulge;
        vertex.startWidth *= plane.scale;
        vertex.endWidth *= plane.scale;
        if (i == 0)
            elevation = moved.z;
    }
    elevation_ = elevation;
    changed();
    return NcStatus::Ok;
}

std::optional<NcGeExtents> NcDbPolyline::extents() const
{
    ExtentsBuilder box;
    for (size_t i = 0; i < vertices_.size(); ++i) {
        const bool last = i + 1 == vertices_.size();
        const Vertex& next = vertices_[last ? 0 : i + 1];
        box.addBulge(vertices_[i].point, last && !closed_ ? vertices_[i].point : next.point, vertices_[i].bulge,
                     elevation_);
    }
    return box.result();
}

NcDbEntity* NcDbPolyline::clone() const
{
    return cloned(*this, [&](NcDbPolyline& copy) {
        copy.vertices_ = vertices_;
        copy.closed_ = closed_;
        copy.elevation_ = elevation_;
    });
}

NcStatus NcDb2dPolyline::appendVertex(const NcGePoint3d& p, double bulge)
{
    if (!writable())
        return NcStatus::NotOpenForWrite;
    points_.push_back(p);
    bulges_.push_back(bulge);
    changed();
    return NcStatus::Ok;
}

NcStatus NcDb2dPolyline::getPointAt(int index, NcGePoint3d& p) const
{
    if (index < 0 || index >= numVerts())
        return NcStatus::InvalidInput;
    p = points_[size_t(index)];
    return NcStatus::Ok;
}

NcStatus NcDb2dPolyline::getBulgeAt(int index, double& bulge) const
{
    if (index < 0 || index >= int(bulges_.size()))
        return NcStatus::InvalidInput;
    bulge = bulges_[size_t(index)];
    return NcStatus::Ok;
}

void NcDb2dPolyline::setClosed(bool closed) { assign(closed_, closed); }

NcStatus NcDb2dPolyline::transformBy(const NcGeMatrix3d& matrix)
{
    if (!writable())
        return NcStatus::NotOpenForWrite;
    const bool mirrored = PlaneChange(matrix).mirrored;
    for (NcGePoint3d& point : points_)
        point = matrix * point;
    for (double& bulge : bulges_)
        bulge = mirrored ? -bulge : bulge;
    changed();
    return NcStatus::Ok;
}

std::optional<NcGeExtents> NcDb2dPolyline::extents() const
{
    ExtentsBuilder box;
    for (size_t i = 0; i < points_.size(); ++i) {
        const bool last = i + 1 == points_.size();
        const NcGePoint3d& next = points_[last ? (closed_ ? 0 : i) : i + 1];
        box.addBulge({points_[i].x, points_[i].y}, {next.x, next.y}, i < bulges_.size() ? bulges_[i] : 0.0,
                     points_[i].z);
    }
    return box.result();
}

NcDbEntity* NcDb2dPolyline::clone() const
{
    return cloned(*this, [&](NcDb2dPolyline& copy) {
        copy.points_ = points_;
        copy.bulges_ = bulges_;
        copy.closed_ = closed_;
    });
}
