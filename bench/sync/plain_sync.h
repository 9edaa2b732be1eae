// The synchronisations as one would write them down at first: states read for
// every element, blocks found by walking the drawing.
#pragma once

#include "elements/element_block.h"

/// One block carried into its row, all colours read anew.
void plainBlockToRow(NcDbObjectId reference);

/// The first reference of model space to the definition with that attribute,
/// found by a walk from the first entity.
NcDbObjectId plainFind(const QString& blockName, const QString& tag, const QString& value);
