// The scales that every installation has.
#pragma once

#include "analysis/levels/level_map.h"

// Ranges of a built-in map; empty for the user's own and for any other id.
std::vector<LevelRange> builtInScale(int id);
