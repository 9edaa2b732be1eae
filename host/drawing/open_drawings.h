// Which drawings exist, so that an id of a drawing that is gone does no harm.
#pragma once

#include <nrx/database.h>

#include <set>

const std::set<const NcDbDatabase*>& drawingsAlive();
bool isDrawingAlive(const NcDbDatabase* database);
void noteDrawing(const NcDbDatabase* database, bool alive);
