// What bringing rows into the drawing says about the elements of each family.
#pragma once

#include "elements/families/families.h"

struct RowTexts {
    FamilyKey family;
    QString heading;
    QString notFound;       ///< %1 the id, %2 the name
    QString differentNames; ///< %1 the id, %2 the drawing's name, %3 the row's
};

const RowTexts& rowTexts(FamilyKey family);
