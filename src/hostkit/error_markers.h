// What both synchronisations mark in the drawing: circles and crosses on a
// layer of their own, which stays locked between the changes.
#pragma once

#include <nrx/geometry.h>

#include <QString>

/// "TERVA_ERROR_SYNC"
QString errorLayerName();

/// Makes the layer (colour 1) when it is absent; it is locked afterwards.
void ensureErrorLayer();

/// Erases all that lies on the layer; makes the layer when it is absent.
void clearErrorLayer();

/// At the centre's own height.
void addErrorCircle(const NcGePoint3d& center, double radius);

/// Two diagonals at height 0. `size` is the square of half an arm's extent
/// along an axis: with 5.0 an arm ends 2.236 from the centre on each axis.
void addErrorCross(const NcGePoint3d& center, double size);

enum class ErrorMarker {
    NameDuplicate, ///< the name was seen before
    IdDuplicate,   ///< the id was seen before
    NotInDatabase, ///< the id has no row
    NotInPosition, ///< the row lies in another position
};

/// The marker's shapes at the insertion point of a block.
void addErrorMarker(ErrorMarker marker, const NcGePoint3d& at);
