// What the exchange of inspections knows of each family, in the order in which
// a document is made.
#pragma once

#include "elements/families/family_table.h"

#include <QString>
#include <QVector>

/// A value that goes from a record into the element's row.
struct ElementAssignment {
    QString key;
    const char* assignment;
    bool ofElementAlone; ///< the inspection has no such column
};

struct ExchangedFamily {
    FamilyKey family;
    QString prefix; ///< of the tables, and the key in documents
    const char* elementColumns;
    const char* inspectionColumns;
    const char* inspectionSource; ///< behind FROM
    QVector<ElementAssignment> assignments = {};
};

const FamilyTable<ExchangedFamily, measuredFamilyCount>& exchangedFamilies();

/// Null for a key that is no family's.
const ExchangedFamily* exchangedFamily(const QString& prefix);
