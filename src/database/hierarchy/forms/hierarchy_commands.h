#pragma once
// Handlers of the commands on a position's lines.

#include "database/hierarchy/node_levels.h"

/// TERVA_POSITION_ADD_CONTOUR: a picked polyline becomes a contour of a position.
void addPositionContour();

/// TERVA_POSITION_DRAW: the current position's lines into the active drawing.
void drawPositionLines();

/// The lines of all positions below the node, chosen by kind, into the active
/// drawing.
void drawNodeLines(const ProjectNode& node);
