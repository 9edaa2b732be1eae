// Fills a drawing from a file that was taken apart.
#pragma once

#include "document.h"

#include <nrx/database.h>

// The drawing holds its tables only and is being loaded. Never fails: what makes
// no sense is left out or kept as it stands. Work that is stopped leaves it half filled.
void fillDrawing(NcDbDatabase& database, DxfDocument document);
