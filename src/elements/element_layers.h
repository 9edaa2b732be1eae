// The layers that element blocks lie on.
#pragma once

/// Adds the seven layers to the working drawing where it lacks them, colour 7.
void ensureLayers();
