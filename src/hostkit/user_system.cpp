#include "hostkit/user_system.h"

#include <nrx/editor.h>

#include <cmath>

NcGeVector3d userXAxis()
{
    NcGeMatrix3d ucs;
    return isOk(ncedGetCurrentUCS(ucs)) ? ucs * NcGeVector3d::kXAxis : NcGeVector3d::kXAxis;
}

double userSystemAngle() { return planAngle(userXAxis()); }

double planAngle(const NcGeVector3d& axis) { return std::atan2(axis.y, axis.x); }
