// Groups of a drawing, found by their members.
#pragma once

#include <nrx/database.h>

// The living members of every group that holds the entity, the entity itself
// among them; the entity alone when it stands in none.
NRX_API NcDbObjectIdArray groupAround(const NcDbDatabase& database, NcDbObjectId entity);
