// What the user is told of a build that made no map, or not the map asked for.
#pragma once

#include "analysis/contour/contour_build.h"

#include <QStringList>

// Empty when there is nothing to tell. `names` are those of the given points in
// their order; a point without a name is called by its number from 1.
QString buildMessage(const contour::BuildResult& result, const QStringList& names = {});
