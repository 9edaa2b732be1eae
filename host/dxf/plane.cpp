// The coordinates of a plane that the format gives planar entities by.
#include "entity_codec.h"

#include <cmath>

namespace {

struct Axes {
    NcGeVector3d x, y, z;
};

// The x axis of a plane lies in the horizontal, unless the normal is nearly
// vertical: then it is taken from the world's y axis.
Axes axesOf(const NcGeVector3d& normal)
{
    Axes axes;
    axes.z = normal.normal();
    const bool steep = std::abs(axes.z.x) < 1.0 / 64.0 && std::abs(axes.z.y) < 1.0 / 64.0;
    axes.x = (steep ? NcGeVector3d(0, 1, 0) : NcGeVector3d(0, 0, 1)).crossProduct(axes.z).normal();
    axes.y = axes.z.crossProduct(axes.x);
    return axes;
}

bool isUpright(const NcGeVector3d& normal) { return normal.x == 0.0 && normal.y == 0.0 && normal.z > 0.0; }

} // namespace

NcGePoint3d planeToWorld(const NcGePoint3d& p, const NcGeVector3d& normal)
{
    if (isUpright(normal) || normal.length() == 0.0)
        return p;
    const Axes axes = axesOf(normal);
    return NcGePoint3d() + axes.x * p.x + axes.y * p.y + axes.z * p.z;
}

NcGePoint3d worldToPlane(const NcGePoint3d& p, const NcGeVector3d& normal)
{
    if (isUpright(normal) || normal.length() == 0.0)
        return p;
    const Axes axes = axesOf(normal);
    const NcGeVector3d v = p.asVector();
    return {v.dotProduct(axes.x), v.dotProduct(axes.y), v.dotProduct(axes.z)};
}

bool takeDownwardNormal(DxfFields& fields)
{
    if (!fields.has(210))
        return false;
    DxfFields look = fields;
    const NcGeVector3d normal = look.vector(210, {0, 0, 1});
    const bool down = normal.x == 0.0 && normal.y == 0.0 && normal.z < 0.0;
    // An upright normal says nothing; any other one stays with the entity.
    if (down || isUpright(normal))
        fields = look;
    return down;
}
