#include "drawing/alignment/element_blocks.h"

ElementBlock elementOf(NcDbObjectId id) { return ElementBlock(id, StateColors()); }
