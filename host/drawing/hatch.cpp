#include "class_table.h"
#include "entity_clone.h"
#include "entity_shape.h"

NCRX_DEFINE(NcDbHatch, NcDbEntity)

void NcDbHatch::setNormal(const NcGeVector3d& normal)
{
    if (normal.length() > 0.0)
        assign(normal_, normal.normal());
}

void NcDbHatch::setElevation(double z) { assign(elevation_, z); }

void NcDbHatch::setAssociative(bool on) { assign(associative_, on); }

NcStatus NcDbHatch::setPattern(PatternType type, const QString& name)
{
    if (name.isEmpty())
        return NcStatus::InvalidInput;
    const NcStatus status = assign(patternType_, type);
    return isOk(status) ? assign(pattern_, name) : status;
}

void NcDbHatch::setPatternScale(double scale)
{
    if (scale > 0.0)
        assign(patternScale_, scale);
}

NcStatus NcDbHatch::setHatchStyle(HatchStyle style) { return assign(style_, style); }

NcStatus NcDbHatch::appendLoop(int type, const std::vector<NcGePoint2d>& points, const std::vector<double>& bulges)
{
    if (!writable())
        return NcStatus::NotOpenForWrite;
    Loop loop{type, points, bulges};
    if (loop.points.size() > 1 && loop.points.front() == loop.points.back())
        loop.points.pop_back();
    if (loop.points.size() < 3)
        return NcStatus::InvalidInput;
    loop.bulges.resize(loop.points.size(), 0.0);
    loops_.push_back(std::move(loop));
    evaluated_ = false;
    changed();
    return NcStatus::Ok;
}

NcStatus NcDbHatch::evaluateHatch() { return loops_.empty() ? NcStatus::InvalidInput : assign(evaluated_, true); }

NcStatus NcDbHatch::transformBy(const NcGeMatrix3d& matrix)
{
    if (!writable())
        return NcStatus::NotOpenForWrite;
    const PlaneChange plane(matrix);
    double elevation = (matrix * NcGePoint3d(0, 0, elevation_)).z;
    for (Loop& loop : loops_) {
        for (NcGePoint2d& point : loop.points) {
            const NcGePoint3d moved = matrix * NcGePoint3d(point.x, point.y, elevation_);
            point = {moved.x, moved.y};
            elevation = moved.z;
        }
        for (double& bulge : loop.bulges)
            bulge = plane.mirrored ? -bulge : bulge;
    }
    elevation_ = elevation;
    patternScale_ = plane.scale > 0.0 ? patternScale_ * plane.scale : patternScale_;
    changed();
    return NcStatus::Ok;
}

std::optional<NcGeExtents> NcDbHatch::extents() const
{
    ExtentsBuilder box;
    for (const Loop& loop : loops_)
        for (size_t i = 0; i < loop.points.size(); ++i)
            box.addBulge(loop.points[i], loop.points[(i + 1) % loop.points.size()],
                         i < loop.bulges.size() ? loop.bulges[i] : 0.0, elevation_);
    return box.result();
}

NcDbEntity* NcDbHatch::clone() const
{
    return cloned(*this, [&](NcDbHatch& copy) {
        copy.normal_ = normal_;
        copy.elevation_ = elevation_;
        copy.associative_ = associative_;
        copy.evaluated_ = evaluated_;
        copy.patternType_ = patternType_;
        copy.pattern_ = pattern_;
        copy.patternScale_ = patternScale_;
        copy.style_ = style_;
        copy.loops_ = loops_;
    });
}
