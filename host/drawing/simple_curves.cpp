// Point, line, circle and arc.
#include "class_table.h"
#include "entity_clone.h"
#include "entity_shape.h"

#include <cmath>

NCRX_DEFINE(NcDbPoint, NcDbEntity)
NCRX_DEFINE(NcDbLine, NcDbEntity)
NCRX_DEFINE(NcDbCircle, NcDbEntity)
NCRX_DEFINE(NcDbArc, NcDbEntity)

void NcDbPoint::setPosition(const NcGePoint3d& p) { assign(position_, p); }

NcStatus NcDbPoint::transformBy(const NcGeMatrix3d& matrix) { return assign(position_, matrix * position_); }

std::optional<NcGeExtents> NcDbPoint::extents() const
{
    ExtentsBuilder box;
    box.add(position_);
    return box.result();
}

NcDbEntity* NcDbPoint::clone() const
{
    return cloned(*this, [&](NcDbPoint& copy) { copy.position_ = position_; });
}

void NcDbLine::setStartPoint(const NcGePoint3d& p) { assign(start_, p); }

void NcDbLine::setEndPoint(const NcGePoint3d& p) { assign(end_, p); }

NcStatus NcDbLine::transformBy(const NcGeMatrix3d& matrix)
{
    const NcStatus status = assign(start_, matrix * start_);
    return isOk(status) ? assign(end_, matrix * end_) : status;
}

std::optional<NcGeExtents> NcDbLine::extents() const
{
    ExtentsBuilder box;
    box.add(start_);
    box.add(end_);
    return box.result();
}

NcDbEntity* NcDbLine::clone() const
{
    return cloned(*this, [&](NcDbLine& copy) {
        copy.start_ = start_;
        copy.end_ = end_;
    });
}

void NcDbCircle::setCenter(const NcGePoint3d& p) { assign(center_, p); }

void NcDbCircle::setRadius(double radius) { assign(radius_, radius); }

NcStatus NcDbCircle::transformBy(const NcGeMatrix3d& matrix)
{
    if (!writable())
        return NcStatus::NotOpenForWrite;
    center_ = matrix * center_;
    radius_ *= PlaneChange(matrix).scale;
    changed();
    return NcStatus::Ok;
}

std::optional<NcGeExtents> NcDbCircle::extents() const
{
    ExtentsBuilder box;
    // A circle that stands in space fills at most its ball; seen from above the disc.
    const double deep = std::fabs(normal_.z) == 1.0 ? 0.0 : radius_;
    box.add(center_ - NcGeVector3d(radius_, radius_, deep));
    box.add(center_ + NcGeVector3d(radius_, radius_, deep));
    return box.result();
}

NcDbEntity* NcDbCircle::clone() const
{
    return cloned(*this, [&](NcDbCircle& copy) {
        copy.center_ = center_;
        copy.normal_ = normal_;
        copy.radius_ = radius_;
    });
}

void NcDbArc::set(const NcGePoint3d& centre, double radius, double start, double end)
{
    if (!writable())
        return;
    center_ = centre;
    radius_ = radius;
    start_ = start;
    end_ = end;
    changed();
}

NcStatus NcDbArc::transformBy(const NcGeMatrix3d& matrix)
{
    if (!writable())
        return NcStatus::NotOpenForWrite;
    const PlaneChange plane(matrix);
    double start = plane.angle(start_), end = plane.angle(end_);
    if (plane.mirrored)
        std::swap(start, end);
    set(matrix * center_, radius_ * plane.scale, start, end);
    return NcStatus::Ok;
}

std::optional<NcGeExtents> NcDbArc::extents() const
{
    ExtentsBuilder box;
    box.addArc(center_, radius_, start_, end_);
    return box.result();
}

NcDbEntity* NcDbArc::clone() const
{
    return cloned(*this, [&](NcDbArc& copy) {
        copy.center_ = center_;
        copy.radius_ = radius_;
        copy.start_ = start_;
        copy.end_ = end_;
    });
}
