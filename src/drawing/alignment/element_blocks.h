// Elements, as the commands of this folder see them.
#pragma once

#include "elements/element_block.h"

/// An element as its block says it, without a question to the database: what is
/// written back to the block does not depend on the names of states. No kind
/// for anything that is not an element's block.
ElementBlock elementOf(NcDbObjectId id);
