// Frames of the real window onto a drawing while a hand pans and zooms.
#pragma once

void benchFrames(int entities);
