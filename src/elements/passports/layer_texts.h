#pragma once
// The layers of ground along a well as a passport lists them.

#include "elements/geology/ground_layers.h"

#include <QStringList>

/// The column of the hatch is the last one.
QStringList layerTitles();
inline int hatchColumn() { return layerTitles().size() - 1; }
/// The texts before it; `ground` is the elevation of the ground.
QStringList layerTexts(const GroundLayer& layer, double ground);

/// Each entry of the catalogue once, in the order of its first layer.
QVector<GroundElement> groundsOf(const GroundLayers& layers);
