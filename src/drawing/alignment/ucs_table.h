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

/// The new key. Nothing when the server refused; `refusal` then takes its words.
std::optional<int> insertUcs(const UcsRecord& ucs, QString& refusal);
bool updateUcs(int id, const UcsRecord& ucs);
bool deleteUcs(int id);
