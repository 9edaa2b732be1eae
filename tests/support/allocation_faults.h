#pragma once
// Programs whose n-th allocation fails.

#include <QByteArray>
#include <QString>
#include <QStringList>

struct AllocationRun {
    int exitCode = -1;  ///< of a program that has ended by itself
    bool died = false;  ///< by a signal
    bool hung = false;  ///< and was killed
    QByteArray told;    ///< on both outputs
    int calls = 0;      ///< allocations; 0, as the next two, for a program that died
    int firstWrite = 0; ///< those before a file was opened for writing
    int lastMove = 0;   ///< those before the last file was moved to its place
};

struct AllocationFault {
    int at = 0;           ///< counted from 1; 0: none
    bool onAndOn = false; ///< so do those that follow
};

/// Runs the program; allocations count from the moment at which the file `start` is read. What it
/// writes below the folder is told.
AllocationRun runShortOfMemory(const QString& program, const QStringList& arguments, const QString& start,
                               const QString& folder, AllocationFault fault);
