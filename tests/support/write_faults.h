#pragma once
// Programs whose n-th call on a file fails, or which are killed at it.

#include <QString>
#include <QStringList>

struct FaultRun {
    int exitCode = -1;   ///< -1 for a program that was killed
    bool reached = true; ///< whether there was an n-th call
};

/// Runs the program; its `at`-th call on a file below the folder fails with the
/// error number, or, 0, the program is killed there. Counted from 1.
FaultRun runWithFault(const QString& program, const QStringList& arguments, const QString& folder, int at, int error);
