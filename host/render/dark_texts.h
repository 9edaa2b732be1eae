// For programs that show colour 7 white whatever lies below.
#pragma once

#include <nrx/database.h>

// Gives texts of colour 7 that stand on solid hatches a dark grey of their own, so
// that they can be read there on a dark ground too. Returns how many.
NRX_API int darkenTextsOnFills(NcDbDatabase& drawing);
