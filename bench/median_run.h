// A piece of work done several times: the median of its seconds, and what it took of the processor.
#pragma once

#include "session/project_session.h"
#include "spent_time.h"

#include <functional>
#include <vector>

/// Of the current database, as the server counts them: each statement of the session's connection is a
/// transaction of its own. Costs two statements, which the next call finds counted.
inline int statementsSoFar()
{
    session().run("select pg_stat_force_next_flush()");
    return session().run("select xact_commit from pg_stat_database where datname = current_database()").toInt(0, 0);
}

struct MedianRun {
    double seconds = 0.0;   ///< on the clock, the median
    double processor = 0.0; ///< of this process and of the server's, the mean
    int statements = 0;     ///< of one run

    /// Both work in turns: on a loaded machine the clock shows the load.
    double judged() const { return std::min(seconds, processor); }
};

/// What stands in `between` is done after each run and not timed; it asks the server nothing.
inline MedianRun medianRun(int runs, const std::function<void()>& work, const std::function<void()>& between = {})
{
    const SpentTimer whole;
    std::vector<double> seconds;
    double own = 0.0;
    const int before = statementsSoFar();
    for (int run = 0; run < runs; ++run) {
        const double ownBefore = SpentTimer::ownSeconds();
        QElapsedTimer timer;
        timer.start();
        work();
        seconds.push_back(double(timer.nsecsElapsed()) / 1e9);
        own += SpentTimer::ownSeconds() - ownBefore;
        if (between)
            between();
    }
    std::sort(seconds.begin(), seconds.end());
    constexpr int ofTheCounting = 2;
    return {seconds[size_t(runs / 2)], (own + whole.spent().server) / runs,
            (statementsSoFar() - before - ofTheCounting) / runs};
}
