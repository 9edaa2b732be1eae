#pragma once
// The reference lists of a passport: what its choices offer and what its tables
// show for a key.

#include "elements/passports/passport_family.h"
#include "session/project_session.h"

struct PassportLists {
    QVector<ComboEntry> types, positions;
    QVector<int> cycleOrder; ///< by date
    QMap<int, QString> cycleNumbers;
    QMap<int, QString> devices;    ///< name (serial)
    QMap<int, QString> performers; ///< full name (name)

    /// A list that cannot be read is empty.
    void read(const PassportFamily& family);

    /// "Цикл 3"
    QString cycleText(int cycleId) const;
};
