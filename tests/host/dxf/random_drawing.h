// Drawings that hold something of everything, the same for the same seed.
#pragma once

#include <nrx/database.h>

// Fills an empty drawing with defaults.
void fillRandomly(NcDbDatabase& database, unsigned seed);
