#pragma once
// The values of an element's row as its block carries them.

#include "elements/element_block.h"
#include "elements/passports/passport_family.h"

/// Place, state, name and height go from the values into the record, with the
/// attributes that mirror them; the kind stays.
void setBlockValues(ElementBlock& block, const QStringList& values, const PassportFamily& family);
