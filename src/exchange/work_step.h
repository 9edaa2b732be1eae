// How long work over many rows tells how far it has come.
#pragma once

#include <functional>

/// Told what is done of how much; false stops the work.
using WorkStep = std::function<bool(int done, int total)>;

/// Tells some rows and the last; false once the work is to stop.
inline bool goesOn(const WorkStep& step, int done, int total)
{
    constexpr int between = 256; // rows: telling each would cost more than the work
    return !step || (done % between != 0 && done != total) || step(done, total);
}
