// The desktop program.
#pragma once

#include "options.h"

#include <functional>

// Shows the main window until it is closed. `loadModules` is called once the
// window stands, so that what modules print is seen.
int runWorkbench(const Options& options, const std::function<bool()>& loadModules);
