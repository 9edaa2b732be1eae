// What a piece of work took: on the clock, of this process, and of the server's
// process that works for the session. The two work in turns, so on an idle machine
// the clock shows their sum and the waits; on a loaded one it shows the load, and a
// bound is judged by the sum.
#pragma once

#include "session/project_session.h"

#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <cstdio>
#include <sys/resource.h>
#include <unistd.h>

struct SpentTime {
    double clock = 0.0;  ///< seconds, all three
    double own = 0.0;    ///< of the processor, in this process
    double server = 0.0; ///< of the processor, in the session's server process

    double judged() const { return std::min(clock, own + server); }
};

class SpentTimer {
public:
    SpentTimer() : process_(session().run("select pg_backend_pid()").toInt(0, 0))
    {
        start_ = {0.0, ownSeconds(), serverSeconds()};
        clock_.start();
    }
    SpentTime spent() const
    {
        return {clock_.elapsed() / 1000.0, ownSeconds() - start_.own, serverSeconds() - start_.server};
    }

    static double ownSeconds()
    {
        rusage used{};
        getrusage(RUSAGE_SELF, &used);
        const auto seconds = [](const timeval& time) { return double(time.tv_sec) + double(time.tv_usec) / 1e6; };
        return seconds(used.ru_utime) + seconds(used.ru_stime);
    }

private:
    // utime and stime stand behind the name, which is in brackets.
    double serverSeconds() const
    {
        QFile file(QStringLiteral("/proc/%1/stat").arg(process_));
        if (!file.open(QIODevice::ReadOnly))
            return 0.0;
        const QByteArray line = file.readAll();
        const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
        constexpr int userTime = 11, systemTime = 12;
        return (fields.value(userTime).toDouble() + fields.value(systemTime).toDouble()) / double(sysconf(_SC_CLK_TCK));
    }

    int process_;
    SpentTime start_;
    QElapsedTimer clock_;
};

/// One line; true when the bound is kept.
inline bool reportSpent(const char* what, const SpentTime& spent, double bound)
{
    const bool kept = spent.judged() <= bound;
    std::printf("%-48s %8.2f s (own %.2f + server %.2f) of %.0f s%s\n", what, spent.clock, spent.own, spent.server,
                bound, kept ? "" : "   MISSED");
    std::fflush(stdout);
    return kept;
}
