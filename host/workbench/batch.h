// Plays a script without a window.
#pragma once

#include "options.h"

// 0 when all went as written, 1 when not.
int runBatch(const Options& options);
