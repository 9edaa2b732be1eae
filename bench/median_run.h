// A piece of work done several times: the median of its seconds and its statements.
#pragma once

#include "session/project_session.h"

#include <QElapsedTimer>

#include <algorithm>
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
    double seconds = 0.0; ///< on the clock
    int statements = 0;   ///< of one run
};

/// What stands in `between` is done after each run and not timed.
inline MedianRun medianRun(int runs, const std::function<void()>& work, const std::function<void()>& between = {})
{
    std::vector<double> seconds;
    const int before = statementsSoFar();
    for (int run = 0; run < runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        work();
        seconds.push_back(double(timer.nsecsElapsed()) / 1e9);
        if (between)
            between();
    }
    std::sort(seconds.begin(), seconds.end());
    constexpr int ofTheCounting = 2;
    return {seconds[size_t(runs / 2)], (statementsSoFar() - before - ofTheCounting) / runs};
}
