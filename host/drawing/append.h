// What appending to an owner has in common.
#pragma once

#include <nrx/object.h>

// The owner must be in a drawing and open for write, the object in none.
NcStatus mayAppend(const NcDbObject& owner, const NcDbObject& object);
// Leaves an object that was just appended open for write: its maker closes it.
void openAppended(NcDbObject& object);
