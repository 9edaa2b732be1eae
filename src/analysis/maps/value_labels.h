// The values of a map written beside their points.
#pragma once

#include "geometry/point3.h"

#include <nrx/entity.h>

struct MapLabel {
    geometry::Point3 place;
    QString text;
    NcDbText::VerticalMode held = NcDbText::kTextVertMid; // which part of it stands at the place
};

// The texts, centred and along the X axis of the user coordinate system, on the
// current layer; all in a new group "TERVA_VALS_...".
NcDbObjectIdArray drawLabels(const std::vector<MapLabel>& labels);

// The value at each point (x, y, value).
NcDbObjectIdArray drawValueLabels(const geometry::PointList& points);

// Two texts a point, in plan: the one "above" is held by its top, the one
// "below" by its bottom, as drawings have had them.
struct LabelPair {
    geometry::Point3 place;
    QString above, below;
};
NcDbObjectIdArray drawLabelPairs(const std::vector<LabelPair>& pairs);
