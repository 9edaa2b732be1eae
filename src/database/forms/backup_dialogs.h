#pragma once
// What a backup shows: boxes, a question for the utility, how long it has taken.

#include "database/backup/database_backup.h"

#include <memory>

namespace formkit {
class ProgressBox;
}

/// Where the backup goes; empty when the user left the question.
QString askBackupFile();

class BackupBoxes final : public BackupDialogs {
public:
    BackupBoxes();
    ~BackupBoxes() override;

    void tell(const BackupMessage& message) override;
    QString chooseUtility() override;
    bool goOn(int elapsed, int limit) override;

private:
    std::unique_ptr<formkit::ProgressBox> progress_; ///< while a utility works
};
