// Named coordinate systems of the database.
#pragma once

#include "drawing/alignment/ucs_record.h"

#include <QVector>

struct StoredUcs {
    int id = -1;
    QString name;
    QString data; ///< see UcsRecord
};

/// By name; empty when the database does not answer.
QVector<StoredUcs> storedUcs();

/// All three run one statement. The name must be a storable one.
std::optional<int> insertUcs(const UcsRecord& ucs); ///< the new key
bool updateUcs(int id, const UcsRecord& ucs);
bool deleteUcs(int id);
