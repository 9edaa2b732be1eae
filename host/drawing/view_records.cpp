// Coordinate systems and views.
#include "class_table.h"
#include "entity_clone.h"
#include "entity_shape.h"

NCRX_DEFINE(NcDbUCSTableRecord, NcDbSymbolTableRecord)
NCRX_DEFINE(NcDbAbstractViewTableRecord, NcDbSymbolTableRecord)
NCRX_DEFINE(NcDbViewportTableRecord, NcDbAbstractViewTableRecord)
NCRX_DEFINE(NcDbViewport, NcDbEntity)

namespace {

bool spanPlane(const NcGeVector3d& x, const NcGeVector3d& y) { return x.crossProduct(y).length() > 0.0; }

} // namespace

void NcDbUCSTableRecord::setOrigin(const NcGePoint3d& origin) { assign(origin_, origin); }

void NcDbUCSTableRecord::setXAxis(const NcGeVector3d& axis) { assign(x_, axis); }

void NcDbUCSTableRecord::setYAxis(const NcGeVector3d& axis) { assign(y_, axis); }

void NcDbAbstractViewTableRecord::setCenterPoint(const NcGePoint2d& p) { assign(center_, p); }

void NcDbAbstractViewTableRecord::setHeight(double height)
{
    if (height > 0.0)
        assign(height_, height);
}

void NcDbAbstractViewTableRecord::setWidth(double width)
{
    if (width > 0.0)
        assign(width_, width);
}

NcStatus NcDbAbstractViewTableRecord::setUcs(const NcGePoint3d& origin, const NcGeVector3d& x, const NcGeVector3d& y)
{
    if (!writable())
        return NcStatus::NotOpenForWrite;
    if (!spanPlane(x, y))
        return NcStatus::InvalidInput;
    ucsOrigin_ = origin;
    ucsX_ = x;
    ucsY_ = y;
    changed();
    return NcStatus::Ok;
}

NcStatus NcDbAbstractViewTableRecord::setUcs(NcDbObjectId ucs)
{
    const auto* record = HostAccess::objectAs<NcDbUCSTableRecord>(ucs);
    if (!record || record->isErased())
        return NcStatus::NotFound;
    return setUcs(record->origin(), record->xAxis(), record->yAxis());
}

void NcDbAbstractViewTableRecord::getUcs(NcGePoint3d& origin, NcGeVector3d& x, NcGeVector3d& y) const
{
    origin = ucsOrigin_;
    x = ucsX_;
    y = ucsY_;
}

void NcDbViewport::setGeometry(const NcGePoint3d& centre, double width, double height)
{
    if (!writable())
        return;
    center_ = centre;
    width_ = width;
    height_ = height;
    changed();
}

void NcDbViewport::setTwistAngle(double radians) { assign(twist_, radians); }

void NcDbViewport::setView(const NcGePoint2d& centre, double height)
{
    if (!writable())
        return;
    viewCenter_ = centre;
    viewHeight_ = height;
    changed();
}

void NcDbViewport::getUcs(NcGePoint3d& origin, NcGeVector3d& x, NcGeVector3d& y) const
{
    origin = ucsOrigin_;
    x = ucsX_;
    y = ucsY_;
}

NcStatus NcDbViewport::setUcs(const NcGePoint3d& origin, const NcGeVector3d& x, const NcGeVector3d& y)
{
    if (!writable())
        return NcStatus::NotOpenForWrite;
    if (!spanPlane(x, y))
        return NcStatus::InvalidInput;
    ucsOrigin_ = origin;
    ucsX_ = x;
    ucsY_ = y;
    changed();
    return NcStatus::Ok;
}

NcStatus NcDbViewport::setNonRectClipEntityId(NcDbObjectId entity)
{
    if (!entity.isNull() && !HostAccess::objectAs<NcDbEntity>(entity))
        return NcStatus::NotFound;
    return assign(clip_, entity);
}

NcStatus NcDbViewport::transformBy(const NcGeMatrix3d& matrix)
{
    if (!writable())
        return NcStatus::NotOpenForWrite;
    const double scale = PlaneChange(matrix).scale;
    setGeometry(matrix * center_, width_ * scale, height_ * scale);
    return NcStatus::Ok;
}

std::optional<NcGeExtents> NcDbViewport::extents() const
{
    const NcGeVector3d half(width_ / 2.0, height_ / 2.0, 0.0);
    ExtentsBuilder box;
    box.add(center_ - half);
    box.add(center_ + half);
    return box.result();
}

NcDbEntity* NcDbViewport::clone() const
{
    return cloned(*this, [&](NcDbViewport& copy) {
        copy.center_ = center_;
        copy.width_ = width_;
        copy.height_ = height_;
        copy.twist_ = twist_;
        copy.viewHeight_ = viewHeight_;
        copy.viewCenter_ = viewCenter_;
        copy.viewTarget_ = viewTarget_;
        copy.viewDirection_ = viewDirection_;
        copy.ucsOrigin_ = ucsOrigin_;
        copy.ucsX_ = ucsX_;
        copy.ucsY_ = ucsY_;
    });
}
