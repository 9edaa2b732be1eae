// Groups of objects that every file has and that tell nothing of the drawing.
#pragma once

#include "group.h"

// A layout of a block: a sheet of A3 across, the tab at `order`; 0 is the model.
DxfGroups layoutGroups(const QString& name, int order, quint64 block);
// Two lines half a unit from the middle.
DxfGroups mlineStyleGroups();
