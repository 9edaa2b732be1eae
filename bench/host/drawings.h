// Drawings to be measured.
#pragma once

#include <nrx/database.h>

// Lines, texts, circles and blocks in turn, over a square of a thousand units.
void fillDrawing(NcDbDatabase& drawing, int count);
