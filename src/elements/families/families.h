// The seven families of monitoring elements: which kinds they hold, which
// tables, and what one has that another lacks. Areas that need more per family
// keep a FamilyTable of their own beside the one routine that reads it.
#pragma once

#include "elements/families/family_table.h"

#include <QString>
#include <QVector>

struct Family {
    FamilyKey key;
    QString shortKey;   ///< of the element list's filter: "DM"
    QString listName;   ///< in the element list
    QVector<int> kinds; ///< in the order in which block names are tried in a drawing; not ascending on purpose
    QString elements;   ///< tables
    QString dynprops;
    QString types;    ///< type_id and its display name
    QString measures; ///< empty for engineering-geological wells, as are the next two
    QString inspections;
    QString files;
    unsigned mask;           ///< bit in the filter of the synchronisation
    bool hasDepth = false;   ///< rows hold a burial depth and a construction of the catalogue
    bool hasProfile = false; ///< a measure holds temperatures by depth
};

inline FamilyKey keyOf(const Family& row) { return row.key; }

/// In the order of FamilyKey.
const FamilyTable<Family>& families();

const Family& family(FamilyKey key);

/// Null for the numbers that belong to no family.
const Family* familyOfKind(int kind);

/// Null when there is no such key; "ALL" is no family.
const Family* familyByShortKey(const QString& shortKey);

/// The element list's entry for all families at once.
QString allFamiliesKey();
QString allFamiliesName();
