// The seven families of monitoring elements: which kinds they hold and which
// tables. Areas that need more per family keep a table of their own, keyed by
// FamilyKey, beside the one routine that reads it.
#pragma once

#include <QString>
#include <QVector>
#include <array>

enum class FamilyKey {
    Dm,  ///< deformation marks
    Ts,  ///< thermal wells
    Rp,  ///< benchmarks
    Ggs, ///< hydrogeological wells
    Igs, ///< engineering-geological wells
    Tss, ///< snow survey points
    Tsg, ///< thermostabilisers
};
constexpr int familyCount = 7;

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
    unsigned mask; ///< bit in the filter of the synchronisation
};

/// In the order of FamilyKey.
const std::array<Family, familyCount>& families();

const Family& family(FamilyKey key);

/// Null for the numbers that belong to no family.
const Family* familyOfKind(int kind);

/// Null when there is no such key; "ALL" is no family.
const Family* familyByShortKey(const QString& shortKey);

/// The element list's entry for all families at once.
QString allFamiliesKey();
QString allFamiliesName();
