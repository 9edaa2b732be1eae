// Frames of the real window onto a drawing while a hand pans and zooms.
#pragma once

void benchFrames(int entities);
// A light ground with so many readable texts in sight, of a drawing of so many entities.
void benchTexts(int entities, int inSight);
