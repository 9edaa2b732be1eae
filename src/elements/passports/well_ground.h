#pragma once
// What the chart of a thermal well shows beside its temperatures.

#include "charts/temperature_chart.h"

/// The limits of the position, as elevations below this one of the ground. All
/// of them not there for a position without attributes.
TemperatureLimits loadTemperatureLimits(int positionId, double ground);

/// The layers of ground as the chart draws them.
QVector<GeologyLayer> loadChartLayers(int elementId);

/// The folder of the hatch patterns that are delivered beside the module.
QString hatchFolder();
