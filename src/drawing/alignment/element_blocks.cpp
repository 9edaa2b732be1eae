#include "drawing/alignment/element_blocks.h"

#include <nrx/editor.h>

#include <cmath>

ElementBlock elementOf(NcDbObjectId id) { return ElementBlock(id, StateColors()); }

double currentUcsAngle()
{
    NcGeMatrix3d ucs;
    ncedGetCurrentUCS(ucs);
    NcGePoint3d origin;
    NcGeVector3d x, y, z;
    ucs.getCoordSystem(origin, x, y, z);
    return planAngle(x);
}

double planAngle(const NcGeVector3d& axis) { return std::atan2(axis.y, axis.x); }
