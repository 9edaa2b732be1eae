// Points and borders that lie in the drawing.
#pragma once

#include "geometry/point3.h"
#include "hostkit/layers.h"

#include <nrx/database.h>

#include <optional>

// Positions of the point entities of a layer. Empty when the layer does not
// exist or holds fewer than three.
geometry::PointList loadPointsFromLayer(const QString& layer);

// Vertices of the first polyline of the layer that has any; nothing when there
// is no such layer or polyline.
std::optional<geometry::PointList> loadBoundaryFromLayer(const QString& layer);

// A polyline that the user picked.
struct PickedBorder {
    geometry::PointList vertices;
    QString layer;
};

// Asks for a line with the prompt; nothing when the user leaves it or picks
// something else.
std::optional<PickedBorder> askForBorder(const QString& prompt);
