#pragma once
// Saving the project's database into a file: finds a dump utility that suits
// the server, and says how it went.

#include "database/backup/dump_run.h"

#include <optional>

/// A message for the user.
struct BackupMessage {
    QString title;
    QString text;
    bool good = false;
};

/// What a backup says and asks while it works.
class BackupDialogs {
public:
    virtual ~BackupDialogs() = default;
    virtual void tell(const BackupMessage& message) = 0;
    /// A dump utility of the user's choice; empty when there is none.
    virtual QString chooseUtility() = 0;
    /// See DumpWatch.
    virtual bool goOn(int elapsed, int limit) = 0;
};

/// Where the utility is looked for: by the PATH, where the server's own
/// installer puts it, and where other systems keep it, the newest first.
QStringList dumpUtilityCandidates();

/// What is told of an attempt; nothing where the utility merely did not start
/// or the user has stopped it.
std::optional<BackupMessage> messageOf(const DumpResult& result, const QString& target);

class DatabaseBackup {
public:
    explicit DatabaseBackup(const QStringList& candidates = dumpUtilityCandidates(),
                            const DumpLimits& limits = DumpLimits())
        : candidates_(candidates), limits_(limits)
    { }

    /// Tries the utility that succeeded last, then the candidates, then the
    /// user's choice, until one has written the dump. Tells on the command line
    /// what begins and what came of it. True when the dump stands.
    bool run(const DumpTask& task, BackupDialogs& dialogs);

    /// The utility that succeeded last; a later failure does not forget it.
    QString remembered() const { return remembered_; }

private:
    DumpEnd attempt(const QString& program, const DumpTask& task, BackupDialogs& dialogs);
    DumpEnd search(const DumpTask& task, BackupDialogs& dialogs);

    QStringList candidates_;
    DumpLimits limits_;
    QString remembered_;
};
