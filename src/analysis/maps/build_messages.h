// What the user is told of a build that made no map, or not the map asked for.
#pragma once

#include "analysis/contour/contour_build.h"

#include <QStringList>

// The first ten names joined by commas, and how many there are besides. A point
// without a name is called by its number from 1.
QString pointNames(const std::vector<int>& points, const QStringList& names);

// Empty when there is nothing to tell. `names` are those of the given points in
// their order.
QString buildMessage(const contour::BuildResult& result, const QStringList& names = {});
