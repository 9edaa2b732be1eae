// TERVA_MASK_ATTRIBUTES: an opaque ground behind the texts of elements.
#pragma once

#include <nrx/geometry.h>

/// Which way a masked text gives way to its leader's shelf: 1 up for the
/// attachments of the bottom row, -1 down for those of the top row, 0 otherwise.
int maskDirection(int attachment);

/// How far a masked text moves in the world: along the Y axis of a coordinate
/// system turned by `angle`, 0.4 for each unit of the block's scale.
NcGeVector3d maskShift(int direction, double angle, double scale);

/// Turns every visible attribute of every element in model space into a text of
/// several lines with an opaque ground. Each run moves the texts anew.
void maskAttributes();
