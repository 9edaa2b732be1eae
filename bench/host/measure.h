// What a piece of work takes, told with its bound.
#pragma once

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>

// Milliseconds on the clock and of this process on the processor. On a loaded
// machine the clock shows the load, so a bound is judged by the lesser of them.
struct Spent {
    double clock = 0.0, own = 0.0;
    double judged() const { return std::min(clock, own); }
};

class Stopwatch {
public:
    Stopwatch() : own_(processor()) { clock_.start(); }
    Spent spent() const { return {double(clock_.nsecsElapsed()) / 1e6, processor() - own_}; }

private:
    static double processor()
    {
        timespec now{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
        return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
    }

    QElapsedTimer clock_;
    double own_;
};

// The best of several runs.
template <class Work>
double timed(int runs, const Work& work)
{
    double best = 1e300;
    for (int i = 0; i < runs; ++i) {
        const Stopwatch watch;
        work();
        best = std::min(best, watch.spent().judged());
    }
    return best;
}

inline int& missedCount()
{
    static int count = 0;
    return count;
}

// No bound is 0.
inline void tell(const char* what, double value, double bound, const char* unit = "ms")
{
    const bool kept = bound <= 0.0 || value <= bound;
    missedCount() += !kept;
    std::printf("%-56s %9.2f %s", what, value, unit);
    if (bound > 0.0)
        std::printf("  of %g%s", bound, kept ? "" : "   MISSED");
    std::printf("\n");
    std::fflush(stdout);
}
