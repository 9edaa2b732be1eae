#pragma once

#include <functional>

namespace contour {

// Told now and then how much of a long step is done (0 to 1); false asks the
// step to stop. An empty function is never asked.
using Tick = std::function<bool(double done)>;

inline bool goesOn(const Tick& tick, double done) { return !tick || tick(done); }

} // namespace contour
