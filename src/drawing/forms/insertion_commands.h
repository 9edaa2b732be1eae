// Handlers of the insertion and numbering commands.
#pragma once

#include "elements/families/families.h"

/// Inserts elements of the kind; the thermostabilisers' dialog is TSGCatalogSelector.
void insertKind(int kind);

/// Shows the numbering of the family's new elements.
void editNumbering(FamilyKey family);

/// The same as plain functions for a command table.
template <int kind>
void insertCommand()
{
    insertKind(kind);
}

template <FamilyKey family>
void numberingCommand()
{
    editNumbering(family);
}
