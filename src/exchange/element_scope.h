// The elements among which an import looks for names: those of one position or
// of the whole database.
#pragma once

#include "elements/measures/measure_lists.h"

#include <QMap>

struct ElementScope {
    EntryList elements;
    QMap<int, QVector<int>> byPosition; ///< position to its elements

    /// The first position that holds the element, -1 when none does.
    int positionOf(int elementId) const;
};

/// A refused statement leaves the scope empty and returns false.
bool loadScope(const QString& elementTable, int positionId, bool allBase, ElementScope& scope);
