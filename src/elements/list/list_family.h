#pragma once
// What the element list knows of each family.

#include "elements/families/families.h"

#include <QStringList>

struct ListFamily {
    FamilyKey family;
    QString measureId; ///< key column of its measures; empty without measures
    QString typeLabel; ///< of the question for another type

    const Family& tables() const { return ::family(family); }
    /// The tables that hold what belongs to an element, in the order in which
    /// they are cleared before it is deleted.
    QStringList dependants() const;
};

/// In the order in which a list of all families shows them. Families without
/// measures stand only alone.
const FamilyTable<ListFamily>& listFamilies();

/// The families of a key of the list's filter: one, or those of all.
QVector<const ListFamily*> familiesOfKey(const QString& shortKey);
