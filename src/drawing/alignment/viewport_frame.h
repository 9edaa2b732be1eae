// A window of a sheet onto model space: what it shows and how.
#pragma once

#include "geometry/point3.h"

#include <nrx/tables.h>

#include <optional>

struct ViewportFrame {
    geometry::PointList boundary; ///< corners in model space
    double angle = 0.0;           ///< of its coordinate system's X axis, radians
    double scale = 1.0;           ///< units of the sheet to a unit of the model
};

/// From the sheet to the world through the viewport's view; nothing for a
/// viewport that shows nothing.
std::optional<NcGeMatrix3d> sheetToModel(const NcDbViewport& viewport);

/// Asks for a viewport on the command line. Nothing, with its message, when
/// none was picked or its boundary cannot be told.
std::optional<ViewportFrame> askViewportFrame();
