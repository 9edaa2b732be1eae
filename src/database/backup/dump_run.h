#pragma once
// One run of the server's dump utility as a child process.

#include "session/connection_parameters.h"

#include <QProcessEnvironment>
#include <QStringList>
#include <functional>

struct DumpTask {
    ConnectionParameters database;
    QString target; ///< the file that takes the dump; what it held is gone once the utility runs
};

enum class DumpEnd {
    Done,
    NotStarted,
    NotWritable, ///< the target cannot be opened: no utility will do better
    TimedOut,
    VersionMismatch,
    Failed,
    Cancelled,
};

struct DumpResult {
    DumpEnd end;
    QString details; ///< what the utility said of its failure
};

struct DumpLimits {
    int start = 30000;  ///< ms
    int finish = 60000; ///< ms, of the utility's work
};

/// Asked while the utility works, with the milliseconds it has taken and may
/// take; false stops it.
using DumpWatch = std::function<bool(int elapsed, int limit)>;

QStringList dumpArguments(const ConnectionParameters& database);

/// The program's own environment and the password, which so stands in no list
/// of processes. The utility speaks English in it: its words are looked at.
QProcessEnvironment dumpEnvironment(const QString& password);

/// Runs the utility (a path, or a name to be found by the PATH) and waits for
/// it, the event loop being in the watch's hands. A program that is not there
/// leaves the target as it is; what one that was stopped had written stays.
DumpResult runDump(const QString& program, const DumpTask& task, const DumpWatch& watch,
                   const DumpLimits& limits = DumpLimits());
