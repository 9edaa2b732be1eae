// Lines, rings and hatches of a map as entities of the drawing.
#pragma once

#include "analysis/contour/iso_contour_set.h"
#include "analysis/levels/level_map.h"
#include "analysis/maps/map_subject.h"

#include <nrx/database.h>

// One polyline in model space for each list of points, at the elevation of its
// first point, not flagged closed. Empty when the layer does not exist; a
// locked layer is unlocked for it.
NcDbObjectIdArray drawPolylines(const QString& layer, const std::vector<contour::PointList>& lists);

// One solid hatch a band, coloured from the level map, under all else, in a new
// group "TERVA_HATCH_..." whose description tells the subject. Empty when the layer does not exist. The groups of
// earlier maps that cover it are named on the command line.
NcDbObjectIdArray drawHatches(const std::vector<contour::HatchBand>& bands, const LevelMap& levelMap,
                              const QString& layer, const MapSubject& subject = {});

// The range in the middle of which the level's band lies; null outside the map.
const LevelRange* bandRange(const LevelMap& levelMap, double level);
// White outside the map, else the range in the middle of which the level's band lies.
NcCmColor bandColor(const LevelMap& levelMap, double level);
