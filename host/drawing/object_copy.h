// Copies of objects with their identity: as they are, to be put back later.
#pragma once

#include "host_access.h"

// The whole object, closed, without the lists that its journal keeps apart (the
// entities of a block, the records of a table). Null for a class that is unknown here.
std::unique_ptr<NcDbObject> fullCopy(const NcDbObject& object);

// Exchanges those lists between two states of one object.
void exchangeLists(NcDbObject& one, NcDbObject& other);
// The list itself; null for a class that has none.
NcDbObjectIdArray* listOf(NcDbObject& object);
