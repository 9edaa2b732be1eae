#pragma once

#include "samples.h"

namespace samples {

// Sets on which computed circles contradict each other, or several values stand
// at one place.
constexpr int kHardKinds = 10;
PointList hardPoints(int kind, Random& random, int count);

// Places on a circle of full precision round (50, 50), in any order.
PointList onCircle(Random& random, int count, double radius);

} // namespace samples
